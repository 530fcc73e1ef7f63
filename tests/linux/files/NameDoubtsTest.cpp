#include "platform/linux/files/NameDoubts.h"

#include "tests/linux/TemporaryFolder.h"

#include <filesystem>
#include <sys/stat.h>
#include <sys/xattr.h>

namespace zv {
namespace {

TEST(NameDoubts, AreThoseAboutFilesThatTheUserHasNotPutThere)
{
    tests::TemporaryFolder const disk;
    for (auto const* folder : { "home", "Downloads/deep", "Items", "stick", "nas" })
        disk.makeFolder(folder);
    bool keepsMarks = true;
    auto const marked = [&](std::string const& path) {
        keepsMarks = ::setxattr(path.c_str(), "user.xdg.origin.url", "x", 1, 0) == 0 && keepsMarks;
        return path;
    };
    disk.write("home/a", "");
    marked(disk.write("home/marked", ""));
    disk.write("Downloads/deep/a", "");
    disk.link("to-downloads", "Downloads/deep");
    disk.link("home/to-downloaded", "../Downloads/deep/a");
    marked(disk.write("Items/marked", ""));
    disk.write("home/x.desktop", "");
    chmod(disk.write("home/executable.desktop", "").c_str(), 0755);
    disk.link("home/to-untrusted.desktop", "x.desktop");
    disk.link("home/to-nas.desktop", "../nas/x.desktop");
    disk.link("home/to-nas", "../nas/x");

    auto const root = std::filesystem::canonical(disk.path()).string();
    MountTable const mounts("1 0 8:1 / / rw - ext4 /dev/sda1 rw\n2 1 0:2 / " + root + "/nas rw - nfs4 gone:/x rw\n");
    struct Row {
        char const* path;
        std::optional<NameDoubt> doubt;
        char const* why;
    };
    Row const rows[] = {
        { "home/a", std::nullopt, "the user's own" },
        { "home/marked", keepsMarks ? std::optional(NameDoubt::downloaded) : std::nullopt, "a browser says where it came from" },
        { "Downloads/deep/a", NameDoubt::amongDownloads, "at any depth" },
        { "to-downloads/a", NameDoubt::amongDownloads, "whatever way leads there" },
        { "home/to-downloaded", std::nullopt, "the link's name is the user's own" },
        { "Items/marked", std::nullopt, "put there on purpose" },
        { "home/x.desktop", NameDoubt::notInstalled, "it would run" },
        { "home/executable.desktop", std::nullopt, "the user has agreed to it" },
        { "home/to-untrusted.desktop", NameDoubt::notInstalled, "a link to what would run" },
        { "home/to-nas.desktop", NameDoubt::onForeignVolume, "nobody looks there" },
        { "home/to-nas", std::nullopt, "the link itself is here" },
        { "nas/x", NameDoubt::onForeignVolume, "remote" },
        { "home/gone", NameDoubt::ofAnotherUser, "nobody's" },
    };
    constexpr uid_t nobody = 4'000'000'000;
    NameDoubts own { .itemsFolder = disk.path("Items"), .downloadFolders = { disk.path("Downloads") }, .trust = StartTrust({}, { .system = nobody }) };
    for (auto const& row : rows)
        EXPECT_EQ(own.about(disk.path(row.path), mounts), row.doubt) << row.path << ": " << row.why;
    own.user = nobody;
    EXPECT_EQ(own.about(disk.path("home/a"), mounts), NameDoubt::ofAnotherUser);
    EXPECT_TRUE(isRemovable({ .path = "/run/media/me/STICK" }));
    EXPECT_FALSE(isRemovable({ .path = "/home", .device = "0:0" }));
}

} // namespace
} // namespace zv
