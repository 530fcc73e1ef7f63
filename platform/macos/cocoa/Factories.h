#pragma once

#include "platform/desk/Alerts.h"
#include "platform/desk/Application.h"
#include "platform/desk/Clipboard.h"
#include "platform/desk/FilePanels.h"
#include "platform/desk/Forms.h"
#include "platform/desk/IconSource.h"
#include "platform/desk/ModifierKeys.h"
#include "platform/desk/NotesWindow.h"
#include "platform/desk/PictureSource.h"
#include "platform/desk/SettingsWindow.h"
#include "platform/desk/TextMeasure.h"
#include "platform/desk/UserNotifications.h"
#include "platform/files/AliasFiles.h"
#include "platform/files/Bookmarks.h"
#include "platform/files/FileSystem.h"
#include "platform/files/FolderReader.h"
#include "platform/files/Resources.h"
#include "platform/files/UserDefaults.h"
#include "platform/lists/NetworkInterfaces.h"
#include "platform/lists/RecentFiles.h"
#include "platform/lists/RecentServers.h"
#include "platform/lists/RunningApplications.h"
#include "platform/lists/SettingsPanes.h"
#include "platform/lists/Volumes.h"
#include "platform/menubar/HotkeyRegistrar.h"
#include "platform/menubar/KeyboardLayoutSource.h"
#include "platform/menubar/MenuBarVisibility.h"
#include "platform/menubar/MenuBars.h"
#include "platform/menubar/MenuHost.h"
#include "platform/menubar/OverlayPanels.h"
#include "platform/menubar/PointerMonitor.h"
#include "platform/menubar/Screens.h"
#include "platform/menubar/StatusBar.h"
#include "platform/menubar/WorkspaceEvents.h"
#include "platform/program/Installation.h"
#include "platform/program/LoginService.h"
#include "platform/program/MacFindings.h"
#include "platform/program/MessagePort.h"
#include "platform/program/Permissions.h"
#include "platform/program/UpdateEngine.h"
#include "platform/session/ComputerInfo.h"
#include "platform/session/DesktopCommands.h"
#include "platform/session/ScriptRunner.h"
#include "platform/session/SessionEvents.h"
#include "platform/session/ToolRunner.h"
#include "platform/session/Workspace.h"
#include "platform/time/Clock.h"
#include "platform/time/Tasks.h"
#include "platform/time/Timers.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

/// A function for each seam, in the file named after it. All are called on the main thread
/// after the application object exists; the objects they make live until main ends.
namespace zv {

class SettingsModels;

/// The time at which the last menu of ours closed, in seconds since the system started; set by
/// the menus, asked by the hot keys. Zero before any was open.
struct MenuTracking {
    bool isOpen = false;
    double lastClosed = 0;
};

/// The status icons of a Mac; ours can be clicked by the program.
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
std::unique_ptr<Forms> makeForms();
std::shared_ptr<FileSystem> makeFileSystem();
std::shared_ptr<FolderReader const> makeFolderReader();
std::unique_ptr<HotkeyRegistrar> makeHotkeyRegistrar(MenuTracking const& tracking, Timers& timers);
std::unique_ptr<IconSource> makeIconSource();
/// Calls `giveWay` when a copy of the program is about to take over.
std::unique_ptr<Installation> makeInstallation(std::function<void()> giveWay);
std::unique_ptr<KeyboardLayoutSource> makeKeyboardLayoutSource();
std::unique_ptr<LoginService> makeLoginService();
std::unique_ptr<MenuBarVisibility> makeMenuBarVisibility(); ///< null where the system does not tell
std::unique_ptr<MenuBars> makeMenuBars();
std::unique_ptr<MenuHost> makeMenuHost(MenuTracking& tracking);
std::unique_ptr<ModifierKeys> makeModifierKeys();
std::unique_ptr<NetworkInterfaces> makeNetworkInterfaces();
std::unique_ptr<NotesWindows> makeNotesWindows();
std::unique_ptr<OverlayPanels> makeOverlayPanels();
std::unique_ptr<Permissions> makePermissions();
std::unique_ptr<PictureSource> makePictureSource(Tasks& tasks);
std::unique_ptr<PointerMonitor> makePointerMonitor();
std::unique_ptr<MessagePort> makeMessagePort();
std::unique_ptr<RecentFiles> makeRecentFiles();
std::unique_ptr<RecentServers> makeRecentServers();
std::unique_ptr<Resources> makeResources();
std::unique_ptr<RunningApplications> makeRunningApplications();
std::unique_ptr<Screens> makeScreens();
std::unique_ptr<ScriptRunner> makeScriptRunner();
std::unique_ptr<SessionEvents> makeSessionEvents();
std::unique_ptr<SettingsPanes> makeSettingsPanes(Tasks& tasks);
std::unique_ptr<Alerts> makeSheets(); ///< alerts on the window in which the user works
/// Calls `models` when the window is first opened.
std::unique_ptr<SettingsWindow> makeSettingsWindow(std::function<SettingsModels&()> models);
std::unique_ptr<MacStatusBar> makeStatusBar(MenuTracking& tracking);
std::unique_ptr<Tasks> makeTasks();
std::unique_ptr<TextMeasure> makeTextMeasure();
std::unique_ptr<Timers> makeTimers();
std::shared_ptr<ToolRunner> makeToolRunner();
/// Without the update framework in the application, start() of the engine says so.
std::unique_ptr<UpdateEngine> makeUpdateEngine(UpdateChannels& channels, UpdateUserDriver& userDriver);
std::unique_ptr<UserDefaults> makeUserDefaults();
std::unique_ptr<UserNotifications> makeUserNotifications();
std::unique_ptr<Volumes> makeVolumes(Tasks& tasks);
std::unique_ptr<Workspace> makeWorkspace(Tasks& tasks);
std::unique_ptr<WorkspaceEvents> makeWorkspaceEvents();

/// Turns the main thread's run loop until `isDone` is true or the time is over.
void turnRunLoopUntil(std::function<bool()> const& isDone, std::chrono::milliseconds limit);
/// Looks at this copy of the program and its system; blocks for a moment. Leaves out the
/// findings of the running program.
MacFindings surveyThisMac();
/// The identifier of the application in that folder; empty when it has none. Any thread.
std::string bundleIdentifierOf(Url const& application);

} // namespace zv
