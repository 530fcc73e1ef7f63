#include "platform/linux/qt/DisplayServer.h"

#include <QGuiApplication>
#include <QLibraryInfo>

#include <QDir>

#include <xcb/xcb.h>

namespace zv {

namespace {

constexpr char const* choice = "QT_QPA_PLATFORM";

bool doesXAnswer()
{
    if (qEnvironmentVariableIsEmpty("DISPLAY"))
        return false;
    auto* connection = xcb_connect(nullptr, nullptr);
    bool const answers = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return answers;
}

bool canUseWayland()
{
    QDir const plugins(QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms"));
    return !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") && !plugins.entryList({ QStringLiteral("libqwayland*") }).isEmpty();
}

} // namespace

bool isWaylandSession() { return qEnvironmentVariableIsSet("WAYLAND_DISPLAY") || qgetenv("XDG_SESSION_TYPE") == "wayland"; }

void chooseDisplayServer()
{
    auto const chosen = qgetenv(choice);
    if (!chosen.isEmpty() && !chosen.startsWith("xcb"))
        return;
    if (doesXAnswer())
        qputenv(choice, "xcb");
    else
        qputenv(choice, canUseWayland() ? "wayland" : "offscreen");
}

bool canPlaceWindows() { return qGuiApp && QGuiApplication::platformName() == QLatin1String("xcb"); }

} // namespace zv
