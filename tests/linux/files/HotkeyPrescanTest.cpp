#include "app/hotkeys/HotkeyPrescan.h"

#include "platform/linux/files/LinuxFileSystem.h"
#include "platform/linux/files/LinuxFolderReader.h"
#include "tests/linux/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

class PrescanOfRealFolders : public testing::Test {
protected:
    /// The folders looked into, as "folder: name shortcut, …", relative to the tree.
    std::vector<std::string> scan(std::vector<std::string> const& roots, std::int64_t depth, HiddenFiles hiddenFiles = HiddenFiles::skipped)
    {
        std::vector<Url> urls;
        for (auto const& root : roots)
            urls.push_back(Url::fromPath(tree.path(root)));
        std::vector<std::string> lines;
        for (auto const& [folder, shortcuts] : prescanHotkeys(reader, files, urls, depth, hiddenFiles)) {
            auto& line = lines.emplace_back(folder.substr(tree.path().size()) + ":");
            for (auto const& [url, spec] : shortcuts)
                line += " " + url.lastPathComponent() + " " + spec.description();
        }
        return lines;
    }
    using Lines = std::vector<std::string>;

    tests::TemporaryFolder tree;
    LinuxFileSystem files;
    LinuxFolderReader reader { DesktopAudience {} };
};

TEST_F(PrescanOfRealFolders, FollowsLinksButNeverInCircles)
{
    tree.write("a/x-*[cmd+X]*", "");
    tree.write("elsewhere/y-*[cmd+Y]*", "");
    tree.makeFolder("elsewhere/sub");
    tree.link("a/self", tree.path("a"));
    tree.link("a/loop", "loop");
    tree.link("a/broken", "nothing");
    tree.link("a/out", "../elsewhere");
    tree.link("elsewhere/back", "../a");
    tree.link("a/file-*[cmd+F]*", "x-*[cmd+X]*");
    tree.link("root", "a");
    EXPECT_EQ(scan({ "root", "a", "elsewhere/back" }, 9), (Lines { "/a: file-*[cmd+F]* ⌘F x-*[cmd+X]* ⌘X", "/elsewhere: y-*[cmd+Y]* ⌘Y", "/elsewhere/sub:" }));
}

TEST_F(PrescanOfRealFolders, LooksAtHiddenFilesOnlyWhenTheyAreShown)
{
    tree.write("a/.dot/in-*[cmd+I]*", "");
    tree.write("a/.file-*[cmd+F]*", "");
    tree.write("a/listed-*[cmd+L]*", "");
    tree.write("a/.hidden", "listed-*[cmd+L]*\n");
    EXPECT_EQ(scan({ "a" }, 2), (Lines { "/a:" }));
    EXPECT_EQ(scan({ "a" }, 2, HiddenFiles::included), (Lines { "/a: .file-*[cmd+F]* ⌘F listed-*[cmd+L]* ⌘L", "/a/.dot: in-*[cmd+I]* ⌘I" }));
}

} // namespace
} // namespace zv
