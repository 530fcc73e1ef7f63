#include "platform/linux/icons/FileIconNames.h"

#include "tests/linux/TemporaryFolder.h"

#include <sys/stat.h>

namespace zv {
namespace {

using tests::TemporaryFolder;

bool has(FileIconNames const& icon, std::string const& name) { return std::find(icon.names.begin(), icon.names.end(), name) != icon.names.end(); }

struct FileIconNamesTest : testing::Test {
    FileIconNamesTest()
        : mounts("1 0 1:1 / / rw - ext4 /dev/a rw\n2 1 0:2 / " + disk.path("dead") + " rw - nfs4 gone:/x rw\n")
    {
    }
    FileIconNames of(std::string const& name) const { return iconNamesOfFile(disk.path(name), mounts, StartTrust({ disk.path() })); }

    TemporaryFolder disk;
    MountTable mounts;
};

TEST_F(FileIconNamesTest, FollowTheNameAndNeverTheContents)
{
    disk.write("picture.png", "not a picture at all");
    disk.write("notes.TXT", "\x89PNG\r\n");
    disk.write("no extension", "%PDF-1.4");
    ASSERT_EQ(mkfifo(disk.path("pipe.txt").c_str(), 0600), 0);
    EXPECT_TRUE(has(of("picture.png"), "image-x-generic"));
    EXPECT_TRUE(has(of("notes.TXT"), "text-x-generic"));
    EXPECT_FALSE(has(of("no extension"), "application-pdf")) << "its contents would have told";
    EXPECT_TRUE(has(of("pipe.txt"), "text-x-generic")) << "and nobody waited for it";
}

TEST_F(FileIconNamesTest, ShowFoldersVolumesAndProgramsForWhatTheyAre)
{
    disk.makeFolder("folder.png");
    chmod(disk.write("tool", "#!/bin/sh").c_str(), 0755);
    EXPECT_EQ(of("folder.png").names.front(), "folder");
    MountTable const media("1 0 8:1 / /media/me/STICK rw - vfat /dev/sdb1 rw\n2 0 0:1 / /mnt/nas rw - nfs4 gone:/x rw\n");
    EXPECT_EQ(iconNamesOfFile("/media/me/STICK", media).names.front(), "drive-removable-media");
    EXPECT_EQ(iconNamesOfFile("/mnt/nas", media).shape, IconShape::network);
    EXPECT_EQ(of("tool").names.front(), "application-x-executable");
    EXPECT_EQ(iconNamesOfFile("/", mounts).shape, IconShape::drive);
    EXPECT_EQ(iconNamesOfFile("/proc", MountTable("1 0 0:1 / /proc rw - proc proc rw\n")).names.front(), "folder") << "a part of the system is no medium";
}

TEST_F(FileIconNamesTest, TakeAnApplicationEntrysOwnIcon)
{
    auto const entry = [](std::string const& icon) { return "[Desktop Entry]\nType=Application\nName=A\nExec=a\nIcon=" + icon + "\n"; };
    disk.write("named.desktop", entry("my-app"));
    disk.write("wrong.desktop", entry("my-app.png"));
    disk.write("path.desktop", entry("/opt/a.svg"));
    disk.write("none.desktop", entry(""));
    disk.write("broken.desktop", "rubbish");
    EXPECT_EQ(of("named.desktop").names.front(), "my-app");
    EXPECT_EQ(of("wrong.desktop").names.front(), "my-app") << "a name has no extension";
    EXPECT_EQ(of("path.desktop").imageFile, "/opt/a.svg");
    EXPECT_EQ(of("none.desktop").names.front(), "application-x-executable");
    EXPECT_EQ(of("broken.desktop").shape, IconShape::document);
    constexpr uid_t nobody = 4'000'000'000;
    auto const untrusted = iconNamesOfFile(disk.path("named.desktop"), mounts, StartTrust({}, { .system = nobody }));
    EXPECT_EQ(untrusted, (FileIconNames { { "text-x-generic" }, {}, IconShape::document })) << "poses as nothing";
}

TEST_F(FileIconNamesTest, MarkLinksAndShowWhatTheyLeadTo)
{
    disk.makeFolder("folder");
    disk.write("a.png", "");
    disk.link("to-folder", disk.path("folder"));
    disk.link("to-picture", "a.png");
    disk.link("twice", "to-folder");
    disk.link("broken", "nowhere");
    disk.link("to-dead", disk.path("dead/x"));
    EXPECT_EQ(of("to-folder").names.front(), "folder");
    for (auto const* name : { "to-folder", "to-picture", "twice", "broken", "to-dead" })
        EXPECT_TRUE(of(name).isLink) << name;
    EXPECT_EQ(of("broken").shape, IconShape::document) << "as it is listed";
    for (auto const* name : { "folder", "a.png", "missing" })
        EXPECT_FALSE(of(name).isLink) << name;
    EXPECT_FALSE(of("to-folder/x").isLink) << "only a link on the way";
}

TEST_F(FileIconNamesTest, GuessOnARemoteMountWithoutLookingThere)
{
    EXPECT_EQ(of("dead").names.front(), "folder-remote");
    EXPECT_EQ(of("dead/Some folder").names.front(), "folder-remote");
    EXPECT_TRUE(has(of("dead/picture.png"), "image-x-generic"));
}

} // namespace
} // namespace zv
