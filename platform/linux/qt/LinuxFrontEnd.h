#pragma once

#include "app/shell/ZantheVellApp.h"
#include "platform/linux/ApplicationIndex.h"
#include "platform/linux/AutostartLoginService.h"
#include "platform/linux/BundleResources.h"
#include "platform/linux/DesktopRecentServers.h"
#include "platform/linux/DesktopSettingsPanes.h"
#include "platform/linux/DesktopVolumes.h"
#include "platform/linux/GioWorkspace.h"
#include "platform/linux/LinuxBookmarks.h"
#include "platform/linux/LinuxComputerInfo.h"
#include "platform/linux/LinuxDesktopCommands.h"
#include "platform/linux/LinuxFileSystem.h"
#include "platform/linux/LinuxInstallation.h"
#include "platform/linux/LinuxPackageOrigin.h"
#include "platform/linux/LinuxScriptRunner.h"
#include "platform/linux/LinuxSessionEvents.h"
#include "platform/linux/PlistUserDefaults.h"
#include "platform/linux/RecentlyUsedQueries.h"
#include "platform/linux/SymlinkAliasFiles.h"
#include "platform/linux/SystemClock.h"
#include "platform/linux/SystemNetworkInterfaces.h"
#include "platform/linux/XdgDirectories.h"
#include "platform/linux/qt/ColorScheme.h"
#include "platform/linux/qt/DBusNotifications.h"
#include "platform/linux/qt/DesktopRunningApplications.h"
#include "platform/linux/qt/LinuxApplication.h"
#include "platform/linux/qt/LinuxHotkeys.h"
#include "platform/linux/qt/OverlayFrontEnd.h"
#include "platform/linux/qt/QtAlerts.h"
#include "platform/linux/qt/QtClipboard.h"
#include "platform/linux/qt/QtDownloads.h"
#include "platform/linux/qt/QtFilePanels.h"
#include "platform/linux/qt/QtMenuHost.h"
#include "platform/linux/qt/QtNotesWindows.h"
#include "platform/linux/qt/QtRunLoop.h"
#include "platform/linux/qt/QtTextMeasure.h"
#include "platform/linux/qt/QtUpdateWindow.h"
#include "platform/linux/qt/SingleInstance.h"
#include "platform/linux/qt/StatusNotifierItem.h"
#include "platform/linux/qt/TerminationSignals.h"
#include "platform/linux/qt/ThemeIcons.h"
#include "platform/linux/qt/settings/QtSettingsWindow.h"

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
    RecentlyUsedQueries m_recentlyUsed;
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
