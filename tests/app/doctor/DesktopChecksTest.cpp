#include "app/doctor/DesktopChecks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>

namespace zv {
namespace {

using State = DoctorCheck::State;
using Found = DesktopFindings;

/// A desktop that lacks nothing.
Found everything()
{
    Found found;
    found.display = Found::Display::x11;
    found.hasWindowManager = found.hasCornerPanel = found.hasIconTheme = found.readsDrawings = true;
    found.hotkeys = HotkeySupport::everywhere;
    found.hasSessionBus = found.hasPortal = found.hasNotifications = true;
    found.statusIcons = Found::StatusIcons::shown;
    found.fileManager = Found::FileManager::reveals;
    found.hasLoginService = found.hasAuthorization = true;
    found.sleep = found.restart = found.shutDown = Found::Allowed::yes;
    found.screenLock = Found::ScreenLock::saver;
    found.forceQuit = Found::ForceQuit::taskManager;
    found.openAtLogin = LoginService::Status::enabled;
    return found;
}

TEST(DesktopChecks, FindNothingWhereNothingIsWanting)
{
    auto onWayland = everything();
    onWayland.display = Found::Display::wayland;
    onWayland.hasWindowManager = onWayland.hasCornerPanel = false; // of X11
    for (auto const& found : { everything(), onWayland }) {
        for (auto const& check : desktopChecks(found)) {
            EXPECT_EQ(check.state, State::ok) << check.name << ": " << check.explanation;
            EXPECT_EQ(check.remedy, "") << check.name;
        }
    }
}

using Extension = DesktopExtension::State;

std::function<void(Found&)> onGnome(Extension extension)
{
    return [extension](Found& f) { f.display = Found::Display::waylandWithoutLayers, f.isGnome = true, f.extension = extension; };
}

TEST(DesktopChecks, SayOfEachThingThatIsWantingWhatToDo)
{
    struct Row {
        char const* what;
        std::function<void(Found&)> takeAway;
        std::string check;
        State state;
        std::string remedy; ///< a part of it
    };
    Row const rows[] = {
        { "no display", [](Found& f) { f.display = Found::Display::none; }, "Display", State::missing, "within a desktop session" },
        { "a stranger's display", [](Found& f) { f.display = Found::Display::unreachable; }, "Display", State::missing, "the user it belongs to" },
        { "Wayland, no plug-in", [](Found& f) { f.display = Found::Display::waylandWithoutPlugin; }, "Display", State::missing, "qt6-wayland" },
        { "Wayland", [](Found& f) { f.display = Found::Display::waylandWithoutLayers; }, "Display", State::limited, "zanthe-vell show" },
        { "GNOME alone", onGnome(Extension::missing), "Display", State::limited, "Install the package" },
        { "GNOME, extension off", onGnome(Extension::off), "Display", State::limited, "in the settings" },
        { "GNOME before the login", onGnome(Extension::onFromNextLogin), "Display", State::limited, "Log in again" },
        { "Wayland with X", [](Found& f) { f.display = Found::Display::x11WithinWayland; }, "Display", State::limited, "QT_QPA_PLATFORM" },
        { "Hyprland",
            [](Found& f) {
                f.hotkeys = HotkeySupport::none, f.bindingOfShow = { "~/keys", "a key" };
            },
            "Hotkeys", State::missing, "~/keys: a key" },
        { "GNOME's own keys", [](Found& f) { f.hotkeys = HotkeySupport::none, f.key = { true }; }, "Hotkeys", State::missing, "Record a key" },
        { "one of them",
            [](Found& f) {
                f.hotkeys = HotkeySupport::none, f.key = { true, { { "m", false, commandKey } } };
            },
            "Hotkeys", State::limited, "perform" },
        { "no window manager", [](Found& f) { f.hasWindowManager = false; }, "Windows", State::limited, "openbox" },
        { "no panel at an edge", [](Found& f) { f.hasCornerPanel = false; }, "Corner", State::limited, "As soon as one comes" },
        { "no session bus", [](Found& f) { f.hasSessionBus = false; }, "Session bus", State::missing, "dbus-user-session" },
        { "no tray", [](Found& f) { f.statusIcons = Found::StatusIcons::noWatcher; }, "Icon", State::missing, "status tray" },
        { "a tray nobody shows", [](Found& f) { f.statusIcons = Found::StatusIcons::withoutHost; }, "Icon", State::missing, "status tray" },
        { "no tray on GNOME", [](Found& f) { f.isGnome = true, f.statusIcons = Found::StatusIcons::noWatcher; }, "Icon", State::missing, "appindicator" },
        { "no portal", [](Found& f) { f.hasPortal = false; }, "Colours", State::limited, "xdg-desktop-portal" },
        { "no notifications", [](Found& f) { f.hasNotifications = false; }, "Notifications", State::limited, "dunst" },
        { "no shortcuts", [](Found& f) { f.hotkeys = HotkeySupport::none; }, "Hotkeys", State::missing, "zanthe-vell perform" },
        { "no icon theme", [](Found& f) { f.hasIconTheme = false; }, "Pictures", State::limited, "adwaita-icon-theme" },
        { "no SVG", [](Found& f) { f.readsDrawings = false; }, "Pictures", State::limited, "libqt6svg6" },
        { "nobody reveals", [](Found& f) { f.fileManager = Found::FileManager::opensFolders; }, "File manager", State::limited, "thunar" },
        { "no file manager", [](Found& f) { f.fileManager = Found::FileManager::none; }, "File manager", State::missing, "thunar" },
        { "Nautilus alone", [](Found& f) { f.lacksFilesExtension = true; }, "File manager", State::limited, "python3-nautilus" },
        { "no logind", [](Found& f) { f.hasLoginService = false; }, "Session", State::missing, "elogind" },
        { "no polkit", [](Found& f) { f.hasAuthorization = false, f.sleep = Found::Allowed::no; }, "Session", State::limited, "polkitd" },
        { "sleep forbidden", [](Found& f) { f.sleep = Found::Allowed::no; }, "Session", State::limited, "administrator" },
        { "a password", [](Found& f) { f.restart = Found::Allowed::afterPassword; }, "Session", State::limited, "agent" },
        { "no locker", [](Found& f) { f.screenLock = Found::ScreenLock::none; }, "Lock Screen", State::missing, "light-locker" },
        { "perhaps a locker", [](Found& f) { f.screenLock = Found::ScreenLock::loginService; }, "Lock Screen", State::limited, "xss-lock" },
        { "no task manager", [](Found& f) { f.forceQuit = Found::ForceQuit::clickOnWindow; }, "Force Quit", State::limited, "task" },
        { "no xkill", [](Found& f) { f.forceQuit = Found::ForceQuit::none; }, "Force Quit", State::missing, "x11-utils" },
        { "no settings", [](Found& f) { f.placesWithoutProgram = { SystemPlace::systemSettings }; }, "Commands", State::limited, "out of the menu" },
        { "switched off", [](Found& f) { f.openAtLogin = LoginService::Status::requiresApproval; }, "Login", State::limited, "Switch it on" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.what);
        auto found = everything();
        row.takeAway(found);
        auto const checks = desktopChecks(found);
        auto const check = std::ranges::find(checks, row.check, &DoctorCheck::name);
        ASSERT_NE(check, checks.end());
        EXPECT_EQ(check->state, row.state);
        EXPECT_NE(check->remedy.find(row.remedy), std::string::npos) << check->remedy;
        EXPECT_EQ(std::ranges::count_if(checks, [](auto const& other) { return other.state != State::ok; }), 1) << "one cause, one complaint";
    }
    for (auto const& check : desktopChecks(everything()))
        EXPECT_TRUE(std::ranges::count(rows, check.name, &Row::check)) << check.name << " has no row";
}

TEST(DesktopChecks, NameTheCommandsThatAreNotAllowed)
{
    auto found = everything();
    found.sleep = found.shutDown = Found::Allowed::no;
    found.placesWithoutProgram = { SystemPlace::softwareUpdate, SystemPlace::softwareStore };
    std::set<std::string> explanations;
    for (auto const& check : desktopChecks(found))
        explanations.insert(check.explanation);
    EXPECT_TRUE(explanations.contains("The login service does not allow: Sleep, Shut Down."));
    EXPECT_TRUE(explanations.contains("No program for this desktop is installed for: Software Update, App Store."));
}

} // namespace
} // namespace zv
