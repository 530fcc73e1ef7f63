#include "app/doctor/DesktopChecks.h"

#include "app/doctor/HotkeyCheck.h"
#include "app/doctor/OverlayCheck.h"
#include "base/Translation.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>

namespace zv {

namespace {

using State = DoctorCheck::State;
using Display = DesktopFindings::Display;
using Allowed = DesktopFindings::Allowed;

bool canShowWindows(DesktopFindings const& found)
{
    static constexpr Display shown[] = { Display::x11, Display::x11WithinWayland, Display::wayland, Display::waylandWithoutLayers };
    return std::ranges::find(shown, found.display) != std::end(shown);
}

bool isOnX11(DesktopFindings const& found) { return found.display == Display::x11; }

std::string gnomeRemedy(DesktopExtension::State extension)
{
    if (extension == DesktopExtension::State::onFromNextLogin)
        return tr("Log in again: our extension is switched on, and takes effect at the next login.");
    if (extension == DesktopExtension::State::off)
        return tr("Switch on our extension of GNOME Shell in the settings (“zanthe-vell settings”), and log in again.");
    return tr("Install the package, which brings our extension of GNOME Shell.");
}

DoctorCheck gnomeCheck(DesktopFindings const& found)
{
    if (found.extension == DesktopExtension::State::on)
        return { tr("Display"), State::ok,
            tr("This is a Wayland session of GNOME, whose Shell runs our extension: the menu opens at its laurel, by keys and commands."), {} };
    return { tr("Display"), State::limited,
        tr("This is a Wayland session of GNOME, which keeps programs off its panel: a menu opens by its icon and by commands, on one screen."),
        gnomeRemedy(found.extension) };
}

DoctorCheck displayCheck(DesktopFindings const& found)
{
    switch (found.display) {
    case Display::x11:
        return { tr("Display"), State::ok, tr("An X server shows menus and windows."), {} };
    case Display::x11WithinWayland:
        return { tr("Display"), State::limited,
            tr("This is a Wayland session, but menus and windows go through its X server: a click on another program’s window closes no menu, and the corner "
               "is "
               "out of reach."),
            tr("Install qt6-wayland, and take xcb out of QT_QPA_PLATFORM if it is there.") };
    case Display::wayland:
        return { tr("Display"), State::ok, tr("This is a Wayland session, whose compositor (with a layer shell) lets menus open anywhere."), {} };
    case Display::waylandWithoutLayers:
        if (found.isGnome)
            return gnomeCheck(found);
        return { tr("Display"), State::limited,
            tr("This Wayland session keeps programs off its panels (its compositor has no layer shell): a menu opens by its icon and by commands, beside the "
               "panels and on one screen, and there is no corner."),
            tr("A key binding of the desktop can run “zanthe-vell show”.") };
    case Display::waylandWithoutPlugin:
        return { tr("Display"), State::missing,
            tr("This Wayland session has no X server, and the toolkit’s plug-in for Wayland is not installed: no window can be shown."),
            tr("Install qt6-wayland.") };
    case Display::unreachable:
        return { tr("Display"), State::missing, tr("The display that the environment names does not answer."),
            tr("Run this within the desktop session, as the user it belongs to.") };
    case Display::none:
        break;
    }
    return { tr("Display"), State::missing, tr("There is no display: DISPLAY and WAYLAND_DISPLAY are not set."), tr("Run this within a desktop session.") };
}

std::optional<DoctorCheck> windowManagerCheck(DesktopFindings const& found)
{
    if (!isOnX11(found))
        return std::nullopt;
    if (found.hasWindowManager)
        return DoctorCheck { tr("Windows"), State::ok, tr("A window manager is running."), {} };
    return DoctorCheck { tr("Windows"), State::limited, tr("No window manager is running: windows have no frame and may not get the keyboard."),
        tr("Start the desktop’s own, or one such as openbox.") };
}

/// Elsewhere the display's check says it.
std::optional<DoctorCheck> cornerCheck(DesktopFindings const& found)
{
    if (found.display == Display::wayland)
        return overlayCheck(OverlaySupport::onPanels);
    if (!isOnX11(found))
        return std::nullopt;
    return overlayCheck(found.hasCornerPanel ? OverlaySupport::onPanels : OverlaySupport::noPanel);
}

DoctorCheck busCheck(DesktopFindings const& found)
{
    if (found.hasSessionBus)
        return { tr("Session bus"), State::ok, tr("Programs of this session can talk to each other."), {} };
    return { tr("Session bus"), State::missing,
        tr("This session has no message bus: no icon in the panel, no notifications, and commands do not reach the running program."),
        tr("Install dbus-user-session and log in again, or start the session by dbus-run-session.") };
}

DoctorCheck statusIconCheck(DesktopFindings const& found)
{
    using StatusIcons = DesktopFindings::StatusIcons;
    if (found.statusIcons == StatusIcons::shown)
        return { tr("Icon"), State::ok, tr("The panel shows status icons."), {} };
    if (found.isGnome)
        return { tr("Icon"), State::missing, tr("This desktop shows no status icons by itself."),
            tr("Install gnome-shell-extension-appindicator, log in again, and switch the extension on.") };
    if (found.statusIcons == StatusIcons::withoutHost)
        return { tr("Icon"), State::missing, tr("Status icons are collected, but no panel shows them."),
            tr("Add the panel’s status tray or notification area.") };
    return { tr("Icon"), State::missing, tr("No panel shows status icons (nobody owns org.kde.StatusNotifierWatcher)."),
        tr("Add the panel’s status tray or notification area; the icon appears as soon as it is there.") };
}

DoctorCheck pictureCheck(DesktopFindings const& found)
{
    if (!found.hasIconTheme)
        return { tr("Pictures"), State::limited, tr("No icon theme is installed: most entries of the menu have no picture."),
            tr("Install one, such as adwaita-icon-theme or papirus-icon-theme.") };
    if (!found.readsDrawings)
        return { tr("Pictures"), State::limited, tr("The toolkit cannot read drawings (SVG), which most pictures of icon themes are."),
            tr("Install libqt6svg6.") };
    return { tr("Pictures"), State::ok, tr("An icon theme is installed, and its drawings can be read."), {} };
}

DoctorCheck portalCheck(DesktopFindings const& found)
{
    if (found.hasPortal)
        return { tr("Colours"), State::ok, tr("The desktop’s portal tells whether dark colours are wanted."), {} };
    return { tr("Colours"), State::limited, tr("No portal tells whether this desktop wants dark colours: those of the toolkit’s own theme are used."),
        tr("Install xdg-desktop-portal and the part for this desktop, such as xdg-desktop-portal-gtk.") };
}

DoctorCheck notificationCheck(DesktopFindings const& found)
{
    if (found.hasNotifications)
        return { tr("Notifications"), State::ok, tr("The desktop shows notifications."), {} };
    return { tr("Notifications"), State::limited, tr("Nothing here shows notifications, such as that of a new version."),
        tr("Install the desktop’s service for them, such as xfce4-notifyd or dunst.") };
}

DoctorCheck fileManagerCheck(DesktopFindings const& found)
{
    using FileManager = DesktopFindings::FileManager;
    switch (found.fileManager) {
    case FileManager::reveals:
        if (found.lacksFilesExtension)
            return { tr("File manager"), State::limited, tr("Files can be revealed, but Nautilus cannot offer “Add to Zanthe Vell Items”."),
                tr("Install python3-nautilus and start Nautilus anew.") };
        return { tr("File manager"), State::ok, tr("Files can be revealed."), {} };
    case FileManager::opensFolders:
        return { tr("File manager"), State::limited,
            tr("No file manager takes “reveal” (org.freedesktop.FileManager1): the folder is opened, and nothing in it selected."),
            tr("Install one that does, such as thunar, nemo, dolphin or nautilus.") };
    case FileManager::none:
        break;
    }
    return { tr("File manager"), State::missing, tr("No program opens folders."), tr("Install a file manager, such as thunar.") };
}

std::vector<std::string> sessionCommands(DesktopFindings const& found, Allowed answer)
{
    std::vector<std::string> titles;
    if (found.sleep == answer)
        titles.emplace_back(trc("command", "Sleep"));
    if (found.restart == answer)
        titles.emplace_back(trc("command, at once", "Restart"));
    if (found.shutDown == answer)
        titles.emplace_back(trc("command, at once", "Shut Down"));
    return titles;
}

DoctorCheck sessionCheck(DesktopFindings const& found)
{
    if (!found.hasLoginService)
        return { tr("Session"), State::missing,
            tr("The login service (logind) does not answer: Sleep fails, and so do the others unless the desktop does them itself."),
            tr("Install systemd or elogind, with a system bus.") };
    auto const refused = sessionCommands(found, Allowed::no);
    auto const asked = sessionCommands(found, Allowed::afterPassword);
    if (!refused.empty())
        return { tr("Session"), State::limited, tr("The login service does not allow: %1.", listed(refused)),
            found.hasAuthorization ? tr("The machine cannot do it, or its administrator forbids it.")
                                   : tr("Install polkitd, which decides what the user of a desktop may do.") };
    if (!asked.empty())
        return { tr("Session"), State::limited, tr("A password is asked for: %1.", listed(asked)),
            tr("The desktop’s polkit agent must be running to ask for it.") };
    return { tr("Session"), State::ok, tr("Sleep, Restart and Shut Down are allowed."), {} };
}

DoctorCheck lockCheck(DesktopFindings const& found)
{
    using ScreenLock = DesktopFindings::ScreenLock;
    switch (found.screenLock) {
    case ScreenLock::saver:
    case ScreenLock::command:
        return { tr("Lock Screen"), State::ok, tr("The desktop locks the screen."), {} };
    case ScreenLock::loginService:
        return { tr("Lock Screen"), State::limited, tr("The login service passes “lock the screen” on; whether anybody listens cannot be told."),
            tr("If nothing happens, run a locker such as light-locker or xss-lock.") };
    case ScreenLock::none:
        break;
    }
    return { tr("Lock Screen"), State::missing, tr("Nothing here locks the screen."), tr("Install the desktop’s screen saver, or light-locker.") };
}

DoctorCheck forceQuitCheck(DesktopFindings const& found)
{
    using ForceQuit = DesktopFindings::ForceQuit;
    switch (found.forceQuit) {
    case ForceQuit::taskManager:
        return { tr("Force Quit"), State::ok, tr("A task manager is installed."), {} };
    case ForceQuit::clickOnWindow:
        return { tr("Force Quit"), State::limited, tr("No task manager is installed: a click on a window ends its program."),
            tr("Install the desktop’s own, such as xfce4-taskmanager or gnome-system-monitor.") };
    case ForceQuit::none:
        break;
    }
    return { tr("Force Quit"), State::missing, tr("No task manager is installed, and xkill is missing or of no use in a Wayland session."),
        tr("Install the desktop’s own task manager, or x11-utils in an X11 session.") };
}

std::string titleOf(SystemPlace place)
{
    if (place == SystemPlace::systemSettings)
        return tr("System Settings");
    return place == SystemPlace::softwareUpdate ? tr("Software Update") : tr("App Store");
}

DoctorCheck commandCheck(DesktopFindings const& found)
{
    std::vector<std::string> titles;
    for (auto const place : found.placesWithoutProgram)
        titles.push_back(titleOf(place));
    if (titles.empty())
        return { tr("Commands"), State::ok, tr("Settings and software have their programs."), {} };
    return { tr("Commands"), State::limited, tr("No program for this desktop is installed for: %1.", listed(titles)),
        tr("Install the desktop’s own, or take these entries out of the menu.") };
}

DoctorCheck loginCheck(DesktopFindings const& found)
{
    using Status = LoginService::Status;
    switch (found.openAtLogin) {
    case Status::enabled:
        return { tr("Login"), State::ok, tr("Zanthe Vell opens at login."), {} };
    case Status::requiresApproval:
        return { tr("Login"), State::limited, tr("The desktop’s settings switched Zanthe Vell off among the programs that start at login."),
            tr("Switch it on there; “Open Autostart Settings” in Zanthe Vell’s settings opens them.") };
    case Status::notRegistered:
    case Status::notFound:
        break;
    }
    return { tr("Login"), State::ok, tr("Zanthe Vell does not open at login, as nobody asked for it."), {} };
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
        checks.push_back(hotkeyCheck(found.hotkeys, found.bindingOfShow, found.key));
    static constexpr std::array others { pictureCheck, fileManagerCheck, sessionCheck, lockCheck, forceQuitCheck, commandCheck, loginCheck };
    for (auto const check : others)
        checks.push_back(check(found));
    return checks;
}

} // namespace zv
