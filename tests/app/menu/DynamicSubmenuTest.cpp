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

/// Entries spelled as "a-b": a letter for an entry titled so, "-" for a separator.
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
    /// Counts the refills that a mirror would be told of.
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
        { entriesNamed(3), 2, { "E1", "E2", "---", "(1 more item…)" }, "the rest is counted" },
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

struct TheApplications : ApplicationFolders {
    bool contains(Url const& folder) const override { return folder.path() == "/apps"; }
    void list(std::function<void(std::vector<InstalledApplication>)> done) override { done(found); }
    std::vector<InstalledApplication> found;
};

TEST_F(DynamicSubmenuTest, AFolderOfApplicationsShowsAllThatAreInstalledByCategoryWhereTheyAreMany)
{
    TheApplications applications;
    sources.applications = &applications;
    preferences.setShowIcons(true);
    putFiles("/apps", 1);
    auto const entry = folderEntry("/apps");
    EXPECT_EQ(linesOf(*open(entry)), Lines { "(No Applications)" });
    applications.found = { { "Zed", Url::fromPath("/a/zed.desktop"), ApplicationCategory::office }, { "draw", Url::fromPath("/b/draw.desktop") } };
    EXPECT_EQ(linesOf(*open(entry)), (Lines { "draw", "Zed" }));
    for (int i = 1; i <= 23; ++i)
        applications.found.push_back({ "Game " + std::to_string(i), Url::fromPath("/g"), ApplicationCategory::games });
    auto const menu = open(entry);
    EXPECT_EQ(linesOf(*menu), (Lines { "Games >", "Office >", "Other >" }));
    EXPECT_EQ(linesOf(*menu->entries[0].submenu).at(1), "Game 2");
    EXPECT_EQ(iconOf(menu->entries[0]), "category:3");
    menu->entries[1].submenu->entries[0].target->invoke();
    EXPECT_EQ(commands.log, Lines { "open entry file:///a/zed.desktop" });
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
    open(entry);
    turn();
    EXPECT_EQ(reader->readings["/nas"], 2) << "and it is listed again when it opens again";
    EXPECT_EQ(linesOf(*entry.submenu), Lines { "f0" });
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

TEST_F(DynamicSubmenuTest, AListAtHandIsShownAtOnce)
{
    auto& list = listFor(Kind::mountedVolumes);
    list.answer = entriesNamed(2);
    list.whenSilent = "Silent.";
    auto const entry = listEntry(Kind::mountedVolumes);
    auto const refills = countRefills(*entry.submenu);
    open(entry);
    time.advance(seconds(20));
    EXPECT_EQ(linesOf(*entry.submenu), (Lines { "E1", "E2" })) << "it was not silent";
    EXPECT_EQ(*refills, 0) << "filled before it is shown";
    list.answer = {};
    EXPECT_EQ(linesOf(*open(entry)), Lines { "(Empty List)" });
}

TEST_F(DynamicSubmenuTest, AListsFoldersBecomeSubmenusWhileDepthLasts)
{
    auto folder = entryTitled("Folder");
    folder.isDirectory = true;
    listFor(Kind::mountedVolumes).answer = std::vector { folder };
    EXPECT_EQ(linesOf(*open(listEntry(Kind::mountedVolumes, 1))), Lines { "Folder >" });
    EXPECT_EQ(linesOf(*open(listEntry(Kind::mountedVolumes, 0))), Lines { "Folder" });
}

TEST_F(DynamicSubmenuTest, ItemsThatAListMadeAreShownAsTheyAre)
{
    auto& list = listFor(Kind::location);
    list.answer = std::vector { MenuEntry::disabled("One"), MenuEntry::separator() };
    preferences.setMaximumItemsPerFolder(1);
    EXPECT_EQ(linesOf(*open(listEntry(Kind::location))), (Lines { "(One)", "---" }));
    list.answer = std::vector<MenuEntry> {};
    EXPECT_EQ(linesOf(*open(listEntry(Kind::location))), Lines { "(Empty List)" });
}

struct SlowList : DynamicSubmenuTest {
    SlowList() { list.answersAtOnce = false; }
    void answer(std::size_t question, int count) { list.questions.at(question)(entriesNamed(count)); }
    fakes::FakeList& list = listFor(Kind::runningApplications);
    MenuEntry entry = listEntry(Kind::runningApplications);
};

TEST_F(SlowList, FillsItsMenuLater)
{
    auto const refills = countRefills(*entry.submenu);
    EXPECT_EQ(linesOf(*open(entry)), Lines { "(Loading…)" });
    time.advance(seconds(20));
    EXPECT_EQ(linesOf(*entry.submenu), Lines { "(Loading…)" }) << "it is waited for";
    answer(0, 1);
    EXPECT_EQ(linesOf(*entry.submenu), Lines { "E1" });
    EXPECT_EQ(*refills, 1);
}

TEST_F(SlowList, IsNotShownWhereTheMenuIsGoneOrWasOpenedAgain)
{
    open(entry);
    open(entry);
    answer(0, 1);
    EXPECT_EQ(linesOf(*entry.submenu), Lines { "(Loading…)" }) << "the answer to an earlier opening";
    answer(1, 2);
    EXPECT_EQ(linesOf(*entry.submenu), (Lines { "E1", "E2" }));
    auto const shown = open(entry); // a window has it still
    entry = MenuEntry();
    answer(2, 1);
    EXPECT_EQ(linesOf(*shown), Lines { "(Loading…)" }) << "what fills it is gone";
}

TEST_F(SlowList, ThatMayBeSilentSaysSoAndIsShownWhenItComes)
{
    list.whenSilent = "Silent.";
    open(entry);
    time.advance(std::chrono::milliseconds(9999));
    EXPECT_EQ(linesOf(*entry.submenu), Lines { "(Loading…)" });
    time.advance(std::chrono::milliseconds(1));
    EXPECT_EQ(linesOf(*entry.submenu), Lines { "(Silent.)" });
    answer(0, 1);
    EXPECT_EQ(linesOf(*entry.submenu), Lines { "E1" });
    time.advance(seconds(20));
    EXPECT_EQ(linesOf(*entry.submenu), Lines { "E1" });
}

TEST_F(DynamicSubmenuTest, AKindWithoutAListHasNoItems) { EXPECT_EQ(linesOf(*open(listEntry(Kind::sleep))), Lines { "(No Items)" }); }

} // namespace
} // namespace zv
