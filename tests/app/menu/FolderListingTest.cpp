#include "app/menu/FolderListing.h"
#include "tests/fakes/FakeFolderReader.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using Child = fakes::FakeFolderReader::Child;
using Names = std::vector<std::string>;

Child file(std::string name) { return { std::move(name) }; }
Child folder(std::string name) { return fakes::FakeFolderReader::folder(std::move(name)); }
Child package(std::string name) { return fakes::FakeFolderReader::package(std::move(name)); }

FolderListing list(std::vector<Child> children, FolderListingOptions const& options = {})
{
    fakes::FakeFolderReader reader;
    reader.folders["/f"] = std::move(children);
    return listFolder(reader, Url::fromPath("/f"), options);
}

Names titlesOf(std::vector<DynamicEntry> const& entries)
{
    Names titles;
    for (auto const& entry : entries)
        titles.push_back(entry.isSeparator ? "---" : entry.title);
    return titles;
}

TEST(FolderListing, OrdersAsAFileManagerDoes)
{
    struct Row {
        std::vector<Child> children;
        bool foldersFirst;
        Names titles;
        std::string why;
    };
    Row const rows[] = {
        { { file("Item 10"), file("Item 9"), file("item 1") }, true, { "item 1", "Item 9", "Item 10" }, "digits by value, case ignored" },
        { { file("a"), folder("b") }, true, { "b", "a" }, "folders first" },
        { { file("a"), folder("b") }, false, { "a", "b" }, "by name alone" },
        { { folder("z"), package("Mail.app"), file("a"), file("n") }, true, { "z", "a", "Mail.app", "n" }, "a package counts as a file" },
        { { file("b.txt"), { "org.x.desktop", { false, true }, "Alpha" } }, true, { "Alpha", "b.txt" }, "by the name that is shown" },
        { { file("02)b"), { "01)z.desktop", { false, true }, "Zeta" }, file("10)a") }, true, { "Zeta", "b", "a" }, "prefixes order, shown or not" },
        { { file("a"), file("A") }, true, { "A", "a" }, "what sorts the same, by its bytes" },
        { { file("A"), file("a") }, true, { "A", "a" }, "whatever the disk's order" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(titlesOf(list(row.children, { .sortFoldersFirst = row.foldersFirst }).entries), row.titles);
    }
}

TEST(FolderListing, OrdersAndChoosesAsItsItemSays)
{
    auto const measured = [](char const* name, std::int64_t measure) { return Child { name, {}, {}, true, measure }; };
    std::vector<Child> const children { measured("b.pdf", 2), measured("a.txt", 3), measured("C.PDF", 1), folder("d"), measured("e", 2) };
    struct Row {
        FolderOrder order;
        bool reversed;
        char const* filter;
        Names titles;
    };
    Row const rows[] = {
        { FolderOrder::dateChanged, false, "", { "d", "C.PDF", "b.pdf", "e", "a.txt" } },
        { FolderOrder::size, true, "", { "d", "a.txt", "e", "b.pdf", "C.PDF" } },
        { FolderOrder::kind, false, "", { "d", "e", "b.pdf", "C.PDF", "a.txt" } },
        { FolderOrder::name, true, "", { "d", "e", "C.PDF", "b.pdf", "a.txt" } },
        { FolderOrder::name, false, "*.pdf", { "d", "b.pdf", "C.PDF" } },
        { FolderOrder::dateAdded, true, "?.txt, e", { "d", "a.txt", "e" } },
    };
    for (auto const& row : rows) {
        fakes::FakeFolderReader reader;
        reader.folders["/f"] = children;
        auto const listing = listFolder(reader, Url::fromPath("/f"), { .order = row.order, .isReversed = row.reversed, .filter = row.filter });
        EXPECT_EQ(titlesOf(listing.entries), row.titles);
        EXPECT_EQ(listing.totalCount, row.titles.size());
        bool const needsNoDisk = row.order == FolderOrder::name || row.order == FolderOrder::kind;
        EXPECT_EQ(reader.measured.empty(), needsNoDisk);
    }
    EXPECT_FALSE(fitsFilter(std::string(200, 'a'), "*a*a*a*a*a*a*a*a*a*b")) << "at once";
}

TEST(FolderListing, MakesOnlyAsManyEntriesAsWantedButCountsAll)
{
    std::vector<Child> children;
    for (int i = 999; i >= 0; --i)
        children.push_back(file("File " + std::to_string(i)));
    children.push_back(folder("Z"));
    auto const listing = list(children, { .limit = 3 });
    EXPECT_EQ(titlesOf(listing.entries), (Names { "Z", "File 0", "File 1" }));
    EXPECT_EQ(listing.totalCount, 1001U);
    EXPECT_TRUE(list(children, { .limit = 0 }).entries.empty());
}

TEST(FolderListing, ShowsHiddenFilesOnlyWhenWanted)
{
    std::vector<Child> const children { file(".profile"), file("a") };
    EXPECT_EQ(titlesOf(list(children, { .showHiddenFiles = false }).entries), Names { "a" });
    EXPECT_EQ(titlesOf(list(children, { .showHiddenFiles = true }).entries), (Names { ".profile", "a" }));
}

TEST(FolderListing, ReadsWhatNamesSay)
{
    auto const listing = list({ file("01)Mail-*[cmd+opt+M]*.txt"), file("02)-***"), file("03)Bad-*[M]*") });
    EXPECT_EQ(titlesOf(listing.entries), (Names { "Mail.txt", "---", "Bad-*[M]*" }));
    ASSERT_TRUE(listing.entries[0].hotkey);
    EXPECT_EQ(listing.entries[0].hotkey->description(), "⌥⌘M");
    EXPECT_FALSE(listing.entries[2].hotkey);
}

TEST(FolderListing, FindsShortcutsBeyondTheLimit)
{
    auto const listing = list({ file("a"), file("z-*[cmd+Z]*"), file("y-*[cmd]*"), file("x-*[cmd+X]*-***") }, { .limit = 1 });
    EXPECT_EQ(titlesOf(listing.entries), Names { "a" });
    EXPECT_EQ(titlesOf(listing.withHotkeys), Names { "z" });
}

TEST(FolderListing, AnEntryKeepsTheTrueBytesOfItsName)
{
    std::string const names[] = { "bad\xFF\xFEname", "two\nlines", "photo\u202Egpj.exe", "100% & #1?", std::string(255, 'x') };
    for (auto const& name : names) {
        SCOPED_TRACE(name);
        auto const entry = list({ file(name) }).entries.at(0);
        EXPECT_EQ(entry.url->path(), "/f/" + name);
        EXPECT_EQ(entry.fileURL, entry.url);
        EXPECT_EQ(entry.title.find('\n'), std::string::npos);
    }
}

TEST(FolderListing, ALocalizedNameIsShownButTheShortcutIsTheFilesOwn)
{
    auto const entry = list({ { "firefox-*[cmd+F]*.desktop", { false, true }, "Web\nBrowser" } }).entries.at(0);
    EXPECT_EQ(entry.title, "Web␊Browser");
    EXPECT_TRUE(entry.hotkey);
    EXPECT_TRUE(entry.isPackage);
    EXPECT_EQ(entry.url->lastPathComponent(), "firefox-*[cmd+F]*.desktop");
}

TEST(FolderListing, AFolderThatCannotBeReadIsOneEntryWithTheReason)
{
    struct Row {
        FolderReadFailure failure;
        std::string reason;
    };
    Row const rows[] = {
        { FolderReadFailure::notPermitted, "You do not have permission to see this folder’s contents." },
        { FolderReadFailure::notFound, "This folder no longer exists." },
        { FolderReadFailure::notAFolder, "This is not a folder." },
        { FolderReadFailure::failed, "This folder cannot be read." },
    };
    for (auto const& row : rows) {
        fakes::FakeFolderReader reader;
        reader.failures["/Private"] = row.failure;
        auto const listing = listFolder(reader, Url::fromPath("/Private"), {});
        ASSERT_EQ(titlesOf(listing.entries), Names { "Private" });
        EXPECT_EQ(listing.entries[0].unavailabilityReason, row.reason);
        EXPECT_EQ(listing.entries[0].fileURL, Url::fromPath("/Private")) << "for its icon";
        EXPECT_EQ(listing.totalCount, 1U);
    }
}

} // namespace
} // namespace zv
