#include "platform/linux/toolkit/DisplayServer.h"

#include "base/Split.h"
#include "platform/linux/posix/FileDescriptor.h"

#include <QDir>
#include <QLibraryInfo>

#include <algorithm>
#include <sys/socket.h>
#include <sys/un.h>
#include <xcb/xcb.h>

namespace zv {

namespace {

bool doesXAnswer(Environment const& environment, std::function<void(xcb_connection_t*)> const& onX)
{
    if (valueOf(environment, "DISPLAY").empty())
        return false;
    auto* connection = xcb_connect(nullptr, nullptr);
    bool const answers = xcb_connection_has_error(connection) == 0;
    if (answers && onX)
        onX(connection);
    xcb_disconnect(connection);
    return answers;
}

bool answers(std::string_view platform, Environment const& environment, std::function<void(xcb_connection_t*)> const& onX)
{
    if (platform.starts_with("xcb"))
        return doesXAnswer(environment, onX);
    // The toolkit would end the program if no server answered.
    return !platform.starts_with("wayland") || (hasWaylandPlugin() && doesWaylandAnswer(environment));
}

} // namespace

SessionKind sessionKindOf(Environment const& environment)
{
    bool const isWayland = environment.contains("WAYLAND_DISPLAY") || valueOf(environment, "XDG_SESSION_TYPE") == "wayland";
    return isWayland ? SessionKind::wayland : SessionKind::x11;
}

std::string displayServerFor(Environment const& environment, std::function<void(xcb_connection_t*)> const& onX)
{
    auto const chosen = valueOf(environment, "QT_QPA_PLATFORM");
    auto candidates = split(chosen, ';');
    candidates.insert(candidates.end(), { "wayland", "xcb" });
    auto const found = std::ranges::find_if(candidates, [&](auto candidate) { return answers(candidate, environment, onX); });
    if (found != candidates.end())
        return std::string(*found);
    return doesWaylandAnswer(environment) ? "offscreen" : "";
}

bool hasWaylandPlugin()
{
    QDir const plugins(QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms"));
    return !plugins.entryList({ QStringLiteral("libqwayland*") }).isEmpty();
}

bool doesWaylandAnswer(Environment const& environment)
{
    if (!valueOf(environment, "WAYLAND_SOCKET").empty()) // an inherited open connection
        return true;
    auto const display = valueOf(environment, "WAYLAND_DISPLAY");
    auto const path = display.starts_with('/') ? display : valueOf(environment, "XDG_RUNTIME_DIR") + "/" + display;
    sockaddr_un address { AF_UNIX, {} };
    if (display.empty() || path.size() >= sizeof address.sun_path)
        return false;
    path.copy(address.sun_path, path.size());
    FileDescriptor const connection(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    return connect(connection.get(), reinterpret_cast<sockaddr const*>(&address), sizeof address) == 0;
}

} // namespace zv
