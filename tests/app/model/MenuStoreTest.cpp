#include "app/model/MenuStore.h"

#include "base/Log.h"
#include "tests/app/model/ModelFixture.h"

#include <algorithm>

namespace zv {

namespace {

using Titles = std::vector<std::string>;

struct Sink : MenuItemsSink {
    void menuItemsChanged(std::vector<MenuItem> const& items) override { received.push_back(titlesOf(items)); }
    std::vector<Titles> received;
};

struct BackupSink : MenuBackupSink {
    bool isDue() const override { return due; }
    Result<void> menuWillBeOverwritten(PropertyList const& stored, bool isReadable) override
    {
        kept.emplace_back(stored, isReadable);
        return outcome;
    }
    bool due = true;
    Result<void> outcome;
    std::vector<std::pair<PropertyList, bool>> kept;
};

std::vector<MenuItem> threeItems() { return { titled("a"), titled("b"), titled("c") }; }

struct MenuStoreTest : ModelFixture {
    void storeMenu(std::vector<MenuItem> const& items) { defaults.stored.set("Menu", toPropertyList(items)); }
    MenuStore& store()
    {
        if (!m_store)
            m_store.emplace(MenuStore::Services { defaults, resources, services });
        return *m_store;
    }
    Titles titles() { return titlesOf(store().items()); }
    Titles storedTitles() { return titlesOf(menuItemsFromPropertyList(*defaults.stored.find("Menu")).value()); }

private:
    std::optional<MenuStore> m_store;
};

std::vector<MenuItemKind> kindsOf(std::vector<MenuItem> const& items)
{
    std::vector<MenuItemKind> kinds;
    for (auto const& item : items)
        kinds.push_back(item.kind);
    return kinds;
}

std::vector<MenuItemKind> const builtInKinds { MenuItemKind::aboutThisMac, MenuItemKind::separator, MenuItemKind::simpleSystemPrefs,
    MenuItemKind::customizeZantheVell, MenuItemKind::separator, MenuItemKind::sleep, MenuItemKind::restart, MenuItemKind::shutdown };

} // namespace

TEST_F(MenuStoreTest, LoadsWhatIsStored)
{
    auto const items = std::vector<MenuItem> { fullItem(), titled("b") };
    storeMenu(items);
    auto expected = items;
    EXPECT_EQ(store().items(), expected);
    EXPECT_FALSE(store().loadFailure());
    EXPECT_TRUE(defaults.writes.empty()) << "loading saves nothing";
}

TEST_F(MenuStoreTest, AStoredEmptyMenuStaysEmpty)
{
    storeMenu({});
    EXPECT_TRUE(store().items().empty());
}

TEST_F(MenuStoreTest, WithoutAStoredMenuTheResourceIsTheMenu)
{
    PropertyListArray const records { PropertyListDictionary { { "Kind", "Sleep" }, { "Title", "Nap" } }, PropertyListDictionary { { "Title", "no kind" } } };
    addResource("Default Apple Menu.plist", PropertyListDictionary { { "MenuDesc", records } });
    EXPECT_EQ(titles(), Titles { "Nap" });
    EXPECT_TRUE(defaults.stored.empty()) << "it is saved with the first change";
    store().insert({ titled("b") });
    EXPECT_EQ(storedTitles(), (Titles { "Nap", "b" }));
}

TEST_F(MenuStoreTest, AResourceOfNoUseGivesTheEightBuiltInItems)
{
    PropertyListDictionary const sleep { { "Kind", "Sleep" } };
    PropertyList const useless[] = { "text", PropertyListArray { sleep }, PropertyListDictionary {}, PropertyListDictionary { { "MenuDesc", "text" } },
        PropertyListDictionary { { "MenuDesc", PropertyListArray {} } }, PropertyListDictionary { { "MenuDesc", PropertyListArray { sleep, "text" } } },
        PropertyListDictionary { { "MenuDesc", PropertyListArray { PropertyListDictionary {} } } } };
    EXPECT_EQ(kindsOf(store().items()), builtInKinds) << "missing";
    for (auto const& resource : useless) {
        addResource("Default Apple Menu.plist", resource);
        EXPECT_EQ(kindsOf(store().defaultMenu()), builtInKinds);
    }
    resources.files["Default Apple Menu.plist"] = fakes::bytesOf("garbage");
    auto const menu = store().defaultMenu();
    EXPECT_EQ(kindsOf(menu), builtInKinds);
    for (auto const& item : menu) {
        auto plain = MenuItem::ofKind(item.kind);
        plain.id = item.id;
        EXPECT_EQ(item, plain);
    }
}

TEST_F(MenuStoreTest, AnUnreadableStoredMenuStaysUntilTheFirstChange)
{
    PropertyList const unreadable[] = { "no array", PropertyListDictionary {}, PropertyListArray { PropertyListDictionary { { "id", "x" } } } };
    for (auto const& value : unreadable) {
        defaults.stored.set("Menu", value);
        BackupSink backups;
        backups.due = false;
        MenuStore store({ defaults, resources, services });
        store.setBackupSink(&backups);
        EXPECT_TRUE(store.loadFailure());
        EXPECT_EQ(kindsOf(store.items()), builtInKinds);
        EXPECT_EQ(*defaults.stored.find("Menu"), value);
        store.insert({ titled("a") });
        store.insert({ titled("b") });
        ASSERT_EQ(backups.kept.size(), 1U) << "kept though no backup is due, and once";
        EXPECT_EQ(backups.kept[0], std::pair(value, false));
        EXPECT_FALSE(store.loadFailure());
    }
}

TEST_F(MenuStoreTest, InsertsWithinTheListWhateverThePosition)
{
    struct Row {
        std::optional<std::ptrdiff_t> position;
        Titles expected;
    };
    Row const rows[] = {
        { std::nullopt, { "a", "b", "c", "x", "y" } },
        { 99, { "a", "b", "c", "x", "y" } },
        { -1, { "x", "y", "a", "b", "c" } },
        { 0, { "x", "y", "a", "b", "c" } },
        { 2, { "a", "b", "x", "y", "c" } },
    };
    for (auto const& row : rows) {
        storeMenu(threeItems());
        MenuStore store({ defaults, resources, services });
        store.insert({ titled("x"), titled("y") }, row.position);
        EXPECT_EQ(titlesOf(store.items()), row.expected);
        EXPECT_EQ(storedTitles(), row.expected);
    }
}

TEST_F(MenuStoreTest, MovesItemsInTheirOrder)
{
    struct Row {
        std::set<std::size_t> offsets;
        std::size_t destination;
        Titles expected;
    };
    Row const rows[] = {
        { { 0 }, 2, { "b", "a", "c" } },
        { { 0 }, 3, { "b", "c", "a" } },
        { { 2 }, 0, { "c", "a", "b" } },
        { { 0, 2 }, 2, { "b", "a", "c" } },
        { { 0, 2 }, 1, { "a", "c", "b" } },
        { { 1 }, 1, { "a", "b", "c" } },
        { { 7 }, 0, { "a", "b", "c" } },
        { { 0 }, 99, { "b", "c", "a" } },
        { {}, 1, { "a", "b", "c" } },
    };
    for (auto const& row : rows) {
        storeMenu(threeItems());
        MenuStore store({ defaults, resources, services });
        store.move(row.offsets, row.destination);
        EXPECT_EQ(titlesOf(store.items()), row.expected);
    }
}

TEST_F(MenuStoreTest, RemovesAndReplacesAtTheTopOnly)
{
    auto items = std::vector<MenuItem> { group("g", { titled("inner") }), titled("b") };
    storeMenu(items);
    auto const inner = items[0].children[0].id;
    store().remove({ inner, Uuid() });
    store().replace(inner, titled("new"));
    EXPECT_EQ(store().items(), items);
    store().replace(items[1].id, titled("new"));
    EXPECT_EQ(titles(), (Titles { "g", "new" }));
    store().remove({ items[0].id });
    EXPECT_EQ(storedTitles(), Titles { "new" });
    store().replaceAll(threeItems());
    EXPECT_EQ(storedTitles(), (Titles { "a", "b", "c" }));
}

TEST_F(MenuStoreTest, TellsTheSinkAfterEachChange)
{
    storeMenu({});
    Sink sink;
    store().setItemsSink(&sink);
    store().insert({ titled("a") });
    store().insert({ titled("b") }, 0);
    EXPECT_EQ(sink.received, (std::vector<Titles> { { "a" }, { "b", "a" } }));
}

TEST_F(MenuStoreTest, RefreshesLocationsAtEveryDepthAndCollectsWhatIsMissing)
{
    files.addPackage("/Applications/Utilities/X.app");
    auto moved = titled("moved", MenuItemKind::fsObject);
    moved.location = ItemLocation { std::nullopt, "/Applications/X.app", "X" };
    auto missing = titled("missing", MenuItemKind::fsObject);
    missing.location = ItemLocation { std::nullopt, "/gone", "gone" };
    storeMenu({ group("g", { moved, missing }), missing });
    EXPECT_EQ(store().unresolvedItemIDs(), std::set<Uuid> { missing.id });
    EXPECT_EQ(store().items()[0].children[0].location->path, "/Applications/Utilities/X.app");
    EXPECT_TRUE(defaults.writes.empty());
    files.addFile("/gone");
    store().insert({});
    EXPECT_TRUE(store().unresolvedItemIDs().empty());
    auto const stored = menuItemsFromPropertyList(*defaults.stored.find("Menu")).value();
    EXPECT_EQ(stored[0].children[0].location->path, "/Applications/Utilities/X.app") << "refreshed before it is saved";
}

TEST_F(MenuStoreTest, StoresAndNamesWhatDiffersAfterEachChange)
{
    auto lost = titled("lost", MenuItemKind::fsObject);
    lost.location = ItemLocation { std::nullopt, "/Applications/X.app", "X" };
    storeMenu({ titled("a"), group("g", { lost }), titled("b"), titled("c") });
    struct Row {
        char const* what;
        std::function<MenuStretch()> change;
        MenuStretch differing;
    };
    auto const put = [&](std::size_t first, std::size_t count, std::vector<MenuItem> items) { return store().replaceStretch(first, count, std::move(items)); };
    Row const rows[] = {
        { "the first save", [&] { return put(0, 1, { titled("A") }); }, { 0, 1, 1 } },
        { "one for one", [&] { return put(2, 1, { titled("B") }); }, { 2, 1, 1 } },
        { "more",
            [&] {
                return put(1, 0, { titled("x"), titled("y") });
            },
            { 1, 0, 2 } },
        { "fewer", [&] { return put(0, 2, { titled("z") }); }, { 0, 2, 1 } },
        { "a file was found elsewhere",
            [&] {
                files.addPackage("/Applications/Utilities/X.app");
                return put(4, 1, { titled("d"), titled("e") });
            },
            { 2, 3, 4 } },
        { "after a move and a removal",
            [&] {
                store().move({ 0, 3 }, 6);
                store().remove({ store().items()[1].id });
                return put(4, 1, { titled("f") });
            },
            { 4, 1, 1 } },
        { "all", [&] { return put(0, 5, {}); }, { 0, 5, 0 } },
    };
    for (auto const& row : rows) {
        EXPECT_EQ(row.change(), row.differing) << row.what;
        EXPECT_EQ(*defaults.stored.find("Menu"), PropertyList(toPropertyList(store().items()))) << row.what;
    }
}

TEST_F(MenuStoreTest, ObserversSeeTheFinishedChange)
{
    storeMenu(threeItems());
    auto missing = titled("missing", MenuItemKind::fsObject);
    missing.location = ItemLocation { std::nullopt, "/gone", "gone" };
    std::vector<std::size_t> seen;
    int unresolvedChanges = 0;
    auto const items = withObservationTracking([&] { (void)store().items(); }, [&] { seen.push_back(store().items().size()); });
    auto const unresolved = withObservationTracking([&] { (void)store().unresolvedItemIDs(); }, [&] { ++unresolvedChanges; });
    store().insert({ titled("d") });
    EXPECT_EQ(seen, std::vector<std::size_t> { 4 });
    EXPECT_EQ(unresolvedChanges, 0) << "the set did not change";
    store().insert({ missing });
    EXPECT_EQ(seen.size(), 1U) << "once";
    EXPECT_EQ(unresolvedChanges, 1);
}

TEST_F(MenuStoreTest, AFailedSaveIsOneLineAndKeepsTheMenuInMemory)
{
    struct Row {
        Result<void> writing;
        std::string title, line;
    };
    Row const rows[] = {
        { {}, "\xFF", "Zanthe Vell: could not save menu to Menu: item 4: \"title\" holds a value that cannot be stored" },
        { Failure { "No space left on device" }, "d", "Zanthe Vell: could not save menu to Menu: No space left on device" },
    };
    for (auto const& row : rows) {
        defaults.writing = {};
        storeMenu(threeItems());
        auto const before = *defaults.stored.find("Menu");
        MenuStore store({ defaults, resources, services });
        Sink sink;
        BackupSink backups;
        backups.outcome = Failure { "No backup either" };
        store.setItemsSink(&sink);
        store.setBackupSink(&backups);
        std::vector<std::string> lines;
        LogCapture const capture([&](std::string const& line) { lines.push_back(line); });
        defaults.writing = row.writing;
        store.insert({ titled(row.title) });
        EXPECT_EQ(lines, std::vector<std::string> { row.line });
        EXPECT_EQ(store.items().size(), 4U);
        EXPECT_EQ(sink.received.size(), 1U) << "the shortcuts follow what is in memory";
        EXPECT_EQ("Zanthe Vell: could not save menu to Menu: " + store.saveProblem().value().substr(29), row.line);
        EXPECT_EQ(*defaults.stored.find("Menu") == before, row.writing.ok()) << "what cannot be encoded is never handed on";
        defaults.writing = {};
        store.remove({ store.items().back().id });
        EXPECT_TRUE(store.lastSave());
        EXPECT_EQ(lines.back(), "Zanthe Vell: No backup either") << "said when it is what went wrong";
    }
}

TEST_F(MenuStoreTest, TitlesAreOneLineWhereverTheyComeFrom)
{
    auto const breaks = "a\x0B"
                        "b\r\nc\xC2\x85\x7F\xEF\xBF\xBF";
    storeMenu({ titled(breaks) });
    EXPECT_EQ(store().items()[0].title, "a b  c   ") << "read";
    store().replaceAll({ titled("d"), group("g", { titled("é\tf") }) });
    store().replace(store().items()[0].id, titled(breaks));
    EXPECT_EQ(titlesOf(store().items()), (Titles { "a b  c   ", "g" })) << "typed";
    EXPECT_EQ(store().items()[1].children[0].title, "é f");
    auto const older = menuItemFromOlderDictionary(PropertyListDictionary { { "Kind", "sleep" }, { "Title", breaks }, { "Own", "\r" } }, services);
    EXPECT_EQ(older->title, "a b  c   ") << "of an older menu";
    EXPECT_EQ(*older->unrecognizedKeys.string("Own"), "\r");
}

TEST_F(MenuStoreTest, AnAdministratorsMenuIsTheDefaultAndALockedOneStays)
{
    storeMenu(threeItems());
    defaults.given.set("Menu", toPropertyList(std::vector { titled("given") }));
    EXPECT_EQ(titles(), (Titles { "a", "b", "c" }));
    EXPECT_EQ(titlesOf(store().defaultMenu()), Titles { "given" });
    defaults.locked = "Menu";
    store().reload();
    store().insert({ titled("d") });
    EXPECT_EQ(titles(), Titles { "given" });
    EXPECT_EQ(store().saveProblem(), "The menu could not be saved: an administrator of this computer has locked it.");
    EXPECT_EQ(storedTitles(), (Titles { "a", "b", "c" }));
}

TEST_F(MenuStoreTest, CanBeSavedWithoutAChange)
{
    auto const menu = titles();
    store().save();
    EXPECT_EQ(storedTitles(), menu);
}

TEST_F(MenuStoreTest, KeepsTheStoredMenuBeforeASaveChangesIt)
{
    BackupSink backups;
    store().setBackupSink(&backups);
    store().replaceAll({ titled("first") });
    EXPECT_TRUE(backups.kept.empty()) << "nothing was stored";
    auto const first = *defaults.stored.find("Menu");
    store().replaceAll({ titled("second") });
    ASSERT_EQ(backups.kept.size(), 1U);
    EXPECT_EQ(backups.kept[0], std::pair(first, true));
    backups.due = false;
    store().replaceAll({ titled("third") });
    EXPECT_EQ(backups.kept.size(), 1U);
    defaults.othersMenu = toPropertyList(std::vector { titled("another process's") });
    store().replaceAll({ titled("imported") }, MenuStore::Keeping::always);
    ASSERT_EQ(backups.kept.size(), 2U) << "replaced as a whole";
    EXPECT_EQ(backups.kept[1].first, defaults.othersMenu) << "what the save overwrites";
}

TEST_F(MenuStoreTest, FollowsWhatAnotherProcessStored)
{
    storeMenu(threeItems());
    Sink sink;
    store().setItemsSink(&sink);
    store().reload();
    EXPECT_TRUE(sink.received.empty()) << "nothing changed";
    storeMenu({ titled("z") });
    store().reload();
    EXPECT_EQ(titles(), Titles { "z" });
    EXPECT_EQ(sink.received, std::vector<Titles> { { "z" } });
    defaults.stored.set("Menu", "unreadable");
    store().reload();
    EXPECT_EQ(titles(), Titles { "z" }) << "a menu in memory is not given up for one that cannot be read";
    EXPECT_TRUE(store().loadFailure());
    EXPECT_TRUE(defaults.writes.empty());
}

TEST_F(MenuStoreTest, TheShippedDefaultMenusAreWholeAndFindTheHomeFolder)
{
    files.addFolder("/home/ada");
    for (std::string const system : { "", " (Linux)" }) {
        addRealResource("Default Apple Menu" + system + ".plist", "Default Apple Menu.plist");
        auto const menu = store().defaultMenu();
        EXPECT_EQ(kindsOf(menu),
            (std::vector<MenuItemKind> { MenuItemKind::aboutThisMac, MenuItemKind::separator, MenuItemKind::systemPrefs, MenuItemKind::appStore,
                MenuItemKind::separator, MenuItemKind::recentItems, MenuItemKind::fsObject, MenuItemKind::fsObject, MenuItemKind::zantheVellItems,
                MenuItemKind::mountedVolumes, MenuItemKind::runningApplications, MenuItemKind::separator, MenuItemKind::forceQuit, MenuItemKind::separator,
                MenuItemKind::sleep, MenuItemKind::restart, MenuItemKind::shutdown, MenuItemKind::separator, MenuItemKind::lockScreen, MenuItemKind::logOut }));
        auto const home = std::find_if(menu.begin(), menu.end(), [](MenuItem const& item) { return item.title == "Home"; });
        ASSERT_NE(home, menu.end());
        EXPECT_EQ(home->location->path, "/home/ada");
        EXPECT_EQ(menu[0].title.has_value(), !system.empty()) << "only Linux has titles of its own";
    }
}

} // namespace zv
