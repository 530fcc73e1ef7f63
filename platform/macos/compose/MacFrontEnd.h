#pragma once

#import <Cocoa/Cocoa.h>

#include "app/shell/ProgramMessage.h"
#include "app/shell/ZantheVellApp.h"
#include "platform/macos/cocoa/Factories.h"
#import "platform/macos/program/MessagePortServer.h"

#include <memory>

@class ZVServicesProvider;

namespace zv {

/// The program on a Mac: the seams over this system, and the program over them. Made after
/// the application object; lives as long as the process.
class MacFrontEnd {
public:
    MacFrontEnd();

    void launch();
    void reopen() { m_app->reopen(); }
    void openSettings() { m_app->openSettings(); }

private:
    [[nodiscard]] ZantheVellApp::Platform platform();
    [[nodiscard]] AppleMenuOverlayServices overlay();
    [[nodiscard]] ProgramHandlers services();
    [[nodiscard]] MacFindings findings() const;
    [[nodiscard]] std::string diagnostics() const;
    void showMenu(std::optional<RunningProgram::ScreenPoint> at);
    void listApplications(std::function<void(std::vector<InstalledApplication>)> use);

    MessagePortServer m_port;
    MenuTracking m_menuTracking;
    std::unique_ptr<UserDefaults> m_defaults = makeUserDefaults();
    std::unique_ptr<Resources> m_resources = makeResources();
    std::shared_ptr<FileSystem> m_files = makeFileSystem();
    std::unique_ptr<Bookmarks> m_bookmarks = makeBookmarks();
    std::unique_ptr<AliasFiles> m_aliases = makeAliasFiles();
    std::unique_ptr<Clock> m_clock = makeClock();
    std::unique_ptr<Timers> m_timers = makeTimers();
    std::unique_ptr<Tasks> m_tasks = makeTasks();

    std::unique_ptr<Application> m_application = makeApplication();
    std::unique_ptr<Alerts> m_alerts = makeAlerts();
    std::unique_ptr<ModifierKeys> m_modifierKeys = makeModifierKeys();
    std::unique_ptr<Clipboard> m_clipboard = makeClipboard();
    std::unique_ptr<Workspace> m_workspace = makeWorkspace();
    std::unique_ptr<DesktopCommands> m_desktop = makeDesktopCommands();
    std::unique_ptr<ComputerInfo> m_computer = makeComputerInfo();
    std::unique_ptr<SessionEvents> m_sessionEvents = makeSessionEvents();
    std::unique_ptr<ScriptRunner> m_scripts = makeScriptRunner();

    std::unique_ptr<TextMeasure> m_text = makeTextMeasure();
    std::unique_ptr<IconSource> m_icons = makeIconSource();
    std::unique_ptr<RecentFiles> m_recentFiles = makeRecentFiles();
    std::unique_ptr<RunningApplications> m_runningApplications = makeRunningApplications();
    std::unique_ptr<Volumes> m_volumes = makeVolumes();
    std::unique_ptr<RecentServers> m_recentServers = makeRecentServers();
    std::unique_ptr<NetworkInterfaces> m_networkInterfaces = makeNetworkInterfaces();
    std::unique_ptr<SettingsPanes> m_settingsPanes = makeSettingsPanes(*m_tasks);

    std::unique_ptr<HotkeyRegistrar> m_hotkeys = makeHotkeyRegistrar(m_menuTracking);
    std::unique_ptr<KeyboardLayoutSource> m_keyboardLayout = makeKeyboardLayoutSource();
    std::unique_ptr<MacStatusBar> m_statusBar = makeStatusBar(m_menuTracking);
    std::unique_ptr<MenuHost> m_menuHost = makeMenuHost(m_menuTracking);

    std::unique_ptr<WindowList> m_windowList = makeWindowList();
    std::unique_ptr<Screens> m_screens = makeScreens();
    std::unique_ptr<WorkspaceEvents> m_workspaceEvents = makeWorkspaceEvents();
    std::unique_ptr<PointerMonitor> m_pointerMonitor = makePointerMonitor();
    std::unique_ptr<OverlayPanels> m_panels = makeOverlayPanels();
    std::unique_ptr<MenuBarVisibility> m_menuBarVisibility = makeMenuBarVisibility();

    std::unique_ptr<Installation> m_installation = makeInstallation([this] { m_port.close(); });
    std::unique_ptr<LoginService> m_loginService = makeLoginService();
    std::unique_ptr<NotesWindows> m_notesWindows = makeNotesWindows();
    std::unique_ptr<UserNotifications> m_userNotifications = makeUserNotifications();
    std::unique_ptr<FilePanels> m_filePanels = makeFilePanels();
    std::unique_ptr<Permissions> m_permissions = makePermissions();
    std::unique_ptr<SettingsWindow> m_settingsWindow;

    std::unique_ptr<ZantheVellApp> m_app;
    ZVServicesProvider* m_services = nil; // kept for the application
};

} // namespace zv
