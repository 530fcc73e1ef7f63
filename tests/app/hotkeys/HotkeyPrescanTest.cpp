#include "app/hotkeys/HotkeyPrescan.h"

#include "tests/fakes/FakeFiles.h"
#include "tests/fakes/FakeFolderReader.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using Reader = fakes::FakeFolderReader;

class HotkeyPrescanTest : public testing::Test {
protected:
    void addFolder(std::string const& path, std::vector<Reader::Child> children)
    {
        files.addFolder(path);
        reader.folders[path] = std::move(children);
    }
    std::vector<std::string> scan(std::vector<std::string> const& roots, std::int64_t depth)
    {
        std::vector<Url> urls;
        for (auto const& root : roots)
            urls.push_back(Url::fromPath(root));
        found = prescanHotkeys(reader, files, urls, depth, HiddenFiles::skipped);
        std::vector<std::string> folders;
        for (auto const& [folder, shortcuts] : found)
            folders.push_back(folder);
        return folders;
    }

    fakes::FakeFileSystem files;
    Reader reader;
    ShortcutsByFolder found;
};

TEST_F(HotkeyPrescanTest, GoesAsDeepAsItIsTold)
{
    addFolder("/1", { Reader::folder("2"), { "a" } });
    addFolder("/1/2", { Reader::folder("3") });
    addFolder("/1/2/3", {});
    using Folders = std::vector<std::string>;
    EXPECT_EQ(scan({ "/1" }, -1), Folders {});
    EXPECT_EQ(scan({ "/1" }, 0), Folders {});
    EXPECT_TRUE(reader.readings.empty());
    EXPECT_EQ(scan({ "/1" }, 1), (Folders { "/1" }));
    EXPECT_EQ(scan({ "/1" }, 2), (Folders { "/1", "/1/2" }));
    EXPECT_EQ(scan({ "/1" }, 9), (Folders { "/1", "/1/2", "/1/2/3" }));
}

TEST_F(HotkeyPrescanTest, LeavesRemoteFoldersAlone)
{
    addFolder("/a", { Reader::folder("nas"), Reader::folder("b") });
    addFolder("/a/nas", {});
    addFolder("/a/b", {});
    reader.remote = { "/a/nas" };
    EXPECT_EQ(scan({ "/a", "/a/nas" }, 9), (std::vector<std::string> { "/a", "/a/b" }));
    EXPECT_EQ(reader.readings["/a/nas"], 0);
}

TEST_F(HotkeyPrescanTest, LooksIntoAFolderOnceWhateverWaysLeadToIt)
{
    addFolder("/a", { Reader::folder("link"), Reader::folder("b") });
    addFolder("/a/b", {});
    files.addLink("/a/link", "/a");
    files.addLink("/other", "/a/b");
    EXPECT_EQ(scan({ "/a", "/other", "/a/b", "/a" }, 9), (std::vector<std::string> { "/a", "/a/b" }));
    for (auto const& [folder, count] : reader.readings)
        EXPECT_EQ(count, 1) << folder;
}

TEST_F(HotkeyPrescanTest, ReachesAFolderByTheShortestWay)
{
    // Depth first, "/a/b/c" would use up the level left for "/c".
    addFolder("/a", { Reader::folder("to-c") });
    files.addLink("/a/to-c", "/c");
    addFolder("/c", { Reader::folder("d") });
    addFolder("/c/d", {});
    EXPECT_EQ(scan({ "/a", "/c" }, 2), (std::vector<std::string> { "/a", "/c", "/c/d" }));
}

TEST_F(HotkeyPrescanTest, TakesAPackagesOwnShortcutButNeverLooksInside)
{
    files.addPackage("/Root.app");
    files.addFile("/file");
    addFolder("/a", { Reader::package("Tool-*[cmd+E]*.app"), { "x-*[cmd+X]*.txt" }, { "plain" }, { "wrong-*[E]*" }, { "-*[cmd+A]*-***" } });
    reader.folders["/a/Tool-*[cmd+E]*.app"] = {};
    EXPECT_EQ(scan({ "/Root.app", "/file", "/missing", "/a" }, 9), (std::vector<std::string> { "/a" }));
    std::vector<std::string> names;
    for (auto const& [url, spec] : found.at("/a"))
        names.push_back(url.path() + " " + spec.description());
    EXPECT_EQ(names, (std::vector<std::string> { "/a/Tool-*[cmd+E]*.app ⌘E", "/a/x-*[cmd+X]*.txt ⌘X" }));
}

TEST_F(HotkeyPrescanTest, SkipsWhatCannotBeRead)
{
    addFolder("/a", { Reader::folder("locked"), Reader::folder("b") });
    files.addFolder("/a/locked");
    reader.failures["/a/locked"] = FolderReadFailure::notPermitted;
    addFolder("/a/b", {});
    EXPECT_EQ(scan({ "/a" }, 2), (std::vector<std::string> { "/a", "/a/b" }));
}

TEST_F(HotkeyPrescanTest, StopsAfterTwoThousandFolders)
{
    std::vector<Reader::Child> children;
    for (int i = 0; i < 2100; ++i) {
        auto const name = std::to_string(i);
        children.push_back(Reader::folder(name));
        reader.folders["/a/" + name] = {};
    }
    addFolder("/a", children);
    EXPECT_EQ(scan({ "/a" }, 2).size(), 2000U);
    EXPECT_TRUE(found.contains("/a/1998"));
    EXPECT_FALSE(found.contains("/a/1999"));
}

} // namespace
} // namespace zv
