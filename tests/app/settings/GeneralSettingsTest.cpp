#include "app/settings/GeneralSettings.h"
#include "app/settings/AboutText.h"
#include "app/settings/LibraryPalette.h"
#include "platform/text/DateText.h"
#include "tests/app/settings/SettingsFixture.h"
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeFilePanels.h"
#include "tests/fakes/FakePermissions.h"
#include "tests/fakes/FakeShell.h"
#include "tests/fakes/FakeTime.h"
#include "tests/fakes/FakeUpdates.h"

#include <algorithm>

namespace zv {
namespace {

struct GeneralSettingsTest : SettingsFixture {
    [[nodiscard]] std::optional<SettingsRow> row(std::string const& id) { return rowOf(settings, id); }
    [[nodiscard]] static std::optional<SettingsRow> rowOf(GeneralSettings& shown, std::string const& id)
    {
        for (auto const& section : shown.sections()) {
            for (auto const& candidate : section.rows) {
                if (candidate.id == id)
                    return candidate;
            }
        }
        return std::nullopt;
    }

    Preferences preferences { defaults };
    MenuShortcut menuShortcut { defaults };
    bool isTaken = false;
    fakes::FakeLoginService loginService;
    LoginItem loginItem { loginService };
    fakes::FakeUserNotifications notifications;
    fakes::FakeApplication application;
    fakes::FakeUpdateEngine* engine = nullptr;
    KresUpdater updater { { resources, { notifications, application, resources }, [this](UpdateChannels&, UpdateUserDriver&) {
                               auto made = std::make_unique<fakes::FakeUpdateEngine>();
                               engine = made.get();
                               return made;
                           } } };
    fakes::FakeTime time;
    MenuBackups backups { { files, time }, Url::fromPath("/backups") };
    fakes::FakeFilePanels panels;
    fakes::FakeAlerts alerts;
    MenuFileCommands menuFile { { *editor, backups, files, locations, panels, alerts } };
    std::map<std::string, std::string> problems;
    std::function<std::optional<std::string>()> problem(std::string const& of)
    {
        return [this, of] { return problems.contains(of) ? std::optional(problems.at(of)) : std::nullopt; };
    }
    GeneralSettings settings { { preferences, loginItem, updater, menuFile, alerts, SettingsWording::of(SystemKind::macOS), menuShortcut,
        [this] { return isTaken; }, {}, problem("statusItemProblem"), problem("overlayProblem"), problem("hotkeyProblem"), problem("saveProblem") } };
};

TEST_F(GeneralSettingsTest, ActsAtOnceAndShowsWhatFollows)
{
    EXPECT_FALSE(row("noPresence"));
    row("replaceAppleMenu")->toggle(false);
    EXPECT_FALSE(preferences.replacesAppleMenu());
    EXPECT_FALSE(row("rainbowLogo")->isEnabled);
    EXPECT_FALSE(row("noPresence")) << "the status item is still there";
    row("showStatusItem")->toggle(false);
    EXPECT_EQ(row("noPresence")->title, "Zanthe Vell then shows a Dock icon.");
    row("recentItems")->choose(50);
    EXPECT_EQ(preferences.recentItemsLimit(), 50);
}

TEST_F(GeneralSettingsTest, WhatAnAdministratorLockedIsShownAndCannotBeChanged)
{
    for (auto const& [key, id] :
        std::map<std::string, std::string> { { "ScanDepth", "scanDepth" }, { "MenuShortcut", "menuShortcut" }, { "Menu", "resetMenu" } }) {
        EXPECT_TRUE(row(id)->isEnabled);
        defaults.locked = key;
        EXPECT_FALSE(row(id)->isEnabled);
        EXPECT_EQ(row("locked " + id)->title, "Locked by an administrator of this computer.");
        defaults.locked.clear();
    }
    defaults.locked = "ScanDepth";
    row("scanDepth")->choose(3);
    EXPECT_EQ(preferences.maximumScanDepth(), 10);
}

TEST_F(GeneralSettingsTest, TellsObserversOfEveryPreferenceItShows)
{
    std::function<void()> const changes[] = { [&] { preferences.setReplacesAppleMenu(false); }, [&] { preferences.setShowsStatusItem(false); },
        [&] { preferences.setDrawsRainbowAppleLogo(false); }, [&] { preferences.setShowIcons(false); }, [&] { preferences.setShowHiddenFiles(true); },
        [&] { preferences.setSortFoldersFirst(false); }, [&] { preferences.setRecentItemsLimit(1); }, [&] { preferences.setMaximumScanDepth(1); },
        [&] { preferences.setMaximumItemsPerFolder(1); }, [&] { preferences.setHotkeyPrescanDepth(1); }, [&] { preferences.setRemembersChoices(false); },
        [&] { engine->canCheck = true, engine->onCanCheckChanged(); }, [&] { menuShortcut.set(KeyEquivalentSpec {}); },
        [&] { (void)backups.menuWillBeOverwritten(PropertyListArray {}, true); } };
    for (auto const& change : changes) {
        bool told = false;
        auto const observation = withObservationTracking([&] { (void)settings.sections(); }, [&] { told = true; });
        change();
        EXPECT_TRUE(told) << &change - &changes[0];
    }
}

TEST_F(GeneralSettingsTest, ListsTheShortcutsOfFilesAndTakesThemAway)
{
    files.addFile("/f/01)Notes-*[cmd+N]*.txt");
    files.addFile("/f/Taken.txt");
    files.addFile("/f/Taken-*[cmd+T]*.txt");
    auto const url = [](char const* path) { return Url::fromPath(path); };
    std::map<Url, std::string> const held { { url("/f/01)Notes-*[cmd+N]*.txt"), "⌘N" }, { url("/f/Taken-*[cmd+T]*.txt"), "⌘T" } };
    GeneralSettings shown { { .preferences = preferences,
        .loginItem = loginItem,
        .updater = updater,
        .menuFile = menuFile,
        .alerts = alerts,
        .wording = SettingsWording::of(SystemKind::macOS),
        .menuShortcut = menuShortcut,
        .menuShortcutIsTaken = [this] { return isTaken; },
        .fileShortcuts = [&] { return held; },
        .rename = [&](Url const& from, Url const& to) { return files.rename(from, to); } } };
    auto const idOf = [&](char const* path) { return url(path).toString(); };
    EXPECT_EQ(rowOf(shown, "shortcut " + idOf("/f/01)Notes-*[cmd+N]*.txt"))->title, "⌘N   /f/01)Notes-*[cmd+N]*.txt");
    auto const remove = rowOf(shown, "takeAway " + idOf("/f/01)Notes-*[cmd+N]*.txt"));
    EXPECT_EQ(remove->help, "Renames the file to “01)Notes.txt”.");
    remove->press();
    EXPECT_TRUE(files.exists(url("/f/01)Notes.txt")) && alerts.shown.empty());
    rowOf(shown, "takeAway " + idOf("/f/Taken-*[cmd+T]*.txt"))->press();
    EXPECT_EQ(alerts.shown.at(0).message, "“Taken-*[cmd+T]*.txt” could not be renamed.");
}

TEST_F(GeneralSettingsTest, KeepsAStoredValueThatItDoesNotOffer)
{
    preferences.setMaximumItemsPerFolder(123);
    auto const shown = row("itemsPerFolder");
    EXPECT_EQ(shown->value, 123);
    ASSERT_EQ(shown->choices.size(), 6U);
    EXPECT_EQ(shown->choices[2], (SettingsChoice { "123", 123 })) << "in its place among the others";
    row("showIcons")->toggle(false);
    EXPECT_EQ(preferences.maximumItemsPerFolder(), 123);
    preferences.setHotkeyPrescanDepth(-4);
    EXPECT_EQ(row("prescanDepth")->choices.front().value, -4);
}

TEST_F(GeneralSettingsTest, ShowsWhatTheLoginItemAndTheUpdaterSay)
{
    loginService.current = LoginService::Status::requiresApproval;
    EXPECT_EQ(row("loginApproval")->title,
        "Zanthe Vell is switched off under Background App Activity, so it will not open at login until you switch it back on there.");
    row("loginSettings")->press();
    EXPECT_EQ(loginService.settingsOpened, 1);
    loginService.outcome = Failure { LoginService::Error { 1, "It may not be." } };
    row("openAtLogin")->toggle(false);
    EXPECT_EQ(alerts.shown.back().informativeText, "It may not be.");
    EXPECT_EQ(SettingsWording::of(SystemKind::linuxDesktop).loginFailure("No room"), "The autostart entry could not be changed: No room.") << "a reason alone";

    EXPECT_EQ(row("startProblem")->title, "No appcast URL is set, so there is nothing to check against.");
    EXPECT_FALSE(row("checkNow")) << "nothing that would do nothing";
    engine->canCheck = true;
    engine->onCanCheckChanged();
    row("checkNow")->press();
    EXPECT_EQ(engine->checks, 1);
}

TEST_F(GeneralSettingsTest, SaysWhatTheDesktopDoesNotLetItDoOnlyWhereItIsWanted)
{
    for (auto const* id : { "statusItemProblem", "overlayProblem", "hotkeyProblem", "saveProblem" }) {
        EXPECT_FALSE(row(id)) << id;
        problems[id] = std::string("No ") + id;
        ASSERT_TRUE(row(id)) << id;
        EXPECT_EQ(row(id)->title, problems[id]);
    }
    preferences.setReplacesAppleMenu(false);
    EXPECT_FALSE(row("overlayProblem"));
    preferences.setShowsStatusItem(false);
    EXPECT_FALSE(row("statusItemProblem"));
    EXPECT_TRUE(row("hotkeyProblem"));
}

TEST_F(GeneralSettingsTest, SwitchesTheDesktopsExtensionAndSaysFromWhen)
{
    struct Extension : DesktopExtension {
        State now = State::off;
        State state() const override { return now; }
        bool switchTo(bool on) override { return now = on ? State::onFromNextLogin : State::off, true; }
    } extension;
    GeneralSettings onGnome { { preferences, loginItem, updater, menuFile, alerts, SettingsWording::of(SystemKind::linuxDesktop), menuShortcut,
        [] { return false; }, {}, {}, problem("overlayProblem"), {}, {}, nullptr, {}, {}, {}, &extension } };
    rowOf(onGnome, "extension")->toggle(true);
    EXPECT_TRUE(rowOf(onGnome, "extension")->isOn && rowOf(onGnome, "extensionNote"));
    problems["overlayProblem"] = "No panel.";
    EXPECT_TRUE(rowOf(onGnome, "overlayProblem"));
    extension.now = DesktopExtension::State::on;
    EXPECT_FALSE(rowOf(onGnome, "overlayProblem") || rowOf(onGnome, "extensionNote")) << "the laurel is the corner there";
    extension.now = DesktopExtension::State::missing;
    EXPECT_FALSE(rowOf(onGnome, "extension"));
}

TEST_F(GeneralSettingsTest, WritesTheMenusKeyIntoTheDesktopsSettingsAndTakesItBack)
{
    struct Key : DesktopKey {
        State now { true };
        bool isWritable = true;
        State state() const override { return now; }
        std::optional<std::string> holderOf(Combination const& key) const override { return key.key == "c" ? std::optional("Calculator") : std::nullopt; }
        bool set(std::optional<Combination> const& value) override { return now.value = value, isWritable; }
    } key;
    auto support = HotkeySupport::none;
    GeneralSettings onGnome { { preferences, loginItem, updater, menuFile, alerts, SettingsWording::of(SystemKind::linuxDesktop), menuShortcut,
        [] { return false; }, {}, {}, {}, {}, {}, nullptr, {}, {}, {}, nullptr, &key, [&] { return support; } } };
    EXPECT_TRUE(rowOf(onGnome, "desktopKey") && !rowOf(onGnome, "menuShortcut")) << "a shortcut of ours would do nothing";
    KeyEquivalentSpec const wanted { KeyEquivalentSpec::Trigger::character("M"), false, true };
    rowOf(onGnome, "desktopKey")->record(wanted);
    EXPECT_EQ(key.now.value, (DesktopKey::Combination { "m", false, commandKey | optionKey }));
    EXPECT_EQ(rowOf(onGnome, "desktopKey")->shortcut, wanted);
    rowOf(onGnome, "desktopKey")->record(KeyEquivalentSpec { KeyEquivalentSpec::Trigger::character("C") });
    EXPECT_EQ(rowOf(onGnome, "desktopKey")->shortcut, wanted) << "never over another's";
    EXPECT_EQ(rowOf(onGnome, "desktopKeyNote")->title, "“Calculator” has this combination. Record a different one.");
    support = HotkeySupport::everywhere;
    EXPECT_TRUE(rowOf(onGnome, "desktopKey") && rowOf(onGnome, "menuShortcut")) << "what is left can be taken back";
    rowOf(onGnome, "desktopKey")->record({});
    EXPECT_FALSE(key.now.value || rowOf(onGnome, "desktopKey"));
    support = HotkeySupport::none;
    key.now.isOffered = false;
    EXPECT_EQ(rowOf(onGnome, "menuShortcutNote")->title, "This desktop does not let programs have shortcuts of their own.");
    key.now.isOffered = true;
    key.isWritable = false;
    rowOf(onGnome, "desktopKey")->record(wanted);
    EXPECT_EQ(alerts.shown.size(), 1U);
}

TEST_F(GeneralSettingsTest, ShowsPermissionsWhereTheSystemAsksForThem)
{
    EXPECT_FALSE(row("automation")) << "most systems ask for none";

    fakes::FakePermissions permissions;
    std::vector<std::string> opened;
    GeneralSettings asking { { preferences, loginItem, updater, menuFile, alerts, SettingsWording::of(SystemKind::macOS), menuShortcut, [] { return false; },
        {}, {}, {}, {}, {}, &permissions, [&](std::string_view pane) { opened.emplace_back(pane); } } };
    struct Row {
        Permission permission;
        PermissionState state;
        std::string id, beginning;
    };
    Row const rows[] = {
        { Permission::automation, PermissionState::granted, "automation", "Automation: allowed. System Events and the login window " },
        { Permission::automation, PermissionState::notAsked, "automation", "Automation: not in use yet; macOS asks at the first such command. " },
        { Permission::automation, PermissionState::notKnown, "automation", "Automation: Not known while System Events is not running. " },
        { Permission::accessibility, PermissionState::refused, "accessibility", "Accessibility: not allowed. Lock Screen and Force Quit " },
    };
    for (auto const& expected : rows) {
        permissions.states[expected.permission] = expected.state;
        EXPECT_EQ(rowOf(asking, expected.id)->title.substr(0, expected.beginning.size()), expected.beginning);
    }
    rowOf(asking, "automationSettings")->press();
    rowOf(asking, "accessibilitySettings")->press();
    EXPECT_EQ(opened, (std::vector<std::string> { "com.apple.preference.security?Privacy_Automation", "com.apple.preference.security?Privacy_Accessibility" }));
}

TEST_F(GeneralSettingsTest, TakesAMenuFileWholeOrNotAtAll)
{
    setMenu("a b[x]");
    panels.saved = Url::fromPath("/out/menu.plist");
    menuFile.exportMenu();
    setMenu("c");
    panels.opened = { *panels.saved };
    menuFile.importMenu();
    EXPECT_EQ(menu(), "a b[x]");
    ASSERT_EQ(edits.size(), 1U);
    editor->undo(edits[0]);
    EXPECT_EQ(menu(), "c") << "an import can be undone";

    files.addFile("/out/wrong.plist", "<plist version=\"1.0\"><array><dict/></array></plist>");
    for (auto const* path : { "/out/wrong.plist", "/out/missing.plist" }) {
        panels.opened = { Url::fromPath(path) };
        menuFile.importMenu();
        EXPECT_EQ(alerts.shown.back().message, "“" + panels.opened[0].lastPathComponent() + "” could not be imported.");
        EXPECT_EQ(menu(), "c");
    }
    files.readOnly.insert("/out");
    menuFile.exportMenu();
    EXPECT_EQ(alerts.shown.back().message, "The menu could not be exported to “menu.plist”.");
}

TEST_F(GeneralSettingsTest, RestoresABackupOnlyWhenToldSo)
{
    setMenu("a[b] c[d]");
    EXPECT_TRUE(backups.menuWillBeOverwritten(toPropertyList(editor->items()), true));
    setMenu("c[] e b");
    editor->undoLast = [this] { editor->undo(edits.back()); };
    alerts.answers = { 1, 0 };
    row("backups")->choose(0);
    EXPECT_EQ(menu(), "c[] e b");
    EXPECT_EQ(alerts.shown.back().message, "Restore the menu of " + localizedDateAndTime(time.now()) + "?");
    EXPECT_EQ(alerts.shown.back().informativeText,
        "Your menu of 3 items is replaced by one of 4 items.\n2 items are added: “a” and “d”.\n1 item is removed: “e”.\n1 item is changed: “b”.\n"
        "You can undo this, and your menu is kept among the backups.");
    EXPECT_EQ(alerts.shown.back().buttons, (std::vector<std::string> { "Restore", "Cancel" }));
    EXPECT_FALSE(row("restored"));
    row("backups")->choose(0);
    EXPECT_EQ(menu(), "a[b] c[d]");
    EXPECT_TRUE(row("restored"));
    row("undoRestoring")->press();
    EXPECT_EQ(menu(), "c[] e b");
    EXPECT_FALSE(row("restored")) << "there is nothing left to take back";
}

TEST_F(GeneralSettingsTest, RestoresTheDefaultMenuOnlyWhenToldSo)
{
    setMenu("a");
    alerts.answers = { 1, 0 };
    row("resetMenu")->press();
    EXPECT_EQ(menu(), "a");
    row("resetMenu")->press();
    EXPECT_NE(menu(), "a");
    editor->undo(edits.back());
    EXPECT_EQ(menu(), "a");
}

TEST(LibraryPalette, FindsEntriesAsPeopleType)
{
    auto const entry = [](std::string title, std::string description, std::string group) {
        LibraryEntry made;
        made.id = made.title = std::move(title);
        made.localizedDescription = std::move(description);
        made.group = std::move(group);
        return made;
    };
    LibraryPalette palette({ entry("Sleep", "Puts the computer to sleep.", "System"), entry("Café Menü", "A test.", "Lists"),
        entry("Restart…", "Asks, then restarts.", "System") });
    auto const found = [&](std::string_view search) {
        std::string text;
        for (auto const& group : palette.groups(search)) {
            text += group.title + ":";
            for (auto const* each : group.entries)
                text += each->title + ";";
        }
        return text;
    };
    EXPECT_EQ(found(""), "System:Sleep;Restart…;Lists:Café Menü;");
    EXPECT_EQ(found("cafe menu"), "Lists:Café Menü;");
    EXPECT_EQ(found("  SYSTEM sleep "), "System:Sleep;");
    EXPECT_EQ(found("nothing like that"), "");

    auto group = MenuItem::ofKind(MenuItemKind::submenu);
    group.title = "Sleepy";
    group.children = { MenuItem::ofKind(MenuItemKind::sleep), MenuItem::ofKind(MenuItemKind::restart) };
    EXPECT_EQ(LibraryPalette::itemsFound({ group }, "SLEEP").size(), 2U) << "at any depth";
    EXPECT_TRUE(LibraryPalette::itemsFound({ group }, " ").empty());
    bool told = false;
    auto const observation = withObservationTracking([&] { (void)palette.groups(); }, [&] { told = true; });
    palette.setApplications({ { "Web", Url::fromPath("/a/web.desktop") }, { "mail", Url::fromPath("/a/mail.desktop") } });
    EXPECT_TRUE(told);
    EXPECT_EQ(found("installed"), "Installed Applications:mail;Web;");
    EXPECT_EQ(palette.groups("web").at(0).entries.at(0)->itemTemplate.location->path, "/a/web.desktop");
}

TEST(Diagnostics, NamePeopleNowhere)
{
    EXPECT_EQ(withoutPersonalPaths("/home/ada/.config and /media/ada/stick, ada", "/home/ada", "ada"), "~/.config and /media/user/stick, ada");
    EXPECT_EQ(withoutPersonalPaths("/a/b", "/", ""), "/a/b");
}

} // namespace
} // namespace zv
