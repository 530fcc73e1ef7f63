#pragma once

#include "platform/menubar/HotkeyRegistrar.h"
#include "platform/program/DesktopExtension.h"
#include "platform/program/DesktopKey.h"
#include "platform/program/LoginService.h"
#include "platform/session/DesktopCommands.h"

#include <optional>
#include <vector>

namespace zv {

/// The findings on a desktop of this machine. The front end looks; their meaning for the
/// user is said elsewhere.
struct DesktopFindings {
    enum class Display {
        x11,
        x11WithinWayland, ///< windows go through an X server that the desktop's panels are not on
        wayland, ///< with a layer shell, by which a program has parts of the desktop
        waylandWithoutLayers,
        waylandWithoutPlugin, ///< the toolkit lacks its plug-in for Wayland
        unreachable, ///< named, but does not answer
        none,
    };
    enum class StatusIcons { shown, withoutHost, noWatcher };
    enum class FileManager { reveals, opensFolders, none };
    enum class ForceQuit { taskManager, clickOnWindow, none };
    enum class ScreenLock {
        saver,
        command,
        loginService, ///< only passes the wish on
        none,
    };
    /// The login service's answers to "can it?".
    enum class Allowed { yes, afterPassword, no };

    Display display = Display::none;
    bool hasWindowManager = false; ///< on X11
    bool hasCornerPanel = false; ///< on X11: a panel lies along the top or the bottom of a screen
    bool hasIconTheme = false; ///< beside the bare fallback
    bool readsDrawings = false; ///< icons that are SVG files
    HotkeySupport hotkeys = HotkeySupport::none;
    std::optional<KeyBindingLine> bindingOfShow; ///< opens the menu by a key, as the desktop's own configuration can

    DesktopKey::State key; ///< the desktop's own one for the menu

    bool isGnome = false;
    DesktopExtension::State extension = DesktopExtension::State::missing;
    bool hasSessionBus = false;
    StatusIcons statusIcons = StatusIcons::noWatcher;
    bool hasPortal = false;
    bool hasNotifications = false;
    FileManager fileManager = FileManager::none;
    bool lacksFilesExtension = false; ///< Nautilus is there, its loader of Python extensions is not

    bool hasLoginService = false;
    bool hasAuthorization = false; ///< an agent that asks for passwords on the login service's behalf
    Allowed sleep = Allowed::no;
    Allowed restart = Allowed::no;
    Allowed shutDown = Allowed::no;
    ScreenLock screenLock = ScreenLock::none;
    ForceQuit forceQuit = ForceQuit::none;
    std::vector<SystemPlace> placesWithoutProgram; ///< of the settings, the updates and the store

    LoginService::Status openAtLogin = LoginService::Status::notRegistered;
};

} // namespace zv
