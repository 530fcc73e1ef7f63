#include "app/menu/RecentItemsProvider.h"

#include "tests/fakes/FakeLists.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using Scope = RecentItemsProvider::Scope;

struct Fixture : testing::Test {
    static DynamicEntry entryForFile(Url const& url)
    {
        DynamicEntry entry;
        entry.id = url.toString();
        entry.title = "looked at " + url.lastPathComponent();
        entry.url = url;
        return entry;
    }
    std::vector<std::string> titlesOf(Scope scope, std::int64_t limit)
    {
        std::vector<std::string> titles;
        provider.entries(scope, limit, [&](auto entries) {
            for (auto const& entry : entries)
                titles.push_back(entry.title);
            ++answers;
        });
        queries.finish(queries.made.size() - 1);
        return titles;
    }

    fakes::FakeMetadataQueries queries;
    RecentItemsProvider provider { queries, entryForFile };
    int answers = 0;
};

using RecentItemsProviderTest = Fixture;

TEST_F(RecentItemsProviderTest, AsksTheIndexWithTheScopesQueryNewestFirst)
{
    struct Row {
        Scope scope;
        std::string query;
    };
    Row const rows[] = {
        { Scope::all, "kMDItemLastUsedDate >= $time.now(-2592000)" },
        { Scope::applications, "kMDItemLastUsedDate >= $time.now(-2592000) && kMDItemContentType == 'com.apple.application-bundle'" },
        { Scope::folders, "kMDItemLastUsedDate >= $time.now(-2592000) && kMDItemContentType == 'public.folder'" },
        { Scope::documents,
            "kMDItemLastUsedDate >= $time.now(-2592000) && kMDItemContentType != 'public.folder' && kMDItemContentType != "
            "'com.apple.application-bundle'" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.query);
        titlesOf(row.scope, 5);
        auto const& search = queries.made.back()->search;
        EXPECT_EQ(search.queryString, row.query);
        EXPECT_EQ(search.sortKey, "kMDItemLastUsedDate");
        EXPECT_EQ(search.sortDirection, SortDirection::descending);
        EXPECT_EQ(search.scope, MetadataSearchScope::localComputer);
    }
}

TEST_F(RecentItemsProviderTest, GivesTheFirstResultsUpToTheLimitAndDoesNotReplaceThoseWithoutAPath)
{
    queries.items = { { "/a" }, { std::nullopt }, { "/c" }, { "/d" } };
    EXPECT_EQ(titlesOf(Scope::all, 3), (std::vector<std::string> { "looked at a", "looked at c" }));
    EXPECT_EQ(titlesOf(Scope::all, 30), (std::vector<std::string> { "looked at a", "looked at c", "looked at d" }));
}

TEST_F(RecentItemsProviderTest, ReadsNoResultWhenNothingIsWanted)
{
    queries.items = { { "/a" } };
    for (auto const limit : { 0, -1 }) {
        EXPECT_TRUE(titlesOf(Scope::all, limit).empty());
        EXPECT_EQ(queries.made.back()->resultsRead, 0);
    }
    EXPECT_EQ(answers, 2);
}

TEST_F(RecentItemsProviderTest, EndsTheQueryOnceItHasGathered)
{
    titlesOf(Scope::all, 5);
    EXPECT_EQ(queries.made[0]->starts, 1);
    EXPECT_EQ(queries.made[0]->stops, 1);
    EXPECT_TRUE(queries.made[0]->isGone);
}

TEST_F(RecentItemsProviderTest, NamesAFileOnARemoteVolumeWithoutLookingAtIt)
{
    queries.items = { { "/net/nas/01)Plan-*[cmd+opt+E]*.txt", false, true }, { "/net/nas/two\nlines", true, true } };
    std::vector<DynamicEntry> entries;
    provider.entries(Scope::all, 5, [&](auto found) { entries = std::move(found); });
    queries.finish();
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0].title, "Plan.txt");
    EXPECT_EQ(entries[0].url->path(), "/net/nas/01)Plan-*[cmd+opt+E]*.txt");
    EXPECT_EQ(entries[1].title, "two␊lines");
    EXPECT_TRUE(entries[1].isDirectory);
}

TEST_F(RecentItemsProviderTest, MayBeAskedAgainFromWithinItsAnswer)
{
    queries.items = { { "/a" } };
    int second = 0;
    provider.entries(Scope::all, 5, [&](auto) { provider.entries(Scope::folders, 5, [&](auto) { ++second; }); });
    queries.finish(0);
    queries.finish(1);
    EXPECT_EQ(second, 1);
}

TEST_F(RecentItemsProviderTest, DropsItsQueriesWhenItGoes)
{
    int called = 0;
    {
        RecentItemsProvider shortLived(queries, entryForFile);
        shortLived.entries(Scope::all, 5, [&](auto) { ++called; });
    }
    queries.finish();
    EXPECT_TRUE(queries.made[0]->isGone);
    EXPECT_EQ(called, 0);
}

} // namespace
} // namespace zv
