#include "app/menubar/StatusItemController.h"

#include "app/menu/MenuCommands.h"
#include "app/menu/MenuIcon.h"
#include "app/model/MenuStore.h"
#include "app/model/Preferences.h"
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeFiles.h"
#include "tests/fakes/FakeMenuBar.h"
#include "tests/fakes/FakeTime.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using Log = std::vector<std::string>;

/// Everything around the controller writes what it was asked into one log.
struct Neighbours : MenuFiller, ListsRefresher, MenuIcons, MenuCommands, HotkeyPasses, KeyboardLayoutChanges, FileHotkeyPrescan {
    Log log;
    std::function<void(Uuid const&)> itemHotkey;
    std::function<void(Url const&)> fileHotkey;
    std::function<void()> layoutChanged;

    void fill(Menu& menu, std::vector<MenuItem> const& items, OptionKey option) override
    {
        log.emplace_back(option == OptionKey::held ? "fill with option" : "fill");
        menu.entries.clear();
        for (auto const& item : items)
            menu.entries.push_back(MenuEntry::disabled(item.displayTitle()));
    }
    void refreshLists(std::vector<MenuItem> const&) override { log.emplace_back("refresh"); }
    ImageRef iconForKind(MenuItemKind const&) override { return {}; }
    ImageRef iconForFile(Url const&) override { return {}; }
    void emptyCache() override { log.emplace_back("empty icons"); }
    bool perform(MenuItem const& item) override
    {
        log.push_back("perform " + item.displayTitle());
        return true;
    }
    void open(Url const& url) override { log.push_back("open " + url.path()); }
    void open(DynamicEntry const&) override { }
    void openSettingsWindow() override { }
    void terminate() override { }
    bool canCheckForUpdates() const override { return false; }
    void checkForUpdates() override { }
    void setTriggerHandlers(std::function<void(Uuid const&)> item, std::function<void(Url const&)> file) override
    {
        itemHotkey = std::move(item);
        fileHotkey = std::move(file);
        log.emplace_back("handlers");
    }
    void setMenuItems(std::vector<MenuItem> const& items) override { log.push_back("items " + std::to_string(items.size())); }
    void reregister() override { log.emplace_back("reregister"); }
    std::shared_ptr<void> listen(std::function<void()> onChange) override
    {
        layoutChanged = std::move(onChange);
        return std::shared_ptr<void>(this, [](void* self) { static_cast<Neighbours*>(self)->layoutChanged = nullptr; });
    }
    std::vector<Url> foldersToScan(std::vector<MenuItem> const&) const override { return { Url::fromPath("/a"), Url::fromPath("/b") }; }
    void scan(std::vector<Url> folders, std::int64_t depth, HiddenFiles hiddenFiles) override
    {
        log.push_back("scan " + std::to_string(folders.size()) + " to " + std::to_string(depth) + (hiddenFiles == HiddenFiles::included ? " with hidden" : ""));
    }
};

MenuItem named(MenuItemKind kind, std::string title)
{
    auto item = MenuItem::ofKind(kind);
    item.title = std::move(title);
    return item;
}

class StatusItemControllerTest : public testing::Test {
protected:
    std::unique_ptr<StatusItemController> make()
    {
        return std::make_unique<StatusItemController>(StatusItemController::Services { store, preferences, around, around, around, around, around, around,
            around, modifiers, statusBar, menuHost, workspace, time, [this](std::function<void(Point)> showMenu) {
                overlayClick = std::move(showMenu);
                return std::make_shared<char>();
            } });
    }
    Log takeLog() { return std::exchange(around.log, {}); }

    fakes::FakeUserDefaults defaults;
    fakes::FakeFileSystem files;
    fakes::FakeBookmarks bookmarks { files };
    fakes::FakeResources resources;
    Preferences preferences { defaults };
    MenuStore store { { defaults, resources, { files, bookmarks } } };
    Neighbours around;
    fakes::FakeModifierKeys modifiers;
    fakes::FakeStatusBar statusBar;
    fakes::FakeMenuHost menuHost;
    fakes::FakeWorkspace workspace;
    fakes::FakeTime time;
    std::function<void(Point)> overlayClick;
};

TEST_F(StatusItemControllerTest, StartsWithTheHotkeysRegisteredAndTheIconShown)
{
    store.replaceAll({ named(MenuItemKind::sleep, "Sleep"), named(MenuItemKind::restart, "Restart") });
    auto const controller = make();
    EXPECT_EQ(takeLog(), (Log { "handlers", "items 2", "reregister" }));
    ASSERT_EQ(statusBar.present, 1);
    EXPECT_EQ(statusBar.looks[0], (StatusItemLook { "laurel.leading", "Zanthe Vell" }));
    EXPECT_EQ(statusBar.menus[0], controller->menu());
    EXPECT_FALSE(controller->menu()->autoenablesItems);
    EXPECT_FALSE(controller->overlayMenu()->autoenablesItems);
}

TEST_F(StatusItemControllerTest, TheIconComesAndGoesWithThePreferenceAfterItWasStored)
{
    preferences.setShowsStatusItem(false);
    auto const controller = make();
    EXPECT_EQ(statusBar.added, 0);

    for (int round = 1; round <= 3; ++round) {
        preferences.setShowsStatusItem(true);
        EXPECT_EQ(statusBar.present, 0) << "acts only in a later turn of the loop";
        time.runTasks();
        EXPECT_EQ(statusBar.present, 1);
        EXPECT_EQ(statusBar.added, round) << "off and on again makes a new one";
        preferences.setShowsStatusItem(false);
        time.runTasks();
        EXPECT_EQ(statusBar.present, 0);
    }
}

TEST_F(StatusItemControllerTest, AShownIconIsNeverMadeAnew)
{
    auto const controller = make();
    controller->updateStatusItem();
    preferences.setShowsStatusItem(false);
    preferences.setShowsStatusItem(true);
    time.runTasks();
    EXPECT_EQ(statusBar.added, 1);
}

TEST_F(StatusItemControllerTest, EveryOpeningRefreshesTheCachesAndRebuildsTheMenu)
{
    auto const controller = make();
    store.replaceAll({ named(MenuItemKind::sleep, "Sleep") });
    takeLog();
    controller->menu()->needsUpdate();
    EXPECT_EQ(takeLog(), (Log { "refresh", "fill" }));
    store.replaceAll({ named(MenuItemKind::sleep, "Sleep"), named(MenuItemKind::restart, "Restart") });
    overlayClick({ 10, 700 });
    EXPECT_EQ(takeLog(), (Log { "refresh", "fill" }));
    ASSERT_EQ(menuHost.shown.size(), 1U);
    EXPECT_EQ(menuHost.shown[0].first, controller->overlayMenu());
    EXPECT_EQ(menuHost.shown[0].second, (Point { 10, 700 }));
    EXPECT_EQ(controller->overlayMenu()->entries.size(), 2U);
    EXPECT_EQ(controller->menu()->entries.size(), 1U) << "each menu is filled for itself";
}

TEST_F(StatusItemControllerTest, OptionCountsWhenTheMenuOpensAndOnlyThen)
{
    auto const controller = make();
    takeLog();
    modifiers.held = ModifierMask::option | ModifierMask::shift;
    controller->menu()->needsUpdate();
    modifiers.held = ModifierMask::none;
    EXPECT_EQ(takeLog(), (Log { "refresh", "fill with option" }));
    modifiers.held = ModifierMask::command;
    controller->menu()->needsUpdate();
    EXPECT_EQ(takeLog(), (Log { "refresh", "fill" }));
}

TEST_F(StatusItemControllerTest, ClosingAMenuEmptiesTheIconCache)
{
    auto const controller = make();
    takeLog();
    controller->menu()->didClose();
    controller->overlayMenu()->didClose();
    EXPECT_EQ(takeLog(), (Log { "empty icons", "empty icons" }));
}

TEST_F(StatusItemControllerTest, AHotkeyPerformsItsItemWhereverItIsAndOpensItsFile)
{
    auto const controller = make();
    auto group = named(MenuItemKind::submenu, "Group");
    group.children.push_back(named(MenuItemKind::sleep, "Sleep"));
    store.replaceAll({ group });
    takeLog();
    around.itemHotkey(group.children[0].id);
    around.fileHotkey(Url::fromPath("/a/b.txt"));
    EXPECT_EQ(takeLog(), (Log { "perform Sleep" }));
    EXPECT_EQ(workspace.log, (Log { "open file:///a/b.txt" }));
    store.replaceAll({});
    takeLog();
    around.itemHotkey(group.children[0].id);
    EXPECT_EQ(takeLog(), Log {}) << "a deleted item's hotkey does nothing";
}

TEST_F(StatusItemControllerTest, AnotherKeyboardLayoutRegistersTheItemsOfNow)
{
    auto controller = make();
    store.replaceAll({ named(MenuItemKind::sleep, "Sleep") });
    takeLog();
    around.layoutChanged();
    around.layoutChanged();
    EXPECT_EQ(takeLog(), (Log { "items 1", "reregister", "items 1", "reregister" }));
    controller.reset();
    EXPECT_FALSE(around.layoutChanged);
}

TEST_F(StatusItemControllerTest, FileNamesAreScannedAtStartAndAtEveryChangeOfTheDepth)
{
    auto const controller = make();
    store.replaceAll({});
    EXPECT_EQ(takeLog().size(), 3U) << "no scan: it is off by default";
    preferences.setHotkeyPrescanDepth(2);
    EXPECT_EQ(takeLog(), Log {});
    time.runTasks();
    EXPECT_EQ(takeLog(), (Log { "scan 2 to 2" }));
    preferences.setShowHiddenFiles(true);
    preferences.setHotkeyPrescanDepth(3);
    time.runTasks();
    EXPECT_EQ(takeLog(), (Log { "scan 2 to 3 with hidden" })) << "hidden files alone start no scan";
    preferences.setHotkeyPrescanDepth(0);
    time.runTasks();
    EXPECT_EQ(takeLog(), Log {});
    preferences.setHotkeyPrescanDepth(1);
    auto const another = make();
    EXPECT_EQ(takeLog(), (Log { "handlers", "items 0", "reregister", "scan 2 to 1 with hidden" }));
}

TEST_F(StatusItemControllerTest, NothingArrivesAfterItsEnd)
{
    auto controller = make();
    auto const menu = controller->menu();
    takeLog();
    preferences.setShowsStatusItem(false);
    preferences.setHotkeyPrescanDepth(1);
    controller.reset();
    time.runTasks();
    overlayClick({});
    around.itemHotkey(Uuid::random());
    menu->needsUpdate();
    EXPECT_EQ(takeLog(), Log {});
    EXPECT_EQ(statusBar.present, 0);
}

} // namespace
} // namespace zv
