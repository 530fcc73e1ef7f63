#include "platform/linux/toolkit/DisplayServer.h"

#include "platform/linux/posix/FileDescriptor.h"

#include <QByteArrayList>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QLibraryInfo>

#include <algorithm>
#include <sys/socket.h>
#include <sys/un.h>
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

bool answers(QByteArray const& platform)
{
    if (platform.startsWith("xcb"))
        return doesXAnswer();
    // The toolkit would end the program if it found nobody there.
    return !platform.startsWith("wayland") || (hasWaylandPlugin() && doesWaylandAnswer());
}

} // namespace

bool isWaylandSession() { return qEnvironmentVariableIsSet("WAYLAND_DISPLAY") || qgetenv("XDG_SESSION_TYPE") == "wayland"; }

void chooseDisplayServer()
{
    auto candidates = qgetenv(choice).split(';');
    candidates.removeAll({});
    candidates.append({ "xcb", "wayland", "offscreen" });
    qputenv(choice, *std::find_if(candidates.begin(), candidates.end(), answers));
}

bool hasWaylandPlugin()
{
    QDir const plugins(QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms"));
    return !plugins.entryList({ QStringLiteral("libqwayland*") }).isEmpty();
}

bool doesWaylandAnswer()
{
    if (!qEnvironmentVariableIsEmpty("WAYLAND_SOCKET")) // an open connection, handed down
        return true;
    auto const display = QFile::decodeName(qgetenv("WAYLAND_DISPLAY"));
    auto const path = QFile::encodeName(QDir(QFile::decodeName(qgetenv("XDG_RUNTIME_DIR"))).absoluteFilePath(display)).toStdString();
    sockaddr_un address { AF_UNIX, {} };
    if (display.isEmpty() || path.size() >= sizeof address.sun_path)
        return false;
    path.copy(address.sun_path, path.size());
    FileDescriptor const connection(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    return connect(connection.get(), reinterpret_cast<sockaddr const*>(&address), sizeof address) == 0;
}

bool canPlaceWindows() { return qGuiApp && QGuiApplication::platformName() == QLatin1String("xcb"); }

} // namespace zv
