#pragma once

#include "platform/Alerts.h"
#include "platform/AliasFiles.h"
#include "platform/Application.h"
#include "platform/Bookmarks.h"
#include "platform/Clipboard.h"
#include "platform/Clock.h"
#include "platform/ComputerInfo.h"
#include "platform/DesktopCommands.h"
#include "platform/FilePanels.h"
#include "platform/FileSystem.h"
#include "platform/FolderReader.h"
#include "platform/HotkeyRegistrar.h"
#include "platform/IconSource.h"
#include "platform/Installation.h"
#include "platform/KeyboardLayoutSource.h"
#include "platform/LoginService.h"
#include "platform/MacFindings.h"
#include "platform/MenuBarVisibility.h"
#include "platform/MenuHost.h"
#include "platform/MetadataQuery.h"
#include "platform/ModifierKeys.h"
#include "platform/NetworkInterfaces.h"
#include "platform/NotesWindow.h"
#include "platform/OverlayPanels.h"
#include "platform/Permissions.h"
#include "platform/PointerMonitor.h"
#include "platform/ProgramPost.h"
#include "platform/RecentServers.h"
#include "platform/Resources.h"
#include "platform/RunningApplications.h"
#include "platform/Screens.h"
#include "platform/ScriptRunner.h"
#include "platform/SessionEvents.h"
#include "platform/SettingsPanes.h"
#include "platform/SettingsWindow.h"
#include "platform/StatusBar.h"
#include "platform/Tasks.h"
#include "platform/TextMeasure.h"
#include "platform/Timers.h"
#include "platform/ToolRunner.h"
#include "platform/UpdateEngine.h"
#include "platform/UserDefaults.h"
#include "platform/UserNotifications.h"
#include "platform/Volumes.h"
#include "platform/WindowList.h"
#include "platform/Workspace.h"
#include "platform/WorkspaceEvents.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

/// One function a seam, each in the file named after it. All are called on the main thread
/// after the application object exists; what they make outlives nothing but main.
namespace zv {

class SettingsModels;

/// When the last menu of ours was closed, as seconds since the system started; set by the
/// menus, asked by the hot keys. Zero when none was open yet.
struct MenuTracking {
    bool isOpen = false;
    double lastClosed = 0;
};

/// The menu bar of a Mac: an icon in it can be clicked from elsewhere.
class MacStatusBar : public StatusBar {
public:
    /// Opens the menu of the icon, and returns when it has closed; false when none is shown.
    virtual bool openMenu() = 0;
};

std::unique_ptr<Alerts> makeAlerts();
std::unique_ptr<AliasFiles> makeAliasFiles();
std::unique_ptr<Application> makeApplication();
std::unique_ptr<Bookmarks> makeBookmarks();
std::unique_ptr<TextMeasure> makeCellTextMeasure(); ///< measures in cells of a terminal
std::unique_ptr<Clipboard> makeClipboard();
std::unique_ptr<Clock> makeClock();
std::unique_ptr<ComputerInfo> makeComputerInfo();
std::unique_ptr<DesktopCommands> makeDesktopCommands();
std::unique_ptr<FilePanels> makeFilePanels();
std::shared_ptr<FileSystem> makeFileSystem();
std::shared_ptr<FolderReader const> makeFolderReader();
std::unique_ptr<HotkeyRegistrar> makeHotkeyRegistrar(MenuTracking const& tracking);
std::unique_ptr<IconSource> makeIconSource();
/// `giveWay` is called when a copy of the program is about to take over.
std::unique_ptr<Installation> makeInstallation(std::function<void()> giveWay);
std::unique_ptr<KeyboardLayoutSource> makeKeyboardLayoutSource();
std::unique_ptr<LoginService> makeLoginService();
std::unique_ptr<MenuBarVisibility> makeMenuBarVisibility(); ///< null where the system does not tell
std::unique_ptr<MenuHost> makeMenuHost(MenuTracking& tracking);
std::unique_ptr<MetadataQueries> makeMetadataQueries();
std::unique_ptr<ModifierKeys> makeModifierKeys();
std::unique_ptr<NetworkInterfaces> makeNetworkInterfaces();
std::unique_ptr<NotesWindows> makeNotesWindows();
std::unique_ptr<OverlayPanels> makeOverlayPanels();
std::unique_ptr<Permissions> makePermissions();
std::unique_ptr<PointerMonitor> makePointerMonitor();
std::unique_ptr<ProgramPost> makeProgramPost();
std::unique_ptr<RecentServers> makeRecentServers();
std::unique_ptr<Resources> makeResources();
std::unique_ptr<RunningApplications> makeRunningApplications();
std::unique_ptr<Screens> makeScreens();
std::unique_ptr<ScriptRunner> makeScriptRunner();
std::unique_ptr<SessionEvents> makeSessionEvents();
std::unique_ptr<SettingsPanes> makeSettingsPanes(Tasks& tasks);
/// `models` is asked when the window is first opened.
std::unique_ptr<SettingsWindow> makeSettingsWindow(std::function<SettingsModels&()> models);
std::unique_ptr<MacStatusBar> makeStatusBar(MenuTracking& tracking);
std::unique_ptr<Tasks> makeTasks();
std::unique_ptr<TextMeasure> makeTextMeasure();
std::unique_ptr<Timers> makeTimers();
std::shared_ptr<ToolRunner> makeToolRunner();
/// Without the update framework in the application, an engine whose start says so.
std::unique_ptr<UpdateEngine> makeUpdateEngine(UpdateChannels& channels, UpdateUserDriver& userDriver);
std::unique_ptr<UserDefaults> makeUserDefaults();
std::unique_ptr<UserNotifications> makeUserNotifications();
std::unique_ptr<Volumes> makeVolumes();
std::unique_ptr<WindowList> makeWindowList();
std::unique_ptr<Workspace> makeWorkspace();
std::unique_ptr<WorkspaceEvents> makeWorkspaceEvents();

/// Turns the main thread's run loop until the question is answered with yes, or the time is over.
void turnRunLoopUntil(std::function<bool()> const& isDone, std::chrono::milliseconds limit);
/// Looks at this copy of the program and its system; blocks for a moment. Without what only
/// the running program knows.
MacFindings surveyThisMac();
/// The identifier of the application in that folder; empty when it has none. Any thread.
std::string bundleIdentifierOf(Url const& application);

} // namespace zv
