#include "app/doctor/DesktopChecks.h"

#include "app/doctor/HotkeyCheck.h"
#include "app/doctor/OverlayCheck.h"

#include <array>
#include <optional>

namespace zv {

namespace {

using State = DoctorCheck::State;
using Display = DesktopFindings::Display;
using Allowed = DesktopFindings::Allowed;

bool canShowWindows(DesktopFindings const& found)
{
    return found.display == Display::x11 || found.display == Display::x11WithinWayland || found.display == Display::wayland;
}

bool isOnX11(DesktopFindings const& found) { return found.display == Display::x11; }

DoctorCheck displayCheck(DesktopFindings const& found)
{
    switch (found.display) {
    case Display::x11:
        return { "Display", State::ok, "An X server shows menus and windows.", {} };
    case Display::x11WithinWayland:
        return { "Display", State::limited, "This is a Wayland session: its X server shows menus and windows, but the panel’s corner is out of reach.",
            "Open the menu by its icon in the panel. The corner works in an X11 session." };
    case Display::wayland:
        return { "Display", State::limited, "This is a Wayland session: the menu opens from its icon in the panel only.",
            "Install xwayland, and “zanthe-vell show” works too." };
    case Display::waylandWithoutPlugin:
        return { "Display", State::missing,
            "This Wayland session has no X server, and the toolkit’s plug-in for Wayland is not installed: no window can be shown.",
            "Install qt6-wayland or xwayland." };
    case Display::unreachable:
        return { "Display", State::missing, "The display that the environment names does not answer.",
            "Run this within the desktop session, as the user it belongs to." };
    case Display::none:
        break;
    }
    return { "Display", State::missing, "There is no display: DISPLAY and WAYLAND_DISPLAY are not set.", "Run this within a desktop session." };
}

std::optional<DoctorCheck> windowManagerCheck(DesktopFindings const& found)
{
    if (!isOnX11(found))
        return std::nullopt;
    if (found.hasWindowManager)
        return DoctorCheck { "Windows", State::ok, "A window manager is running.", {} };
    return DoctorCheck { "Windows", State::limited, "No window manager is running: windows have no frame and may not get the keyboard.",
        "Start the desktop’s own, or one such as openbox." };
}

/// X11 only: the display's check covers Wayland.
std::optional<DoctorCheck> cornerCheck(DesktopFindings const& found)
{
    if (!isOnX11(found))
        return std::nullopt;
    return overlayCheck(found.hasCornerPanel ? OverlaySupport::onPanels : OverlaySupport::noPanel);
}

DoctorCheck busCheck(DesktopFindings const& found)
{
    if (found.hasSessionBus)
        return { "Session bus", State::ok, "Programs of this session can talk to each other.", {} };
    return { "Session bus", State::missing,
        "This session has no message bus: no icon in the panel, no notifications, and commands do not reach the running program.",
        "Install dbus-user-session and log in again, or start the session by dbus-run-session." };
}

DoctorCheck statusIconCheck(DesktopFindings const& found)
{
    using StatusIcons = DesktopFindings::StatusIcons;
    if (found.statusIcons == StatusIcons::shown)
        return { "Icon", State::ok, "The panel shows status icons.", {} };
    if (found.isGnome)
        return { "Icon", State::missing, "This desktop shows no status icons by itself.",
            "Install gnome-shell-extension-appindicator, log in again, and switch the extension on." };
    if (found.statusIcons == StatusIcons::withoutHost)
        return { "Icon", State::missing, "Status icons are collected, but no panel shows them.", "Add the panel’s status tray or notification area." };
    return { "Icon", State::missing, "No panel shows status icons (nobody owns org.kde.StatusNotifierWatcher).",
        "Add the panel’s status tray or notification area; the icon appears as soon as it is there." };
}

DoctorCheck pictureCheck(DesktopFindings const& found)
{
    if (!found.hasIconTheme)
        return { "Pictures", State::limited, "No icon theme is installed: most entries of the menu have no picture.",
            "Install one, such as adwaita-icon-theme or papirus-icon-theme." };
    if (!found.readsDrawings)
        return { "Pictures", State::limited, "The toolkit cannot read drawings (SVG), which most pictures of icon themes are.", "Install libqt6svg6." };
    return { "Pictures", State::ok, "An icon theme is installed, and its drawings can be read.", {} };
}

DoctorCheck portalCheck(DesktopFindings const& found)
{
    if (found.hasPortal)
        return { "Colours", State::ok, "The desktop’s portal tells whether dark colours are wanted.", {} };
    return { "Colours", State::limited, "No portal tells whether this desktop wants dark colours: those of the toolkit’s own theme are used.",
        "Install xdg-desktop-portal and the part for this desktop, such as xdg-desktop-portal-gtk." };
}

DoctorCheck notificationCheck(DesktopFindings const& found)
{
    if (found.hasNotifications)
        return { "Notifications", State::ok, "The desktop shows notifications.", {} };
    return { "Notifications", State::limited, "Nothing here shows notifications, such as that of a new version.",
        "Install the desktop’s service for them, such as xfce4-notifyd or dunst." };
}

DoctorCheck fileManagerCheck(DesktopFindings const& found)
{
    using FileManager = DesktopFindings::FileManager;
    switch (found.fileManager) {
    case FileManager::reveals:
        if (found.lacksFilesExtension)
            return { "File manager", State::limited, "Files can be revealed, but Nautilus cannot offer “Add to Zanthe Vell Items”.",
                "Install python3-nautilus and start Nautilus anew." };
        return { "File manager", State::ok, "Files can be revealed.", {} };
    case FileManager::opensFolders:
        return { "File manager", State::limited,
            "No file manager takes “reveal” (org.freedesktop.FileManager1): the folder is opened, and nothing in it selected.",
            "Install one that does, such as thunar, nemo, dolphin or nautilus." };
    case FileManager::none:
        break;
    }
    return { "File manager", State::missing, "No program opens folders.", "Install a file manager, such as thunar." };
}

std::string listed(std::vector<std::string> const& words)
{
    std::string text;
    for (auto const& word : words)
        text += (text.empty() ? "" : ", ") + word;
    return text;
}

std::vector<std::string> sessionCommands(DesktopFindings const& found, Allowed answer)
{
    std::vector<std::string> titles;
    if (found.sleep == answer)
        titles.emplace_back("Sleep");
    if (found.restart == answer)
        titles.emplace_back("Restart");
    if (found.shutDown == answer)
        titles.emplace_back("Shut Down");
    return titles;
}

DoctorCheck sessionCheck(DesktopFindings const& found)
{
    if (!found.hasLoginService)
        return { "Session", State::missing,
            "The login service (logind) does not answer: Sleep fails, and so do the others unless the desktop does them itself.",
            "Install systemd or elogind, with a system bus." };
    auto const refused = sessionCommands(found, Allowed::no);
    auto const asked = sessionCommands(found, Allowed::afterPassword);
    if (!refused.empty())
        return { "Session", State::limited, "The login service does not allow: " + listed(refused) + ".",
            found.hasAuthorization ? "The machine cannot do it, or its administrator forbids it."
                                   : "Install polkitd, which decides what the user of a desktop may do." };
    if (!asked.empty())
        return { "Session", State::limited, "A password is asked for: " + listed(asked) + ".", "The desktop’s polkit agent must be running to ask for it." };
    return { "Session", State::ok, "Sleep, Restart and Shut Down are allowed.", {} };
}

DoctorCheck lockCheck(DesktopFindings const& found)
{
    using ScreenLock = DesktopFindings::ScreenLock;
    switch (found.screenLock) {
    case ScreenLock::saver:
    case ScreenLock::command:
        return { "Lock Screen", State::ok, "The desktop locks the screen.", {} };
    case ScreenLock::loginService:
        return { "Lock Screen", State::limited, "The login service passes “lock the screen” on; whether anybody listens cannot be told.",
            "If nothing happens, run a locker such as light-locker or xss-lock." };
    case ScreenLock::none:
        break;
    }
    return { "Lock Screen", State::missing, "Nothing here locks the screen.", "Install the desktop’s screen saver, or light-locker." };
}

DoctorCheck forceQuitCheck(DesktopFindings const& found)
{
    using ForceQuit = DesktopFindings::ForceQuit;
    switch (found.forceQuit) {
    case ForceQuit::taskManager:
        return { "Force Quit", State::ok, "A task manager is installed.", {} };
    case ForceQuit::clickOnWindow:
        return { "Force Quit", State::limited, "No task manager is installed: a click on a window ends its program.",
            "Install the desktop’s own, such as xfce4-taskmanager or gnome-system-monitor." };
    case ForceQuit::none:
        break;
    }
    return { "Force Quit", State::missing, "Neither a task manager nor xkill is installed.", "Install the desktop’s own task manager, or x11-utils." };
}

std::string titleOf(SystemPlace place)
{
    if (place == SystemPlace::systemSettings)
        return "System Settings";
    return place == SystemPlace::softwareUpdate ? "Software Update" : "App Store";
}

DoctorCheck commandCheck(DesktopFindings const& found)
{
    std::vector<std::string> titles;
    for (auto const place : found.placesWithoutProgram)
        titles.push_back(titleOf(place));
    if (titles.empty())
        return { "Commands", State::ok, "Settings and software have their programs.", {} };
    return { "Commands", State::limited, "No program for this desktop is installed for: " + listed(titles) + ".",
        "Install the desktop’s own, or take these entries out of the menu." };
}

DoctorCheck loginCheck(DesktopFindings const& found)
{
    using Status = LoginService::Status;
    switch (found.openAtLogin) {
    case Status::enabled:
        return { "Login", State::ok, "Zanthe Vell opens at login.", {} };
    case Status::requiresApproval:
        return { "Login", State::limited, "The desktop’s settings switched Zanthe Vell off among the programs that start at login.",
            "Switch it on there; “Open Autostart Settings” in Zanthe Vell’s settings opens them." };
    case Status::notRegistered:
    case Status::notFound:
        break;
    }
    return { "Login", State::ok, "Zanthe Vell does not open at login, as nobody asked for it.", {} };
}

} // namespace

std::vector<DoctorCheck> desktopChecks(DesktopFindings const& found)
{
    std::vector<DoctorCheck> checks { displayCheck(found) };
    for (auto check : { windowManagerCheck(found), cornerCheck(found) }) {
        if (check)
            checks.push_back(std::move(*check));
    }
    checks.push_back(busCheck(found));
    if (found.hasSessionBus) {
        checks.push_back(statusIconCheck(found));
        checks.push_back(portalCheck(found));
        checks.push_back(notificationCheck(found));
    }
    if (canShowWindows(found))
        checks.push_back(hotkeyCheck(found.hotkeys));
    static constexpr std::array others { pictureCheck, fileManagerCheck, sessionCheck, lockCheck, forceQuitCheck, commandCheck, loginCheck };
    for (auto const check : others)
        checks.push_back(check(found));
    return checks;
}

} // namespace zv
