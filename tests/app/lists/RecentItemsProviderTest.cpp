#include "app/lists/RecentItemsProvider.h"

#include "tests/fakes/FakeLists.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

struct RecentItemsProviderTest : testing::Test {
    static DynamicEntry entryForFile(Url const& url)
    {
        DynamicEntry entry;
        entry.title = "looked at " + url.lastPathComponent();
        return entry;
    }

    fakes::FakeRecentFiles files;
    RecentItemsProvider provider { files, entryForFile };
};

TEST_F(RecentItemsProviderTest, AsksForTheFirstOnesOfTheLastThirtyDays)
{
    for (auto const& [limit, asked] : { std::pair(7, 7U), std::pair(0, 0U), std::pair(-1, 0U) }) {
        provider.entries(RecentItemsScope::folders, limit, [](auto) {});
        auto const& question = files.searches.back()->question;
        EXPECT_EQ(question.scope, RecentItemsScope::folders);
        EXPECT_EQ(question.usedWithin, std::chrono::hours(24 * 30));
        EXPECT_EQ(question.limit, asked);
    }
}

TEST_F(RecentItemsProviderTest, NamesAFileOnARemoteVolumeWithoutLookingAtIt)
{
    std::vector<DynamicEntry> entries;
    provider.entries(RecentItemsScope::all, 5, [&](auto found) { entries = std::move(found); });
    files.answer(0, { { "/a" }, { "/net/nas/01)Plan-*[cmd+opt+E]*.txt", false, true }, { "/net/nas/two\nlines", true, true } });
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[0].title, "looked at a");
    EXPECT_EQ(entries[1].title, "Plan.txt");
    EXPECT_EQ(entries[1].url->path(), "/net/nas/01)Plan-*[cmd+opt+E]*.txt");
    EXPECT_EQ(entries[2].title, "two␊lines");
    EXPECT_TRUE(entries[2].isDirectory);
}

TEST_F(RecentItemsProviderTest, MayBeAskedAgainFromWithinItsAnswerAndEndsTheSearch)
{
    int second = 0;
    provider.entries(RecentItemsScope::all, 5, [&](auto) { provider.entries(RecentItemsScope::folders, 5, [&](auto) { ++second; }); });
    EXPECT_TRUE(files.answer(0, {}));
    EXPECT_FALSE(files.answer(0, {})) << "the search has ended";
    EXPECT_TRUE(files.answer(1, {}));
    EXPECT_EQ(second, 1);
}

TEST_F(RecentItemsProviderTest, EndsItsSearchesWhenItGoes)
{
    std::make_unique<RecentItemsProvider>(files, entryForFile)->entries(RecentItemsScope::all, 5, [](auto) {});
    EXPECT_FALSE(files.answer(0, {}));
}

} // namespace
} // namespace zv
