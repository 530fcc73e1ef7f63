#pragma once

#include "platform/menubar/HotkeyRegistrar.h"
#include "platform/program/LoginService.h"
#include "platform/session/DesktopCommands.h"

#include <vector>

namespace zv {

/// What was found on a desktop of this machine. The front end looks; what it means for the
/// user is said elsewhere.
struct DesktopFindings {
    enum class Display {
        x11,
        x11WithinWayland, ///< windows go through an X server that the desktop's panels are not on
        wayland,
        waylandWithoutPlugin, ///< which the toolkit would need there
        unreachable, ///< one is named, but does not answer
        none,
    };
    enum class StatusIcons { shown, withoutHost, noWatcher };
    enum class FileManager { reveals, opensFolders, none };
    enum class ForceQuit { taskManager, clickOnWindow, none };
    enum class ScreenLock {
        saver,
        command,
        loginService, ///< which only passes the wish on
        none,
    };
    /// What the login service answers to "can it?".
    enum class Allowed { yes, afterPassword, no };

    Display display = Display::none;
    bool hasWindowManager = false; ///< on X11
    bool hasPanelAtTop = false; ///< on X11
    bool hasIconTheme = false; ///< beside the bare fallback
    bool readsDrawings = false; ///< icons that are SVG files
    HotkeySupport hotkeys = HotkeySupport::none;

    bool isGnome = false;
    bool hasSessionBus = false;
    StatusIcons statusIcons = StatusIcons::noWatcher;
    bool hasPortal = false;
    bool hasNotifications = false;
    FileManager fileManager = FileManager::none;
    bool lacksFilesExtension = false; ///< Nautilus is there, what loads extensions in Python is not

    bool hasLoginService = false;
    bool hasAuthorization = false; ///< who asks for passwords on the login service's behalf
    Allowed sleep = Allowed::no;
    Allowed restart = Allowed::no;
    Allowed shutDown = Allowed::no;
    ScreenLock screenLock = ScreenLock::none;
    ForceQuit forceQuit = ForceQuit::none;
    std::vector<SystemPlace> placesWithoutProgram; ///< of the settings, the updates and the store

    LoginService::Status openAtLogin = LoginService::Status::notRegistered;
};

} // namespace zv
