#include "platform/linux/files/LinuxBookmarks.h"

#include "tests/linux/TemporaryFolder.h"
#include "tests/linux/TextFiles.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using tests::TemporaryFolder;
using tests::writeText;

class LinuxBookmarksTest : public testing::Test {
protected:
    [[nodiscard]] Url url(std::string_view name) const { return Url::fromPath(folder.path(name)); }
    void rename(std::string_view from, std::string_view to) const { std::filesystem::rename(folder.path(from), folder.path(to)); }

    TemporaryFolder folder;
    LinuxBookmarks bookmarks;
};

TEST_F(LinuxBookmarksTest, FindsAFileAtItsPath)
{
    for (auto const* name : { "file", "na\xEFve\n" }) {
        writeText(folder.path(name), "x");
        auto const resolved = bookmarks.resolve(bookmarks.create(url(name)).value());
        ASSERT_TRUE(resolved);
        EXPECT_EQ(resolved->url, url(name));
        EXPECT_FALSE(resolved->isStale);
    }
    std::filesystem::create_directory(folder.path("sub"));
    EXPECT_TRUE(bookmarks.create(url("sub")));
    EXPECT_TRUE(bookmarks.create(Url::fromPath("/")));
}

TEST_F(LinuxBookmarksTest, FindsAFileThatWasRenamedInItsFolder)
{
    for (int i = 0; i < 100; ++i)
        writeText(folder.path("other" + std::to_string(i)), "x");
    writeText(folder.path("old"), "x");
    auto const data = bookmarks.create(url("old")).value();
    rename("old", "new \xFF");
    auto const resolved = bookmarks.resolve(data);
    ASSERT_TRUE(resolved);
    EXPECT_EQ(resolved->url, url("new \xFF"));
    EXPECT_TRUE(resolved->isStale);
}

TEST_F(LinuxBookmarksTest, PrefersThePathOverTheFileThatOnceLayThere)
{
    writeText(folder.path("document"), "old");
    auto const data = bookmarks.create(url("document")).value();
    rename("document", "document~");
    writeText(folder.path("document"), "saved anew");
    auto const resolved = bookmarks.resolve(data);
    ASSERT_TRUE(resolved);
    EXPECT_EQ(resolved->url, url("document"));
    EXPECT_TRUE(resolved->isStale) << "the record should learn the new identity";
}

TEST_F(LinuxBookmarksTest, NeverTakesAnotherFileForOneThatIsGone)
{
    writeText(folder.path("gone"), "x");
    auto const data = bookmarks.create(url("gone")).value();
    // The new files are likely to get the inode number of the old one.
    for (int i = 0; i < 20; ++i) {
        std::filesystem::remove(folder.path("gone"));
        writeText(folder.path("other" + std::to_string(i)), "x");
    }
    EXPECT_FALSE(bookmarks.resolve(data));
}

TEST_F(LinuxBookmarksTest, GivesNothingForWhatIsNotThere)
{
    std::filesystem::create_symlink("nowhere", folder.path("broken"));
    EXPECT_FALSE(bookmarks.create(url("absent")));
    EXPECT_FALSE(bookmarks.create(url("broken")));
    writeText(folder.path("file"), "x");
    auto const data = bookmarks.create(url("file")).value();
    std::filesystem::remove_all(folder.path());
    EXPECT_FALSE(bookmarks.resolve(data));
}

TEST_F(LinuxBookmarksTest, RefusesBytesThatAreNoBookmark)
{
    writeText(folder.path("file"), "x");
    auto const data = bookmarks.create(url("file")).value();
    for (std::size_t length = 0; length < data.size(); ++length)
        (void)bookmarks.resolve(BookmarkData(data.begin(), data.begin() + static_cast<std::ptrdiff_t>(length)));
    EXPECT_FALSE(bookmarks.resolve({}));
    EXPECT_FALSE(bookmarks.resolve(BookmarkData(200, std::byte { '/' })));
    auto truncated = data;
    truncated.resize(28);
    EXPECT_FALSE(bookmarks.resolve(truncated)) << "no path";
}

TEST_F(LinuxBookmarksTest, OfAFileOnARemoteFileSystemOnlyThePathCounts)
{
    writeText(folder.path("file"), "");
    auto const made = bookmarks.create(url("file"));
    ASSERT_TRUE(made);
    std::filesystem::remove(folder.path("file"));
    EXPECT_FALSE(bookmarks.resolve(*made)) << "gone, as far as one may look";

    writeText(folder.path("mountinfo"), "1 0 1:1 / / rw - ext4 /dev/a rw\n2 1 0:9 / " + folder.path() + " rw - nfs4 nas:/x rw\n");
    LinuxBookmarks const careful(folder.path("mountinfo"));
    auto const found = careful.resolve(*made);
    ASSERT_TRUE(found) << "taken to be there";
    EXPECT_EQ(found->url, url("file"));
    EXPECT_FALSE(found->isStale);
    EXPECT_FALSE(careful.create(url("mountinfo"))) << "its identity is not looked at";
}

} // namespace
} // namespace zv
