#include "tests/app/lists/ListsFixture.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using Kind = MenuItemKind;
using Titles = std::vector<std::string>;

struct RecentItemsLists : testing::Test, ListsFixture {
    /// The contents of one submenu: each opening asks anew.
    struct Submenu {
        Titles titles { "Loading…" };
    };
    void open(Kind::Case kind, Submenu& submenu)
    {
        submenu = {};
        lists.listOf(kind)->fill([&submenu](ListContent const& content) { submenu.titles = titlesOf(std::get<std::vector<DynamicEntry>>(content)); });
    }
    Titles opened(Kind::Case kind)
    {
        open(kind, submenu);
        return submenu.titles;
    }
    void answer(std::size_t search, int count)
    {
        std::vector<RecentFile> found;
        for (int i = 1; i <= count; ++i)
            found.push_back({ "/E" + std::to_string(i) });
        recentFiles.answer(search, found);
    }

    Submenu submenu;
};

TEST_F(RecentItemsLists, AskForTheirScope)
{
    std::pair<Kind::Case, RecentItemsScope> const rows[] = {
        { Kind::recentItems, RecentItemsScope::all },
        { Kind::recentApps, RecentItemsScope::applications },
        { Kind::recentFolders, RecentItemsScope::folders },
        { Kind::recentDocs, RecentItemsScope::documents },
    };
    preferences.setRecentItemsLimit(7);
    for (auto const& [kind, scope] : rows) {
        EXPECT_EQ(opened(kind), Titles { "Loading…" }) << "each scope for itself";
        EXPECT_EQ(recentFiles.searches.back()->question.scope, scope);
        EXPECT_EQ(recentFiles.searches.back()->question.limit, 7U);
        answer(recentFiles.searches.size() - 1, 1);
    }
}

TEST_F(RecentItemsLists, LoadOnceThenShowAtOnceWhatIsKnown)
{
    opened(Kind::recentDocs);
    answer(0, 2);
    EXPECT_EQ(submenu.titles, (Titles { "E1", "E2" }));
    time.advance(std::chrono::seconds(60));
    EXPECT_EQ(opened(Kind::recentDocs), (Titles { "E1", "E2" })) << "old as it is";
    answer(1, 0);
    EXPECT_EQ(submenu.titles, (Titles { "E1", "E2" })) << "an open list does not change under the pointer";
    EXPECT_EQ(opened(Kind::recentDocs), Titles {}) << "the fresh list at the next opening, empty as it is";
}

TEST_F(RecentItemsLists, AskAnewWhenWhatIsKnownIsOldOrOfAnotherLimit)
{
    preferences.setRecentItemsLimit(15);
    opened(Kind::recentApps);
    answer(0, 1);
    struct Row {
        int milliseconds;
        std::size_t searches;
        std::string why;
    };
    Row const rows[] = {
        { 4999, 1, "fresh for five seconds" },
        { 1, 2, "five seconds later" },
        { 9999, 2, "one is still running" },
    };
    for (auto const& row : rows) {
        time.advance(std::chrono::milliseconds(row.milliseconds));
        opened(Kind::recentApps);
        EXPECT_EQ(recentFiles.searches.size(), row.searches) << row.why;
    }
    preferences.setRecentItemsLimit(50);
    answer(1, 1);
    opened(Kind::recentApps);
    ASSERT_EQ(recentFiles.searches.size(), 3U) << "a limit that changed while asking is not taken for the new one";
    EXPECT_EQ(recentFiles.searches[2]->question.limit, 50U);
}

TEST_F(RecentItemsLists, KeepEntriesAboveTheRecentOnesWhateverTheLimit)
{
    files.addFile("/kept");
    folders->remote = { "/net/far" };
    preferences.setRecentItemsLimit(2);
    PropertyListArray const ofAnotherVersion { PropertyListDictionary { { "List", "recentPeople" }, { "URL", "file:///kept" } }, "?" };
    defaults.keep(KeptEntries::defaultsKey, ofAnotherVersion);
    for (auto const* path : { "/kept", "/gone", "/E1", "/net/far" })
        kept.toggle(Kind::recentDocs, Url::fromPath(path));
    opened(Kind::recentDocs);
    EXPECT_EQ(recentFiles.searches.back()->question.limit, 6U);
    files.addFile("/E1");
    answer(0, 6);
    EXPECT_EQ(submenu.titles, (Titles { "kept", "gone", "E1", "far", "", "E2", "E3" }));
    auto const shown = entries(Kind::recentDocs);
    EXPECT_EQ(shown[1].unavailabilityReason, "This file was moved or deleted, or the volume that holds it is away.");
    EXPECT_EQ(shown[1].recentList, Kind::recentDocs) << "else nothing lets it go";
    EXPECT_EQ(shown[3].unavailabilityReason, std::nullopt) << "what is on a server is not looked at";
    opened(Kind::recentItems);
    answer(recentFiles.searches.size() - 1, 1);
    EXPECT_EQ(submenu.titles, Titles { "E1" }) << "another list";

    KeptEntries afterwards { defaults };
    for (auto const& url : afterwards.of(Kind::recentDocs))
        afterwards.toggle(Kind::recentDocs, url);
    EXPECT_EQ(defaults.storedObject(KeptEntries::defaultsKey), PropertyList(ofAnotherVersion));
}

TEST_F(RecentItemsLists, OpenedAgainWhileTheyLoadShareTheOneSearch)
{
    Submenu first, second;
    open(Kind::recentApps, first);
    open(Kind::recentApps, second);
    EXPECT_EQ(recentFiles.searches.size(), 1U);
    answer(0, 1);
    EXPECT_EQ(first.titles, Titles { "E1" });
    EXPECT_EQ(second.titles, Titles { "E1" });
}

} // namespace
} // namespace zv
