#include "tests/app/menu/MenuBench.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using Lines = MenuBench::Lines;
using Kind = MenuItemKind;
using Reader = fakes::FakeFolderReader;
using std::chrono::seconds;

std::vector<DynamicEntry> entriesNamed(int count)
{
    std::vector<DynamicEntry> entries;
    for (int i = 1; i <= count; ++i)
        entries.push_back(entryTitled("E" + std::to_string(i)));
    return entries;
}

/// "a-b": a letter for an entry titled so, "-" for a separator.
std::vector<DynamicEntry> spelled(std::string_view text)
{
    std::vector<DynamicEntry> entries;
    for (char const c : text)
        entries.push_back(c == '-' ? separatorEntry() : entryTitled(std::string(1, c)));
    return entries;
}

TEST(TidySeparators, LeavesNoneAtTheEndsNorTwoInARow)
{
    struct Row {
        std::string before, after;
    };
    Row const rows[] = { { "", "" }, { "-", "" }, { "---", "" }, { "a", "a" }, { "-a-", "a" }, { "a-b", "a-b" }, { "--a---b-c--", "a-b-c" } };
    for (auto const& row : rows) {
        auto entries = spelled(row.before);
        tidySeparators(entries);
        std::string after;
        for (auto const& entry : entries)
            after += entry.isSeparator ? "-" : entry.title;
        EXPECT_EQ(after, row.after) << row.before;
    }
}

class DynamicSubmenuTest : public testing::Test, public MenuBench {
protected:
    /// Counts how often a mirror would have been told.
    static std::shared_ptr<int> countRefills(Menu& menu)
    {
        auto count = std::make_shared<int>(0);
        menu.onRefilled = [count] { ++*count; };
        return count;
    }
    void putFiles(std::string const& folder, int count)
    {
        for (int i = 0; i < count; ++i)
            reader->folders[folder].push_back({ "f" + std::to_string(i) });
    }
};

TEST_F(DynamicSubmenuTest, PopulateShowsUpToTheLimitAndCountsTheRest)
{
    struct Row {
        std::vector<DynamicEntry> entries;
        std::int64_t limit;
        Lines lines;
        std::string why;
    };
    Row const rows[] = {
        { entriesNamed(2), 2, { "E1", "E2" }, "as many as fit" },
        { entriesNamed(3), 2, { "E1", "E2", "---", "(1 more items…)" }, "the rest is counted" },
        { spelled("a-bc-d"), 2, { "a", "---", "(4 more items…)" }, "separators count among what is left out; the last one kept is dropped" },
        { spelled("---ab"), 3, { "(Nothing)" }, "nothing is left of the first three" },
        { {}, 2, { "(Nothing)" }, "empty" },
        { entriesNamed(3), 0, { "(Nothing)" }, "no limit shows nothing" },
        { entriesNamed(3), -5, { "(Nothing)" }, "nor does less" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        preferences.setMaximumItemsPerFolder(row.limit);
        auto const menu = std::make_shared<Menu>();
        menu->entries.push_back(MenuEntry::disabled("what was there before"));
        populate(*menu, row.entries, 0, "Nothing", builder);
        EXPECT_EQ(linesOf(*menu), row.lines);
    }
}

TEST_F(DynamicSubmenuTest, ThirtyFilesWithRoomForTwentyFive)
{
    putFiles("/f", 30);
    preferences.setMaximumItemsPerFolder(25);
    auto const menu = open(folderEntry("/f"));
    ASSERT_EQ(menu->entries.size(), 27U);
    EXPECT_EQ(linesOf(*menu)[24], "f24");
    EXPECT_EQ(linesOf(*menu)[25], "---");
    EXPECT_EQ(linesOf(*menu)[26], "(5 more items…)");
    EXPECT_EQ(menu->entries[26].target, nullptr);
}

TEST_F(DynamicSubmenuTest, AFolderIsReadOnlyWhenItOpensAndAfreshEachTime)
{
    putFiles("/f", 1);
    auto const entry = folderEntry("/f");
    EXPECT_EQ(linesOf(*entry.submenu), Lines { "(Loading…)" });
    EXPECT_EQ(reader->readings["/f"], 0);
    open(entry);
    putFiles("/f", 1);
    EXPECT_EQ(linesOf(*open(entry)), (Lines { "f0", "f0" }));
    EXPECT_EQ(reader->readings["/f"], 2);
}

TEST_F(DynamicSubmenuTest, AFolderWithoutVisibleFilesIsEmpty)
{
    reader->folders["/f"] = { { ".hidden" } };
    auto const entry = folderEntry("/f");
    EXPECT_EQ(linesOf(*open(entry)), Lines { "(Empty Folder)" });
    preferences.setShowHiddenFiles(true);
    EXPECT_EQ(linesOf(*open(entry)), Lines { ".hidden" }) << "at the next opening";
}

TEST_F(DynamicSubmenuTest, FoldersBecomeSubmenusWhileDepthLasts)
{
    reader->folders["/f"] = { Reader::folder("a") };
    reader->folders["/f/a"] = { Reader::folder("b") };
    auto const first = open(folderEntry("/f", 1));
    EXPECT_EQ(linesOf(*first), Lines { "a >" });
    auto const second = open(first->entries[0]);
    EXPECT_EQ(linesOf(*second), Lines { "b" });
    second->entries[0].target->invoke();
    EXPECT_EQ(commands.log, Lines { "open entry file:///f/a/b" });
}

TEST_F(DynamicSubmenuTest, AListedFolderTellsItsShortcuts)
{
    reader->folders["/f"] = { { "a" }, { "z-*[cmd+Z]*" } };
    preferences.setMaximumItemsPerFolder(1);
    auto const entry = folderEntry("/f");
    open(entry);
    EXPECT_EQ(listedFolders.told["/f"], Lines { "z-*[cmd+Z]*" });
    reader->folders["/f"] = { { "a" } };
    open(entry);
    EXPECT_EQ(listedFolders.told["/f"], Lines {}) << "gone ones are told too";
}

TEST_F(DynamicSubmenuTest, ShortcutsOfFileNamesShowInAColumn)
{
    reader->folders["/f"] = { { "Example-*[cmd+opt+E]*" } };
    EXPECT_EQ(open(folderEntry("/f"))->entries[0].attributedTitle->hint, "⌥⌘E");
}

TEST_F(DynamicSubmenuTest, AnUnreadableFolderSaysWhy)
{
    reader->failures["/f"] = FolderReadFailure::notPermitted;
    auto const menu = open(folderEntry("/f"));
    EXPECT_EQ(linesOf(*menu), Lines { "(f)" });
    EXPECT_EQ(menu->entries[0].toolTip, "You do not have permission to see this folder’s contents.");
    EXPECT_TRUE(menu->entries[0].attributedTitle->italic);
}

struct RemoteFolder : DynamicSubmenuTest {
    RemoteFolder()
    {
        reader->remote = { "/nas" };
        putFiles("/nas", 1);
    }
    MenuEntry entry = folderEntry("/nas");
};

TEST_F(RemoteFolder, LoadsInTheBackgroundAndFillsTheOpenMenu)
{
    auto const refills = countRefills(*entry.submenu);
    EXPECT_EQ(linesOf(*open(entry)), Lines { "(Loading…)" });
    EXPECT_EQ(reader->readings["/nas"], 0) << "never on the main thread";
    EXPECT_EQ(*refills, 0);
    turn();
    EXPECT_EQ(linesOf(*entry.submenu), Lines { "f0" });
    EXPECT_EQ(*refills, 1);
    time.advance(seconds(20));
    EXPECT_EQ(linesOf(*entry.submenu), Lines { "f0" }) << "patience is no longer asked for";
}

TEST_F(RemoteFolder, SaysThatItDidNotRespondAndStillFillsWhenItDoes)
{
    auto const refills = countRefills(*open(entry));
    time.advance(std::chrono::milliseconds(9999));
    EXPECT_EQ(linesOf(*entry.submenu), Lines { "(Loading…)" });
    time.advance(std::chrono::milliseconds(1));
    EXPECT_EQ(linesOf(*entry.submenu), Lines { "(This folder did not respond.)" });
    EXPECT_TRUE(entry.submenu->entries[0].attributedTitle->italic);
    EXPECT_EQ(*refills, 1);
    turn();
    EXPECT_EQ(linesOf(*entry.submenu), Lines { "f0" });
    EXPECT_EQ(*refills, 2);
}

TEST_F(RemoteFolder, IsCalledAVolumeWhereItIsOne)
{
    files.volumes["/nas"] = "nas";
    open(entry);
    time.advance(seconds(10));
    EXPECT_EQ(linesOf(*entry.submenu), Lines { "(This volume did not respond.)" });
}

TEST_F(RemoteFolder, IsNotListedASecondTimeWhileItIsSilent)
{
    open(entry);
    auto const other = folderEntry("/nas");
    open(other);
    open(entry);
    EXPECT_EQ(time.pendingBackground(), 1U);
    turn();
    EXPECT_EQ(reader->readings["/nas"], 1);
    EXPECT_EQ(linesOf(*entry.submenu), Lines { "f0" });
    EXPECT_EQ(linesOf(*other.submenu), Lines { "f0" });
}

TEST_F(RemoteFolder, OpenedAgainWithOtherSettingsIsListedAgain)
{
    reader->folders["/nas"] = { { ".hidden" } };
    open(entry);
    preferences.setShowHiddenFiles(true);
    open(entry);
    turn();
    EXPECT_EQ(linesOf(*entry.submenu), Lines { ".hidden" }) << "what the earlier opening asked for is not shown";
}

TEST_F(RemoteFolder, CountsWhatWasLeftOutThoughTheLimitHasGrownMeanwhile)
{
    putFiles("/nas", 9);
    preferences.setMaximumItemsPerFolder(2);
    open(entry);
    preferences.setMaximumItemsPerFolder(50);
    turn();
    EXPECT_EQ(linesOf(*entry.submenu), (Lines { "f0", "f0", "---", "(8 more items…)" }));
}

TEST_F(RemoteFolder, AMenuThatIsGoneIsNotFilled)
{
    open(entry);
    entry = MenuEntry();
    turn();
    time.advance(seconds(20));
    EXPECT_TRUE(listedFolders.told.empty());
}

TEST_F(RemoteFolder, LocalFoldersOpenMeanwhile)
{
    putFiles("/f", 1);
    open(entry);
    EXPECT_EQ(linesOf(*open(folderEntry("/f"))), Lines { "f0" });
}

TEST_F(DynamicSubmenuTest, AListComesFromItsProvider)
{
    lists.answer = entriesNamed(2);
    dynamicLists.providers[Kind::mountedVolumes] = &lists;
    auto const entry = listEntry(Kind::mountedVolumes, 4);
    auto const refills = countRefills(*entry.submenu);
    EXPECT_EQ(linesOf(*open(entry)), (Lines { "E1", "E2" }));
    EXPECT_EQ(lists.questions.at(0).kind, Kind::mountedVolumes);
    EXPECT_EQ(lists.questions.at(0).depth, 4);
    EXPECT_EQ(*refills, 0) << "filled before it is shown";
    lists.answer.clear();
    EXPECT_EQ(linesOf(*open(entry)), Lines { "(No Items)" });
}

TEST_F(DynamicSubmenuTest, AListThatTakesTimeFillsItsMenuLater)
{
    dynamicLists.providers[Kind::runningApplications] = &lists;
    lists.answersAtOnce = false;
    auto entry = listEntry(Kind::runningApplications);
    auto const refills = countRefills(*entry.submenu);
    EXPECT_EQ(linesOf(*open(entry)), Lines { "(Loading…)" });
    lists.questions.at(0).done(entriesNamed(1));
    EXPECT_EQ(linesOf(*entry.submenu), Lines { "E1" });
    EXPECT_EQ(*refills, 1);

    open(entry);
    entry = MenuEntry();
    lists.questions.at(1).done(entriesNamed(1)); // must not touch what is gone
}

TEST_F(DynamicSubmenuTest, AnItemsFolderThatIsSilentSaysSo)
{
    dynamicLists.providers[Kind::zantheVellItems] = &lists;
    lists.answersAtOnce = false;
    auto const entry = listEntry(Kind::zantheVellItems);
    open(entry);
    time.advance(seconds(10));
    EXPECT_EQ(linesOf(*entry.submenu), Lines { "(This folder did not respond.)" });
    lists.questions.at(0).done(entriesNamed(1));
    EXPECT_EQ(linesOf(*entry.submenu), Lines { "E1" });
    time.advance(seconds(20));
    EXPECT_EQ(linesOf(*entry.submenu), Lines { "E1" });
}

struct NamesItself : SubmenuFiller {
    explicit NamesItself(std::string text)
        : title(std::move(text))
    {
    }
    void fill(Menu& menu) override
    {
        menu.entries.clear();
        menu.entries.push_back(MenuEntry::disabled(title));
    }
    std::string title;
};

TEST_F(DynamicSubmenuTest, ShortcutsAndLocationsFillThemselves)
{
    NamesItself shortcuts("No Shortcuts");
    NamesItself locations("No Locations");
    dynamicLists.shortcuts = &shortcuts;
    dynamicLists.locations = &locations;
    EXPECT_EQ(linesOf(*open(listEntry(Kind::shortcuts))), Lines { "(No Shortcuts)" });
    EXPECT_EQ(linesOf(*open(listEntry(Kind::location))), Lines { "(No Locations)" });
}

TEST_F(DynamicSubmenuTest, AKindThatNobodyListsHasNoItems)
{
    for (auto const kind : { Kind::zantheVellItems, Kind::mountedVolumes, Kind::recentServers, Kind::runningApplications, Kind::ipAddress, Kind::systemPrefs,
             Kind::shortcuts, Kind::location })
        EXPECT_EQ(linesOf(*open(listEntry(kind))), Lines { "(No Items)" }) << MenuItemKind(kind).rawValue();
}

struct RecentItems : DynamicSubmenuTest {
    Lines openLines(Kind::Case kind) { return linesOf(*open(listEntry(kind))); }
    void answer(std::size_t search, int count)
    {
        std::vector<RecentFile> found;
        for (int i = 1; i <= count; ++i)
            found.push_back({ "/E" + std::to_string(i) });
        recentFiles.answer(search, found);
    }
};

TEST_F(RecentItems, EachKindAsksForItsScope)
{
    std::pair<Kind::Case, RecentItemsScope> const rows[] = {
        { Kind::recentItems, RecentItemsScope::all },
        { Kind::recentApps, RecentItemsScope::applications },
        { Kind::recentFolders, RecentItemsScope::folders },
        { Kind::recentDocs, RecentItemsScope::documents },
    };
    preferences.setRecentItemsLimit(7);
    for (auto const& [kind, scope] : rows) {
        openLines(kind);
        EXPECT_EQ(recentFiles.searches.back()->question.scope, scope);
        EXPECT_EQ(recentFiles.searches.back()->question.limit, 7U);
    }
}

TEST_F(RecentItems, LoadOnceThenShowAtOnceWhatIsKnown)
{
    auto const entry = listEntry(Kind::recentDocs);
    EXPECT_EQ(linesOf(*open(entry)), Lines { "(Loading…)" });
    auto const refills = countRefills(*entry.submenu);
    answer(0, 2);
    EXPECT_EQ(linesOf(*entry.submenu), (Lines { "E1", "E2" }));
    EXPECT_EQ(*refills, 1);
    time.advance(seconds(60));
    EXPECT_EQ(openLines(Kind::recentDocs), (Lines { "E1", "E2" })) << "old as it is";
    answer(1, 1);
    EXPECT_EQ(openLines(Kind::recentDocs), Lines { "E1" }) << "the fresh list at the next opening";
}

TEST_F(RecentItems, AreAskedForAtMostEveryFiveSeconds)
{
    openLines(Kind::recentApps);
    answer(0, 1);
    time.advance(std::chrono::milliseconds(4999));
    openLines(Kind::recentApps);
    EXPECT_EQ(recentFiles.searches.size(), 1U);
    time.advance(std::chrono::milliseconds(1));
    openLines(Kind::recentApps);
    EXPECT_EQ(recentFiles.searches.size(), 2U);
    openLines(Kind::recentApps);
    EXPECT_EQ(recentFiles.searches.size(), 2U) << "one is still running";
}

TEST_F(RecentItems, AnEmptyListIsKnownToo)
{
    openLines(Kind::recentApps);
    answer(0, 0);
    EXPECT_EQ(openLines(Kind::recentApps), Lines { "(No Items)" });
    EXPECT_EQ(recentFiles.searches.size(), 1U);
}

TEST_F(RecentItems, AnotherLimitAsksAgainAtOnce)
{
    openLines(Kind::recentApps);
    answer(0, 1);
    preferences.setRecentItemsLimit(50);
    openLines(Kind::recentApps);
    ASSERT_EQ(recentFiles.searches.size(), 2U);
    EXPECT_EQ(recentFiles.searches[1]->question.limit, 50U);
}

TEST_F(RecentItems, ALimitChangedWhileAskingIsNotTakenForTheNewOne)
{
    openLines(Kind::recentApps);
    preferences.setRecentItemsLimit(50);
    answer(0, 1);
    openLines(Kind::recentApps);
    EXPECT_EQ(recentFiles.searches.size(), 2U);
}

TEST_F(RecentItems, ReopenedWhileLoadingShareTheOneQuery)
{
    auto const first = listEntry(Kind::recentApps);
    auto const second = listEntry(Kind::recentApps);
    open(first);
    EXPECT_EQ(linesOf(*open(second)), Lines { "(Loading…)" });
    EXPECT_EQ(recentFiles.searches.size(), 1U);
    answer(0, 1);
    EXPECT_EQ(linesOf(*first.submenu), Lines { "E1" });
    EXPECT_EQ(linesOf(*second.submenu), Lines { "E1" });
}

TEST_F(RecentItems, AMenuThatIsGoneIsNotFilledButTheListIsKept)
{
    openLines(Kind::recentApps);
    answer(0, 1);
    EXPECT_EQ(openLines(Kind::recentApps), Lines { "E1" });
}

TEST_F(RecentItems, ScopesAreIndependent)
{
    openLines(Kind::recentApps);
    answer(0, 1);
    EXPECT_EQ(openLines(Kind::recentDocs), Lines { "(Loading…)" });
    EXPECT_EQ(recentFiles.searches.size(), 2U);
}

} // namespace
} // namespace zv
