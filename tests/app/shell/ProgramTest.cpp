#include "tests/app/shell/ProgramFixture.h"

namespace zv {
namespace {

using Kind = MenuItemKind;
using Program = ProgramFixture;

constexpr std::uint16_t keyE = 14, keyF = 3, keyX = 7;

TEST_F(Program, APressedKeyPerformsItsItemWhereverItIsAndOpensItsFile)
{
    machine.files.addFile("/a.txt");
    machine.folders->folders["/folder"] = { { "b-*[cmd+opt+X]*.txt" } };
    machine.files.addFolder("/folder");
    auto group = item(Kind::submenu);
    group.children = { item(Kind::sleep, 'e'), fileItem("/a.txt", 'f'), fileItem("/folder") };
    Preferences(machine.defaults).setHotkeyPrescanDepth(1);
    launchWith({ group });
    front.modifierKeys.atEvent = ModifierMask::command | ModifierMask::option; // the shortcut's own: nothing is revealed

    EXPECT_TRUE(press(keyE));
    EXPECT_EQ(machine.sessionEvents.sent, (Lines { "sleep" }));
    EXPECT_TRUE(press(keyF));
    EXPECT_TRUE(press(keyX)) << "file names are scanned at start";
    EXPECT_EQ(machine.workspace.log, (Lines { "open file:///a.txt", "open file:///folder/b-*%5Bcmd+opt+X%5D*.txt" }));

    auto const inMenu = [this](std::uint16_t code) { return menu().targetForKey({ code, "", ModifierMask::command | ModifierMask::option }); };
    ASSERT_NE(inMenu(keyF), nullptr);
    inMenu(keyF)->invoke();
    EXPECT_EQ(machine.workspace.log.back(), "open file:///a.txt") << "so do they while the menu is open";
    EXPECT_EQ(inMenu(keyX), nullptr) << "files only while they are shown";
    front.modifierKeys.atEvent = ModifierMask::command;
    entryIn(*menu().entries.at(0).submenu, "a.txt")->target->invoke();
    EXPECT_EQ(machine.workspace.log.back(), "reveal file:///a.txt") << "chosen by hand, Command counts";

    auto const held = front.hotkeys.held.begin()->first;
    app->delegate().store().replaceAll({});
    front.hotkeys.onPressed(held);
    EXPECT_EQ(machine.sessionEvents.sent.size(), 1U) << "the key of an item that has gone does nothing";
    EXPECT_FALSE(press(keyE));
}

TEST_F(Program, AKeyOpensTheMenuAndAnItemsOwnSubmenu)
{
    machine.files.addFolder("/folder");
    machine.folders->folders["/folder"] = { { "b.txt" } };
    auto group = item(Kind::submenu, 'f');
    group.children = { item(Kind::sleep) };
    launchWith({ group, fileItem("/folder", 'e'), item(Kind::aboutThisMac, 'x') });
    front.modifierKeys.held = ModifierMask::option | ModifierMask::command;
    std::pair<std::uint16_t, char const*> const submenus[] = { { keyF, "Sleep" }, { keyE, "b.txt" } };
    for (auto const& [key, first] : submenus) {
        ASSERT_TRUE(press(key));
        EXPECT_EQ(front.menuHost.byKey.back()->entries.at(0).title, first);
    }

    MenuShortcut other(machine.defaults);
    other.set(item(Kind::sleep, 'x').keyEquivalent);
    machine.defaults.onExternalChange({ std::string(MenuShortcut::defaultsKey) });
    machine.time.runTasks();
    auto const report = app->hotkeyReport();
    EXPECT_NE(report.find(R"("shortcut":"⌥⌘X","menu":true})"), std::string::npos) << report;
    EXPECT_NE(report.find(R"("conflicts":[{"shortcut":"⌥⌘X","item")"), std::string::npos) << "the menu's own comes before an item's: " << report;
    ASSERT_TRUE(press(keyX));
    auto const& opened = *front.menuHost.byKey.back();
    EXPECT_EQ(entryIn(opened, "System Information"), nullptr) << "the shortcut's own Option does not count";
    EXPECT_NE(entryIn(opened, "Customize Zanthe Vell…"), nullptr);
    app->settingsModels().general().sections().at(0).rows.at(3).record(std::nullopt);
    machine.time.runTasks();
    EXPECT_TRUE(press(keyX)) << "now the item has it";
    EXPECT_EQ(front.menuHost.byKey.size(), 3U);
}

TEST_F(Program, FollowsTheKeyboardLayoutAndTheDepthOfTheScan)
{
    machine.files.addFolder("/data/Items");
    machine.folders->folders["/data/Items"] = { { "i-*[cmd+opt+X]*" } };
    launchWith({ item(Kind::sleep, 'e') });
    EXPECT_FALSE(press(keyX)) << "no scan: it is off by default";
    app->delegate().preferences().setHotkeyPrescanDepth(1);
    EXPECT_FALSE(press(keyX)) << "acts only in a later turn of the loop";
    machine.time.runTasks();
    EXPECT_TRUE(press(keyX));

    front.keyboardLayout.set({ { { keyF, "e" } } });
    front.keyboardLayout.onChanged();
    machine.time.runTasks();
    EXPECT_TRUE(press(keyF));
    EXPECT_FALSE(press(keyE));
}

TEST_F(Program, ListsShowTheirOwnAndAskForWhatTakesLongWhenTheMenuOpens)
{
    machine.folders->folders["/data/Items"] = { { "Item" } };
    machine.folders->folders["/data/Backups"] = { { "Backup" } };
    Preferences(machine.defaults).setShowIcons(true);
    launchWith({ item(Kind::zantheVellItems), item(Kind::recentApps) });
    EXPECT_EQ(firstList(), (Lines { "Item" }));
    EXPECT_EQ(menu().entries.at(0).image->name(), "file:/data/Items");
    ASSERT_EQ(machine.recentFiles.searches.size(), 1U);
    EXPECT_EQ(machine.recentFiles.searches[0]->question.scope, RecentItemsScope::applications);
    app->delegate().store().replaceAll({ item(Kind::shortcuts) });
    menu();
    machine.time.runTasks();
    EXPECT_EQ(machine.tools->runs, (Lines { "list|--folder-name|none|--show-identifiers" }));
}

TEST_F(Program, TheIconsMenuAndTheCornersAreFilledForThemselves)
{
    front.menuBars.add(7, { 0, 1056, 1920, 24 });
    Preferences(machine.defaults).setReplacesAppleMenu(true);
    launchWith({ item(Kind::sleep) });
    machine.time.advance(std::chrono::seconds(1));
    ASSERT_EQ(front.statusBar.present, 1);
    EXPECT_EQ(front.statusBar.names[0], "Zanthe Vell");
    ASSERT_FALSE(front.panels.shown().empty());
    front.panels.shown()[0]->content->press();
    machine.time.runTasks();
    ASSERT_EQ(front.menuHost.shown.size(), 1U);
    auto const corner = front.menuHost.shown[0].first;
    EXPECT_NE(corner.get(), &menu());
    EXPECT_NE(entryIn(*corner, "Sleep"), nullptr);
    app->delegate().store().replaceAll({ item(Kind::restart) });
    EXPECT_NE(entryIn(*corner, "Sleep"), nullptr) << "an open menu stays as it is";
    EXPECT_EQ(entry("Sleep"), nullptr);
}

TEST_F(Program, TheIconComesAndGoesWithThePreferenceInALaterTurn)
{
    launch();
    EXPECT_EQ(front.statusBar.present, 1);
    for (int round = 2; round <= 3; ++round) {
        if (round == 2)
            app->delegate().preferences().setShowsStatusItem(false);
        else
            front.statusBar.latest->onRemoved(); // the user has dragged it out
        EXPECT_EQ(front.statusBar.present, 1);
        machine.time.runTasks();
        EXPECT_EQ(front.statusBar.present, 0);
        app->delegate().preferences().setShowsStatusItem(true);
        machine.time.runTasks();
        EXPECT_EQ(front.statusBar.added, round) << "off and on again makes a new one";
    }
    app->delegate().preferences().setShowsStatusItem(false);
    app->delegate().preferences().setShowsStatusItem(true);
    machine.time.runTasks();
    EXPECT_EQ(front.statusBar.added, 3) << "a shown icon is never made anew";
}

TEST_F(Program, OptionCountsWhenTheMenuOpensAndIconsAreForgottenWhenItCloses)
{
    Preferences(machine.defaults).setShowIcons(true);
    launchWith({ item(Kind::aboutThisMac) });
    front.modifierKeys.held = ModifierMask::option | ModifierMask::shift;
    EXPECT_NE(entry("System Information"), nullptr);
    front.modifierKeys = {};
    front.modifierKeys.atEvent = ModifierMask::option;
    EXPECT_EQ(entry("System Information"), nullptr) << "only what is held now counts";

    EXPECT_EQ(front.icons.asked["computer"], 1);
    menu().didClose();
    menu();
    EXPECT_EQ(front.icons.asked["computer"], 2);
}

TEST_F(Program, ItsOwnCommandsReachWhatTheyName)
{
    launch();
    EXPECT_TRUE(choose("Customize Zanthe Vell…"));
    EXPECT_EQ(front.settingsWindow.opened, 1);
    front.updateEngine->canCheck = true;
    front.updateEngine->onCanCheckChanged();
    front.modifierKeys.held = ModifierMask::option;
    EXPECT_TRUE(choose("Check for Updates…"));
    EXPECT_EQ(front.updateEngine->checks, 1);
    EXPECT_EQ(front.settingsWindow.opened, 1);
    EXPECT_TRUE(choose("Quit Zanthe Vell"));
    EXPECT_EQ(front.application.log.back(), "terminate");
}

TEST_F(Program, ReplacedMenusAreKeptAmongTheBackupsAndAddedFilesAmongTheItems)
{
    launchWith({ item(Kind::sleep) });
    app->delegate().store().replaceAll({ item(Kind::restart) });
    machine.files.addFile("/here/a.txt");
    EXPECT_TRUE(app->addFiles({ Url::fromPath("/here/a.txt") }));
    machine.time.runTasks();
    auto const isIn = [this](std::string const& folder) {
        return std::any_of(machine.files.nodes.begin(), machine.files.nodes.end(), [&](auto const& node) { return node.first.starts_with(folder + "/"); });
    };
    EXPECT_TRUE(isIn("/data/Backups"));
    EXPECT_EQ(machine.files.nodes.at("/data/Items/a.txt").target, "/here/a.txt");
    EXPECT_EQ(app->settingsModels().menuFile().backups().size(), 1U) << "and the settings offer what was kept";
}

TEST_F(Program, AMenuThatCouldNotBeSavedSaysSoUntilItIsSaved)
{
    launchWith({ item(Kind::sleep) });
    auto& store = app->delegate().store();
    machine.defaults.writing = Failure { "No space left on device" };
    store.replaceAll({ item(Kind::restart) });
    auto const& said = menu().entries.front();
    EXPECT_EQ(said.title, "The menu could not be saved: No space left on device");
    EXPECT_FALSE(said.enabled);
    machine.defaults.writing = {};
    store.save();
    EXPECT_EQ(menu().entries.front().title, "Restart…");
}

TEST_F(Program, TakesOverWhatOthersWroteIntoTheSettings)
{
    launchWith({ item(Kind::sleep) });
    (void)machine.defaults.setObject(MenuStore::defaultsKey, toPropertyList(std::vector { item(Kind::restart, 'e') }));
    (void)machine.defaults.setObject("ShowStatusItem", false);
    machine.defaults.onExternalChange({ std::string(MenuStore::defaultsKey), "ShowStatusItem" });
    machine.time.runTasks();
    EXPECT_TRUE(press(keyE));
    EXPECT_EQ(front.statusBar.present, 0);
}

TEST_F(Program, BuildsNothingWhenACopyTakesOver)
{
    front.installation.from = RelocationSource::diskImage;
    launchWith({ item(Kind::sleep, 'e') });
    EXPECT_EQ(outcome, AppDelegate::Launch::relocated);
    EXPECT_EQ(machine.workspace.log, (Lines { "launch file:///Applications/Zanthe%20Vell.app" }));
    EXPECT_EQ(front.statusBar.added, 0);
    EXPECT_EQ(front.updateEngine, nullptr);
    EXPECT_EQ(front.hotkeys.passes, 0);
    EXPECT_EQ(front.servicesProvided, 0);
    EXPECT_EQ(app->hotkeyReport(), R"({"registrations":[],"conflicts":[]})");
    EXPECT_EQ(app->addFiles({}).error(), "Zanthe Vell is still starting.");
    app->reopen();
    EXPECT_EQ(front.settingsWindow.opened, 0) << "there is nothing yet but the question whether to move";
}

TEST_F(Program, LaunchesEveryPartOnceAndReopensTheSettings)
{
    (void)machine.defaults.setObject("LaunchCount", std::int64_t { 1 });
    launch();
    EXPECT_EQ(front.servicesProvided, 1);
    ASSERT_NE(front.updateEngine, nullptr);
    EXPECT_EQ(front.updateEngine->starts, 1);
    EXPECT_EQ(front.application.policy, ActivationPolicy::accessory);
    EXPECT_EQ(front.notesWindows.layouts.size(), 1U) << "the notes are due at the second launch";
    EXPECT_EQ(front.settingsWindow.opened, 0);
    app->reopen();
    EXPECT_EQ(front.settingsWindow.opened, 1);
}

TEST_F(Program, OffersMenusToStartFromOnlyToWhoHasNoneYet)
{
    struct Row {
        std::int64_t launches;
        bool hasMenu, isGiven, isLocked;
        int offers;
    };
    PropertyListArray const stored = toPropertyList(std::vector { item(Kind::sleep) });
    for (auto const& row : { Row { 0, false, false, false, 1 }, Row { 1, false, false, false, 0 }, Row { 0, true, false, false, 0 },
             Row { 0, false, true, false, 0 }, Row { 0, false, false, true, 0 } }) {
        auto const key = MenuStore::defaultsKey;
        machine.defaults.stored = { { "LaunchCount", row.launches } };
        machine.defaults.given = {};
        if (row.hasMenu || row.isGiven)
            (row.isGiven ? machine.defaults.given : machine.defaults.stored).set(key, stored);
        machine.defaults.locked = row.isLocked ? key : "";
        front.settingsWindow.galleries = 0;
        launch();
        EXPECT_EQ(front.settingsWindow.galleries, row.offers) << row.launches << row.hasMenu << row.isGiven << row.isLocked;
        app.reset();
    }
}

TEST_F(Program, CountsNoLaunchFromAPlaceThatCannotBeWritten)
{
    (void)machine.defaults.setObject("LaunchCount", std::int64_t { 1 });
    machine.files.readOnly.insert(machine.places.bundle.path());
    launch();
    EXPECT_TRUE(front.notesWindows.layouts.empty());
}

TEST_F(Program, WithoutAnyPresenceSomethingStillLeadsToIt)
{
    Preferences(machine.defaults).setShowsStatusItem(false);
    Preferences(machine.defaults).setReplacesAppleMenu(false);
    launch();
    EXPECT_EQ(front.application.policy, ActivationPolicy::regular) << "a Dock icon";
    EXPECT_EQ(front.settingsWindow.opened, 0);
    app.reset();
    machine.kind = SystemKind::linuxDesktop;
    launch();
    EXPECT_EQ(front.settingsWindow.opened, 1) << "where there is no Dock";
}

TEST_F(Program, TheSettingsShowWhatThisSystemOffers)
{
    machine.kind = SystemKind::linuxDesktop;
    front.showsStatusItems = false;
    front.installedApplications = { { "Editor", Url::fromPath("/apps/editor") } };
    machine.files.addFile("/a.txt");
    machine.files.addFile("/b.txt");
    auto item = fileItem("/a.txt");
    item.keyEquivalent = KeyEquivalentSpec { KeyEquivalentSpec::Trigger::character("E") };
    launchWith({ item });
    auto& models = app->settingsModels();
    std::string notes;
    for (auto const& section : models.general().sections()) {
        for (auto const& row : section.rows)
            notes += row.id + "=" + row.title + "\n";
    }
    EXPECT_NE(notes.find("statusItemProblem=Nothing on this desktop shows status icons."), std::string::npos);
    EXPECT_EQ(notes.find("overlayProblem"), std::string::npos);
    EXPECT_NE(notes.find("=Icon in the panel\n"), std::string::npos);

    models.copyDiagnostics();
    EXPECT_EQ(front.clipboard.texts, (Lines { "a machine in memory" }));
    models.reveal(item.id);
    EXPECT_EQ(machine.workspace.log, (Lines { "reveal file:///a.txt" }));
    models.showReadMe();
    EXPECT_EQ(front.notesWindows.layouts.size(), 1U);

    models.beginRecording();
    models.endRecording();
    EXPECT_FALSE(front.hotkeys.held.empty());
    models.beginRecording();
    EXPECT_TRUE(front.hotkeys.held.empty()) << "every recording hears every combination";
    models.endRecording();

    auto selected = item.id;
    front.filePanels.whileOpen = [&] { selected = Uuid::random(); };
    front.filePanels.opened = { Url::fromPath("/b.txt") };
    models.chooseTarget(selected);
    EXPECT_EQ(app->delegate().store().items().front().location->path, "/b.txt") << "the item that the panel was opened for";
}

TEST_F(Program, NothingArrivesAfterItsEnd)
{
    launchWith({ item(Kind::sleep, 'e') });
    auto const held = front.hotkeys.held.begin()->first;
    auto const opened = front.statusBar.menus.back();
    app->delegate().preferences().setHotkeyPrescanDepth(1);
    app.reset();
    machine.time.runTasks();
    if (front.hotkeys.onPressed)
        front.hotkeys.onPressed(held);
    opened->needsUpdate();
    EXPECT_EQ(machine.sessionEvents.sent, Lines {});
    EXPECT_EQ(front.statusBar.present, 0);
    EXPECT_FALSE(machine.defaults.onExternalChange);
}

} // namespace
} // namespace zv
