#pragma once

#include "app/shell/ZantheVellApp.h"
#include "platform/linux/apps/ApplicationIndex.h"
#include "platform/linux/apps/DesktopRecentFiles.h"
#include "platform/linux/apps/DesktopSettingsPanes.h"
#include "platform/linux/apps/GioWorkspace.h"
#include "platform/linux/files/BundleResources.h"
#include "platform/linux/files/LinuxBookmarks.h"
#include "platform/linux/files/LinuxFileSystem.h"
#include "platform/linux/files/SymlinkAliasFiles.h"
#include "platform/linux/hotkeys/LinuxHotkeys.h"
#include "platform/linux/icons/ThemeIcons.h"
#include "platform/linux/install/AutostartLoginService.h"
#include "platform/linux/install/LinuxInstallation.h"
#include "platform/linux/install/LinuxPackageOrigin.h"
#include "platform/linux/machine/DesktopRecentServers.h"
#include "platform/linux/machine/DesktopVolumes.h"
#include "platform/linux/machine/LinuxComputerInfo.h"
#include "platform/linux/machine/SystemClock.h"
#include "platform/linux/machine/SystemNetworkInterfaces.h"
#include "platform/linux/menu/QtMenuHost.h"
#include "platform/linux/overlay/OverlayFrontEnd.h"
#include "platform/linux/posix/XdgDirectories.h"
#include "platform/linux/program/SingleInstance.h"
#include "platform/linux/session/LinuxDesktopCommands.h"
#include "platform/linux/session/LinuxScriptRunner.h"
#include "platform/linux/session/LinuxSessionEvents.h"
#include "platform/linux/settings/QtSettingsWindow.h"
#include "platform/linux/store/PlistUserDefaults.h"
#include "platform/linux/toolkit/ColorScheme.h"
#include "platform/linux/toolkit/QtClipboard.h"
#include "platform/linux/toolkit/QtRunLoop.h"
#include "platform/linux/toolkit/QtTextMeasure.h"
#include "platform/linux/toolkit/TerminationSignals.h"
#include "platform/linux/tray/StatusNotifierItem.h"
#include "platform/linux/updates/QtDownloads.h"
#include "platform/linux/updates/QtUpdateWindow.h"
#include "platform/linux/windows/DBusNotifications.h"
#include "platform/linux/windows/LinuxApplication.h"
#include "platform/linux/windows/QtAlerts.h"
#include "platform/linux/windows/QtFilePanels.h"
#include "platform/linux/windows/QtNotesWindows.h"
#include "platform/linux/x11/DesktopRunningApplications.h"

#include <QSocketNotifier>

namespace zv {

/// The program on a Linux desktop: the seams over this system, and the program over them.
class LinuxFrontEnd {
public:
    /// After chooseDisplayServer(). `count` and `arguments` outlive it.
    LinuxFrontEnd(int& count, char** arguments);
    ~LinuxFrontEnd();

    /// Runs until the program is asked to end; gives the status to exit with.
    int run();

private:
    [[nodiscard]] ProgramRequests requests();
    [[nodiscard]] ZantheVellApp::Platform platform();
    [[nodiscard]] std::optional<AppleMenuOverlayServices> overlay();
    [[nodiscard]] UpdateEngineFactory updateEngine();
    [[nodiscard]] bool statusIconsAreShown() const;
    bool openAutostartSettings();
    void watchSettings();
    void showMenu(std::optional<QPoint> at);

    LinuxApplication m_application;
    QDBusConnection m_bus;
    SingleInstance m_instance;

    XdgDirectories m_directories;
    QtRunLoop m_runLoop;
    SystemClock m_clock;
    PlistUserDefaults m_defaults;
    BundleResources m_resources;
    std::shared_ptr<LinuxFileSystem> m_files;
    LinuxBookmarks m_bookmarks;
    SymlinkAliasFiles m_aliases;

    DesktopAccess m_access;
    ApplicationCatalog m_catalog;
    DesktopRunningApplications m_runningApplications;
    GioWorkspace m_workspace;
    LinuxDesktopCommands m_desktop;
    LinuxComputerInfo m_computer;
    LinuxSessionEvents m_sessionEvents;
    LinuxScriptRunner m_scripts;
    QtAlerts m_alerts;
    QtClipboard m_clipboard;

    QtTextMeasure m_text;
    ThemeIcons m_icons;
    DesktopRecentFiles m_recentFiles;
    DesktopVolumes m_volumes;
    DesktopRecentServers m_recentServers;
    SystemNetworkInterfaces m_networkInterfaces;
    DesktopSettingsPanes m_settingsPanes;

    QtModifierKeys m_modifierKeys;
    MenuPerformer m_performer;
    MenuPresenter m_presenter;
    QtMenuHost m_menuHost;
    StatusNotifierBar m_statusBar;
    LinuxHotkeys m_keyboard;
    std::unique_ptr<OverlayFrontEnd> m_overlay;

    Environment m_environment;
    Url m_bundle;
    LinuxInstallation m_installation;
    AutostartLoginService m_loginService;
    QtNotesWindows m_notesWindows;
    DBusNotifications m_userNotifications;
    QtFilePanels m_filePanels;
    QtDownloads m_downloads;
    LinuxPackageOrigin m_packageOrigin;
    QtUpdateWindow m_updateWindow;
    QtSettingsWindow m_settingsWindow;

    std::unique_ptr<ZantheVellApp> m_app;
    std::unique_ptr<ColorScheme> m_colorScheme;
    std::unique_ptr<QSocketNotifier> m_settingsWatch;
    TerminationSignals m_signals;
};

} // namespace zv
