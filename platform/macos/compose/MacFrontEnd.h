#pragma once

#import <Cocoa/Cocoa.h>

#include "app/shell/ProgramMessage.h"
#include "app/shell/ZantheVellApp.h"
#include "platform/macos/cocoa/Factories.h"
#import "platform/macos/compose/MacSystem.h"
#import "platform/macos/program/MessagePortServer.h"

#include <memory>

NS_ASSUME_NONNULL_BEGIN

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
    [[nodiscard]] Surface surface();
    [[nodiscard]] ProgramHandlers handlers();
    [[nodiscard]] MacFindings findings() const;
    [[nodiscard]] std::string diagnostics() const;
    void showMenu(std::optional<RunningProgram::ScreenPoint> at);
    void listApplications(std::function<void(std::vector<InstalledApplication>)> use);

    MessagePortServer m_port;
    MenuTracking m_menuTracking;
    MacFiles m_files;
    MacSystem m_system { m_files };

    std::unique_ptr<Application> m_application = makeApplication();
    std::unique_ptr<Alerts> m_alerts = makeAlerts();
    std::unique_ptr<ModifierKeys> m_modifierKeys = makeModifierKeys();
    std::unique_ptr<Clipboard> m_clipboard = makeClipboard();

    std::unique_ptr<TextMeasure> m_text = makeTextMeasure();
    std::unique_ptr<IconSource> m_icons = makeIconSource();

    std::unique_ptr<HotkeyRegistrar> m_hotkeys = makeHotkeyRegistrar(m_menuTracking, m_system.timers());
    std::unique_ptr<KeyboardLayoutSource> m_keyboardLayout = makeKeyboardLayoutSource();
    std::unique_ptr<MacStatusBar> m_statusBar = makeStatusBar(m_menuTracking);
    std::unique_ptr<MenuHost> m_menuHost = makeMenuHost(m_menuTracking);

    std::unique_ptr<MenuBars> m_menuBars = makeMenuBars();
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
    std::unique_ptr<Forms> m_forms = makeForms();
    std::unique_ptr<PictureSource> m_pictures = makePictureSource(m_system.tasks());
    std::unique_ptr<Permissions> m_permissions = makePermissions();
    std::unique_ptr<Alerts> m_sheets = makeSheets();
    std::unique_ptr<SettingsWindow> m_settingsWindow;

    std::unique_ptr<ZantheVellApp> m_app;
    ZVServicesProvider* m_services = nil; // kept for the application
};

} // namespace zv

NS_ASSUME_NONNULL_END
