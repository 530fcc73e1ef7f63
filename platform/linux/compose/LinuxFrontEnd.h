#pragma once

#include "app/shell/ZantheVellApp.h"
#include "platform/linux/compose/LinuxSystem.h"
#include "platform/linux/hotkeys/GnomeKeyBinding.h"
#include "platform/linux/hotkeys/LinuxHotkeys.h"
#include "platform/linux/icons/ThemeIconSource.h"
#include "platform/linux/icons/ThemePictures.h"
#include "platform/linux/install/AutostartLoginService.h"
#include "platform/linux/install/GnomeExtension.h"
#include "platform/linux/install/LinuxInstallation.h"
#include "platform/linux/install/LinuxPackageOrigin.h"
#include "platform/linux/looks/LookFollower.h"
#include "platform/linux/menu/MenuPlacer.h"
#include "platform/linux/menu/QtMenuHost.h"
#include "platform/linux/menu/QtTextMeasure.h"
#include "platform/linux/overlay/OverlayFrontEnd.h"
#include "platform/linux/program/SingleInstance.h"
#include "platform/linux/settings/QtSettingsWindow.h"
#include "platform/linux/toolkit/QtClipboard.h"
#include "platform/linux/toolkit/QtTasks.h"
#include "platform/linux/toolkit/QtTimers.h"
#include "platform/linux/toolkit/TerminationSignals.h"
#include "platform/linux/tray/StatusNotifierBar.h"
#include "platform/linux/updates/QtDownloads.h"
#include "platform/linux/updates/QtUpdateWindow.h"
#include "platform/linux/wayland/ActivationTokens.h"
#include "platform/linux/wayland/ForeignToplevels.h"
#include "platform/linux/wayland/SeatKeyboard.h"
#include "platform/linux/wayland/WaylandGlobals.h"
#include "platform/linux/windows/BusUserNotifications.h"
#include "platform/linux/windows/LinuxApplication.h"
#include "platform/linux/windows/QtAlerts.h"
#include "platform/linux/windows/QtFilePanels.h"
#include "platform/linux/windows/QtForms.h"
#include "platform/linux/windows/QtNotesWindows.h"

#include <QDBusServiceWatcher>
#include <QSocketNotifier>

#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>

namespace zv {

/// The program on a Linux desktop: the seams over this system, and the program over them.
class LinuxFrontEnd {
public:
    /// `count` and `arguments` outlive it. Both `environment` and the process's own environment
    /// name the display server to use.
    LinuxFrontEnd(int& count, char** arguments, Environment environment);
    ~LinuxFrontEnd();

    /// Runs until the program is asked to end; returns the exit status.
    int run();

private:
    [[nodiscard]] SessionKind sessionKind() const { return sessionKindOf(m_files.environment()); }
    [[nodiscard]] ProgramHandlers handlers();
    [[nodiscard]] std::unique_ptr<MenuPlacer> menuPlacer();
    void useSeat();
    void prepareForOpening();
    [[nodiscard]] Surface surface();
    [[nodiscard]] std::unique_ptr<ClientWindows> clientWindows() const;
    [[nodiscard]] std::optional<OverlaySeams> overlay();
    [[nodiscard]] UpdateEngineFactory updateEngine();
    [[nodiscard]] std::function<void(Url const&, std::function<void(Result<void>)>)> openPackage();
    [[nodiscard]] bool statusIconsAreShown() const;
    void watchForTray();
    bool openAutostartSettings();
    [[nodiscard]] LaurelColor laurelColor() const;
    void watchSettings();
    void pressedElsewhere(QPoint at, Menu const* menu);
    void useBus(QDBusConnection const& bus);
    void publishHotkeys();
    [[nodiscard]] std::string publishedHotkeys();
    [[nodiscard]] int openSettingsOfOther();
    [[nodiscard]] Result<void> canShowMenu() const;
    void showMenu(std::optional<RunningProgram::ScreenPoint> at);

    LinuxFiles m_files;
    LinuxApplication m_application;
    LookFollower m_look;
    std::unique_ptr<WaylandGlobals> m_wayland; ///< null on X11
    std::unique_ptr<SeatKeyboard> m_seatKeyboard; ///< null on X11
    std::optional<ActivationTokens> m_tokens; ///< likewise
    std::shared_ptr<ForeignToplevels> m_toplevels; ///< null where the compositor does not tell its windows
    DesktopAccess m_access;
    QDBusConnection m_bus;
    std::mutex m_reporting; ///< guards the report
    std::condition_variable m_reported;
    std::optional<std::string> m_hotkeyReport; ///< none before the first pass
    SingleInstance m_instance;

    QtTimers m_timers;
    QtTasks m_tasks;
    LinuxSystem m_system;

    QtAlerts m_alerts;
    QtClipboard m_clipboard;
    QtTextMeasure m_text;
    ThemeIconSource m_icons;

    QtModifierKeys m_modifierKeys;
    MenuPerformer m_performer;
    std::unique_ptr<MenuPlacer> m_placer;
    MenuPresenter m_presenter;
    QtMenuHost m_menuHost;
    StatusNotifierBar m_statusBar;
    std::unique_ptr<QDBusServiceWatcher> m_trayWatch;
    ObservationRegistrar m_trayObservers;
    LinuxHotkeys m_keyboard;
    std::unique_ptr<OverlayFrontEnd> m_overlay;

    LinuxInstallation m_installation;
    AutostartLoginService m_loginService;
    GnomeExtension m_extension;
    GnomeKeyBinding m_desktopKey;
    QtNotesWindows m_notesWindows;
    BusUserNotifications m_userNotifications;
    QtFilePanels m_filePanels;
    QtForms m_forms;
    ThemePictures m_pictures { m_tasks };
    QtDownloads m_downloads;
    LinuxPackageOrigin m_packageOrigin;
    QtUpdateWindow m_updateWindow;
    QtSettingsWindow m_settingsWindow;

    std::unique_ptr<ZantheVellApp> m_app;
    std::unique_ptr<QSocketNotifier> m_settingsWatch;
    TerminationSignals m_signals;
};

} // namespace zv
