#include "app/shell/RunningProgramTexts.h"
#include "base/Log.h"
#include "base/MainThread.h"
#include "cli/CommandLine.h"
#include "platform/linux/bus/BusConnection.h"
#include "platform/linux/compose/DesktopScale.h"
#include "platform/linux/compose/LinuxCommands.h"
#include "platform/linux/compose/LinuxFrontEnd.h"
#include "platform/linux/compose/ProcessEnvironment.h"
#include "platform/linux/posix/ProgramPlaces.h"
#include "platform/linux/session/DesktopAccess.h"
#include "platform/linux/text/Collation.h"
#include "platform/linux/text/MessageCatalogue.h"
#include "platform/linux/toolkit/DisplayServer.h"

#include <QGuiApplication>

#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

namespace {

int runCommand(std::vector<std::string> const& arguments, zv::Environment const& environment)
{
    std::ios::sync_with_stdio(false);
    zv::LinuxCommands commands({ std::cin, std::cout, std::cerr }, environment);
    return zv::runCommandLine(arguments, commands);
}

/// Ends without the last acts of the libraries: a thread that still waits for a disk or a service may be in them, or be
/// loading one.
[[noreturn]] void end(int status)
{
    std::cout.flush();
    std::cerr.flush();
    std::_Exit(status);
}

/// The desktop's factor for windows counts at the start. On Wayland a menu's stage is a window without a role of the toolkit's making; and one that the
/// compositor is slow to paint must not count as hidden, or its menus would stay so. No argument says that to the toolkit.
void prepareToolkitFor(std::string const& server, int scale, zv::Environment const& environment)
{
    if (server == "xcb" && scale > 1 && !environment.contains("QT_SCREEN_SCALE_FACTORS"))
        zv::setForThisProgramAlone("QT_SCALE_FACTOR", std::to_string(scale).c_str());
    if (!server.starts_with("wayland"))
        return;
    zv::setForThisProgramAlone("QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT", "1");
    zv::setForThisProgramAlone("QT_WAYLAND_FRAME_CALLBACK_TIMEOUT", "-1");
}

/// The toolkit's part for GTK loads all of GTK for a font and colours that we read ourselves, and the toolkit prefers it
/// to its own look of that desktop wherever it is installed: it is left to who names it. KDE and LXQt have parts of their own.
std::string toolkitTheme(zv::Environment const& environment)
{
    auto const desktop = zv::DesktopAccess::of(environment).desktop;
    if (desktop == zv::Desktop::kde || desktop == zv::Desktop::lxqt)
        return "";
    QGuiApplication::setDesktopSettingsAware(false); // what this adds to the named theme
    bool const isNamed = !zv::valueOf(environment, "QT_QPA_PLATFORMTHEME").empty();
    return isNamed || desktop == zv::Desktop::other ? "" : "gnome";
}

/// Where there is no bus to join, the toolkit's library would start one, which outlives this program.
/// https://dbus.freedesktop.org/doc/dbus-launch.1.html, "Automatic Launching"
void startNoBus(zv::Environment const& environment)
{
    if (zv::BusAddresses::of(environment).session.empty())
        zv::setForThisProgramAlone("DBUS_SESSION_BUS_ADDRESS", "disabled:");
}

int runProgram(char* name, zv::Environment const& environment)
{
    int scale = 1;
    auto server = zv::displayServerFor(environment, [&scale](auto* connection) { scale = zv::desktopScale(connection); });
    if (server.empty()) {
        zv::logLine(zv::noDisplayText.english);
        return 1;
    }
    prepareToolkitFor(server, scale, environment);
    // Not by the environment, which all that is started from the menu inherits as it is.
    std::string option = "-platform", themeOption = "-platformtheme", theme = toolkitTheme(environment);
    char* arguments[] = { name, option.data(), server.data(), themeOption.data(), theme.data(), nullptr };
    int count = theme.empty() ? 3 : 5;
    zv::LinuxFrontEnd program(count, arguments, environment);
    return program.run();
}

} // namespace

int main(int argc, char** argv)
{
    zv::markMainThread();
    auto const environment = zv::processEnvironment();
    startNoBus(environment);
    zv::useCollationOf(environment);
    zv::useMessageCatalogue(zv::ProgramPlaces::of(environment).catalogues);
    end(argc > 1 ? runCommand({ argv + 1, argv + argc }, environment) : runProgram(argv[0], environment));
}
