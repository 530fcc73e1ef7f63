#include "app/actions/MenuActions.h"

#include "app/actions/ActionAlerts.h"
#include "tests/fakes/FakeSystem.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using Log = std::vector<std::string>;

struct MenuActionsTest : testing::Test {
    static MenuItem item(MenuItemKind const& kind, std::string title = "T")
    {
        auto made = MenuItem::ofKind(kind);
        made.title = std::move(title);
        return made;
    }
    MenuItem fileItem(std::string const& path)
    {
        auto made = item(MenuItemKind::fsObject);
        made.location = ItemLocation { .path = path };
        return made;
    }
    std::string onlyAlert()
    {
        time.runTasks();
        if (alerts.shown.size() != 1)
            return std::to_string(alerts.shown.size()) + " alerts";
        auto const& alert = alerts.shown[0];
        std::string text = alert.message + "\n" + alert.informativeText;
        for (auto const& button : alert.buttons)
            text += "\n[" + button + "]";
        return text;
    }

    struct Machine : fakes::FakeSystem {
        Machine()
        {
            places.home = "/home/u";
            places.itemsFolder = Url::fromPath("/home/u/Items");
        }
    } machine;
    fakes::FakeSurface front;
    fakes::FakeWorkspace& workspace = machine.workspace;
    fakes::FakeApplication& application = front.application;
    fakes::FakeAlerts& alerts = front.alerts;
    fakes::FakeModifierKeys& keys = front.modifierKeys;
    fakes::FakeClipboard& clipboard = front.clipboard;
    fakes::FakeRunningApplications& running = machine.runningApplications;
    fakes::FakeDesktopCommands& desktop = machine.desktop;
    fakes::FakeComputerInfo& computer = machine.computer;
    fakes::FakeSessionEvents& events = machine.sessionEvents;
    fakes::FakeScriptRunner& scriptRunner = machine.scripts;
    fakes::FakeTime& time = machine.time;
    fakes::FakeFileSystem& files = machine.files;
    fakes::FakeBookmarks& bookmarks = machine.bookmarks;
    std::shared_ptr<fakes::FakeToolRunner>& tool = machine.tools;
    AlertConfirmation confirmation { application, alerts };
    SessionControl session { events, confirmation };
    SystemEventsBridge scripts { scriptRunner, [this] { return confirmation.confirmsForceQuit(); } };
    Log shell;
    System system = machine.system();
    Desk desk = front.desk();
    MenuActions actions { { .system = system,
        .desk = desk,
        .session = session,
        .scripts = scripts,
        .shell = { .openSettingsWindow = [this] { shell.push_back("settings"); }, .canCheckForUpdates = {}, .checkForUpdates = {} } } };
};

TEST_F(MenuActionsTest, EachKindDoesItsOwn)
{
    std::string const pane = "open x-apple.systempreferences:com.apple.";
    std::string const page = "open https://www.apple.com/macos/";
    std::string const settings = "open file:///System/Applications/System%20Settings.app";
    struct Row {
        MenuItemKind kind;
        std::string opened, sent, ran, program;
    };
    Row const rows[] = {
        { MenuItemKind::revealZantheVellItems, "reveal file:///home/u/Items", "", "", "" },
        { MenuItemKind::aboutThisMac, pane + "SystemProfiler.AboutExtension", "", "", "" },
        { MenuItemKind::appStore, "open file:///System/Applications/App%20Store.app", "", "", "" },
        { MenuItemKind::getMacOSXSoftware, page, "", "", "" },
        { MenuItemKind::getMacOSXSoftware2, page, "", "", "" },
        { MenuItemKind::softwareUpdate, pane + "Software-Update-Settings.extension", "", "", "" },
        { MenuItemKind::systemPrefs, settings, "", "", "" },
        { MenuItemKind::simpleSystemPrefs, settings, "", "", "" },
        { MenuItemKind::dockPrefs, pane + "Desktop-Settings.extension", "", "", "" },
        { MenuItemKind::customizeZantheVell, "", "", "", "activate settings " },
        { MenuItemKind::quitZantheVell, "", "", "", "terminate " },
        { MenuItemKind::sleep, "", "sleep", "", "" },
        { MenuItemKind::restart, "", "ask to restart", "", "" },
        { MenuItemKind::shutdown, "", "ask to shut down", "", "" },
        { MenuItemKind::logOut, "", "ask to log out", "", "" },
        { MenuItemKind::restartForced, "", "restart", "", "" },
        { MenuItemKind::shutdownForced, "", "shut down", "", "" },
        { MenuItemKind::logOutForced, "", "log out", "", "" },
        { MenuItemKind::forceQuit, "", "", "key code 53", "" },
        { MenuItemKind::lockScreen, "", "", "key code 12", "" },
        { MenuItemKind::dockMagnification, "", "", "not magnification", "" },
        { MenuItemKind::dockHiding, "", "", "not autohide", "" },
        { MenuItemKind::dockPosLeft, "", "", "edge to left", "" },
        { MenuItemKind::dockPosBottom, "", "", "edge to bottom", "" },
        { MenuItemKind::dockPosRight, "", "", "edge to right", "" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.kind.rawValue());
        workspace.log.clear();
        events.sent.clear();
        scriptRunner.scripts.clear();
        application.log.clear();
        shell.clear();
        EXPECT_TRUE(actions.perform(item(row.kind)));
        time.runTasks();
        EXPECT_EQ(workspace.log, row.opened.empty() ? Log {} : Log { row.opened });
        EXPECT_EQ(events.sent, row.sent.empty() ? Log {} : Log { row.sent });
        ASSERT_EQ(scriptRunner.scripts.size(), row.ran.empty() ? 0u : 1u);
        if (!row.ran.empty()) {
            EXPECT_NE(scriptRunner.scripts[0].source.find(row.ran), std::string::npos);
        }
        std::string program;
        for (auto const& line : application.log)
            program += line + " ";
        for (auto const& line : shell)
            program += line + " ";
        EXPECT_EQ(program, row.program);
    }
    EXPECT_TRUE(alerts.shown.empty());
    EXPECT_TRUE(files.exists(Url::fromPath("/home/u/Items"))) << "what is revealed is there";
}

TEST_F(MenuActionsTest, EveryKindActsButTheRetiredOnesAndThoseThatOnlyOpenOrDivide)
{
    auto const isIdle = [](MenuItemKind const& kind) {
        bool const isList = kind.fillsItself() && kind != MenuItemKind::systemPrefs; // a file without a place counts
        return isList || kind.isLegacy() || kind == MenuItemKind::separator || kind == MenuItemKind::submenu || kind == MenuItemKind::dockMenu;
    };
    for (int code = 0; code <= MenuItemKind::unknown; ++code) {
        MenuItemKind const kind = static_cast<MenuItemKind::Case>(code);
        bool const acts = kind == MenuItemKind::quitZantheVell || actions.perform(item(kind));
        EXPECT_EQ(acts, !isIdle(kind)) << kind.rawValue();
    }
    EXPECT_TRUE(alerts.shown.empty()) << "and says nothing";
    EXPECT_FALSE(actions.perform(item(MenuItemKind::makeUnknown("Gadget"))));
    EXPECT_FALSE(actions.perform(item(MenuItemKind::openWith)));
    EXPECT_FALSE(actions.perform(item(MenuItemKind::location)));
}

TEST_F(MenuActionsTest, AFileOpensOrWithCommandIsRevealed)
{
    files.addFile("/home/u/a b.txt");
    EXPECT_TRUE(actions.perform(fileItem("/home/u/a b.txt")));
    keys.atEvent = ModifierMask::option | ModifierMask::shift;
    EXPECT_TRUE(actions.perform(fileItem("/home/u/a b.txt"))) << "Option plays no part";
    keys.atEvent |= ModifierMask::command;
    EXPECT_TRUE(actions.perform(fileItem("/home/u/a b.txt")));
    EXPECT_EQ(workspace.log, (Log { "open file:///home/u/a%20b.txt", "open file:///home/u/a%20b.txt", "reveal file:///home/u/a%20b.txt" }));
}

TEST_F(MenuActionsTest, AnItemOnAServerThatIsAwayMountsItAndOpens)
{
    auto away = item(MenuItemKind::fsObject);
    away.location = ItemLocation { .bookmark = fakes::bytesOf("bookmark:/Volumes/S/Notes") };
    bookmarks.unmounted = { "bookmark:/Volumes/S/Notes" };
    keys.atEvent = ModifierMask::command;
    EXPECT_TRUE(actions.perform(away));
    EXPECT_TRUE(workspace.log.empty()) << "the main thread waits for no server";
    keys.atEvent = {};
    time.runTasks();
    EXPECT_EQ(workspace.log, (Log { "reveal file:///Volumes/S/Notes" })) << "as Command was when the item was chosen";
}

TEST_F(MenuActionsTest, AFileThatHasGoneDoesNothingSilently)
{
    EXPECT_FALSE(actions.perform(fileItem("/home/u/gone.txt")));
    EXPECT_FALSE(actions.perform(item(MenuItemKind::fsObject)));
    EXPECT_TRUE(workspace.log.empty());
    EXPECT_TRUE(alerts.shown.empty());
}

TEST_F(MenuActionsTest, AnEntryOpensItsUrlAndRevealsItsFile)
{
    auto const url = Url::parse("smb://nas/public");
    auto const file = Url::fromPath("/mnt/nas");
    using enum DynamicEntryAction;
    struct Row {
        DynamicEntry entry;
        bool command;
        Log opened;
        std::string why;
    };
    Row const rows[] = {
        { { .url = url, .fileURL = file }, false, { "open smb://nas/public" }, "its url" },
        { { .url = url, .fileURL = file }, true, { "reveal file:///mnt/nas" }, "its file" },
        { { .url = url }, true, {}, "no file to reveal" },
        { { .fileURL = file }, false, {}, "nothing to open" },
        { { .id = "app", .fileURL = file, .action = activateApplication }, true, { "reveal file:///mnt/nas" }, "a running application's file" },
        { { .id = "10.0.0.1", .action = copyText }, true, {}, "an address has no file" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        workspace.log.clear();
        keys.atEvent = row.command ? ModifierMask::command : ModifierMask::none;
        actions.open(row.entry);
        EXPECT_EQ(workspace.log, row.opened);
    }
    EXPECT_TRUE(running.activated.empty() && clipboard.texts.empty());

    keys.atEvent = ModifierMask::none;
    actions.open({ .id = "app", .url = file, .action = activateApplication });
    actions.open({ .id = "10.0.0.1", .url = file, .action = copyText });
    EXPECT_EQ(running.activated, Log { "app" });
    EXPECT_EQ(clipboard.texts, Log { "10.0.0.1" });
}

TEST_F(MenuActionsTest, AFailedSessionEventOrScriptShowsTheFailureRaw)
{
    events.outcomes["sleep"] = { SessionEventOutcome::State::failed, -600 };
    actions.perform(item(MenuItemKind::sleep, "Schlaf"));
    EXPECT_EQ(onlyAlert(), "“Schlaf” could not be completed.\nsendFailed(-600)\n[OK]");
    EXPECT_EQ(application.log, Log { "activate" });

    alerts.shown.clear();
    scriptRunner.outcome = { ScriptOutcome::State::failed, -1, "Broken" };
    actions.perform(item(MenuItemKind::dockHiding, "Hide"));
    EXPECT_EQ(onlyAlert(), "“Hide” could not be completed.\nscriptError(\"Broken\")\n[OK]");
}

TEST_F(MenuActionsTest, WhatNobodyInstalledIsStartedAtTheUsersWord)
{
    UntrustedStart const own { Url::fromPath("/home/u/Downloads/invoice.pdf.desktop"), "sh -c" + std::string(300, ' ') + "\"rm\n\xFF\"", true };
    UntrustedStart const foreign { Url::fromPath("/srv/a\n.desktop"), std::string(2000, 'a'), false };
    struct Row {
        UntrustedStart start;
        std::size_t answer;
        Log log;
    };
    Row const rows[] = { { own, 0, {} }, { own, 1, { "start file:///home/u/Downloads/invoice.pdf.desktop" } },
        { own, 2, { "always start file:///home/u/Downloads/invoice.pdf.desktop" } }, { foreign, 0, {} } };
    for (auto const& row : rows) {
        workspace.log.clear();
        alerts.shown.clear();
        alerts.answers = { row.answer };
        workspace.onUntrusted(row.start);
        EXPECT_EQ(onlyAlert(),
            row.start.canAlwaysStart
                ? "“invoice.pdf.desktop” was not installed as an application. Start it?\nIt would run:\nsh -c \"rm␊\uFFFD\"\n\n"
                  "“Always Start” marks the file as executable.\n[Cancel]\n[Start]\n[Always Start]"
                : "“a␊.desktop” was not installed as an application. Start it?\nIt would run:\n" + std::string(400, 'a') + "…\n[Cancel]\n[Start]");
        EXPECT_EQ(alerts.shown.at(0).escapeButton, 0U);
        EXPECT_EQ(workspace.log, row.log) << row.answer;
    }
}

TEST_F(MenuActionsTest, ADenialLeadsToThePrivacyPane)
{
    auto const expected = "“T” needs permission to control your Mac.\nAllow Zanthe Vell to control System Events and the login window in Privacy & "
                          "Security › Automation, then try again.\n[Open Automation Settings]\n[Cancel]";
    events.outcomes["sleep"] = { SessionEventOutcome::State::failed, -1743 };
    alerts.answers = { 0 };
    actions.perform(item(MenuItemKind::sleep));
    EXPECT_EQ(onlyAlert(), expected);
    EXPECT_EQ(alerts.shown[0].escapeButton, 1u);
    EXPECT_EQ(workspace.log, Log { "open x-apple.systempreferences:com.apple.preference.security?Privacy_Automation" });

    alerts.shown.clear();
    workspace.log.clear();
    alerts.answers = { 1 };
    scriptRunner.outcome = { ScriptOutcome::State::failed, -1743, {} };
    actions.perform(item(MenuItemKind::lockScreen));
    EXPECT_EQ(onlyAlert(), expected);
    EXPECT_TRUE(workspace.log.empty()) << "cancelled";
}

TEST_F(MenuActionsTest, AShortcutRunsInTheBackgroundAndTellsItsFailure)
{
    struct Row {
        ToolResult result;
        std::string alert;
    };
    using fakes::FakeToolRunner;
    Row const rows[] = {
        { FakeToolRunner::printing(""), "0 alerts" },
        { {}, "“Resize” could not be run.\nThe Shortcuts command-line tool is not installed on this Mac.\n[OK]" },
        { { ToolResult::End::signalled, 9 }, "“Resize” could not be run.\nThe Shortcuts service did not respond.\n[OK]" },
        { FakeToolRunner::failing(1, "Error: No input."), "“Resize” could not be run.\nNo input.\n[OK]" },
    };
    for (auto const& row : rows) {
        alerts.shown.clear();
        tool->answers["run|ID"] = row.result;
        auto const before = tool->runs.size();
        actions.runShortcut("ID", "Resize");
        EXPECT_EQ(tool->runs.size(), before) << "the menu does not wait";
        time.runTasks();
        EXPECT_EQ(onlyAlert(), row.alert);
    }
    keys.atEvent = ModifierMask::command;
    actions.runShortcut("ID", "Resize");
    EXPECT_EQ(workspace.log, Log { "open shortcuts://open-shortcut?id=ID" });
    EXPECT_EQ(time.pendingBackground(), 0u) << "edited, not run";
}

TEST_F(MenuActionsTest, AFailedSwitchOfTheLocationIsTold)
{
    tool->answers["A"] = fakes::FakeToolRunner::printing("");
    actions.selectLocation("A", "Home");
    EXPECT_EQ(onlyAlert(), "0 alerts");
    actions.selectLocation("B", "Work");
    EXPECT_EQ(onlyAlert(), "“Work” could not be selected.\nSwitching network location requires administrator rights.\n[OK]");
}

TEST_F(MenuActionsTest, WhatFormsNoUrlOpensNothing)
{
    actions.openSettingsPane("a pane");
    actions.openWebPage("not a page");
    EXPECT_TRUE(workspace.log.empty());
}

TEST_F(MenuActionsTest, ADesktopOpensThePlacesInItsOwnWay)
{
    desktop.outcome = PlaceOutcome::opened;
    EXPECT_TRUE(actions.perform(item(MenuItemKind::systemPrefs)));
    EXPECT_EQ(desktop.opened, std::vector<SystemPlace> { SystemPlace::systemSettings });
    EXPECT_TRUE(workspace.log.empty() && alerts.shown.empty());

    desktop.outcome = PlaceOutcome::notFound;
    EXPECT_TRUE(actions.perform(item(MenuItemKind::appStore, "Store")));
    EXPECT_EQ(onlyAlert(), "“Store” could not be completed.\nscriptError(\"this desktop has no program for it\")\n[OK]");
    EXPECT_TRUE(workspace.log.empty());
}

TEST_F(MenuActionsTest, TellsAboutTheComputerItselfWhereNothingElseDoes)
{
    desktop.outcome = PlaceOutcome::notFound;
    computer.facts = { .system = "Debian GNU/Linux 12", .kernel = "6.1.0", .memory = "8 GB" };
    actions.perform(item(MenuItemKind::aboutThisMac));
    EXPECT_EQ(onlyAlert(), "Debian GNU/Linux 12\nKernel: 6.1.0\nMemory: 8 GB\n[OK]");
    EXPECT_EQ(alerts.shown[0].style, AlertStyle::informational);
}

TEST_F(MenuActionsTest, AsksByItselfWhereTheDesktopDoesNot)
{
    events.outcomes["ask to restart"] = { SessionEventOutcome::State::needsConfirmation };
    alerts.answers = { 1 };
    actions.perform(item(MenuItemKind::restart));
    EXPECT_EQ(onlyAlert(), "Do you want to restart the computer now?\nApplications are closed without asking. Unsaved changes are lost.\n[Restart]\n[Cancel]");
    EXPECT_EQ(alerts.shown[0].escapeButton, 1u);
    EXPECT_EQ(events.sent, Log { "ask to restart" });
}

} // namespace
} // namespace zv
