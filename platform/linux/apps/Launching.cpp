#include "platform/linux/apps/Launching.h"

#include "platform/linux/bus/BusConnection.h"
#include "platform/linux/entries/DesktopEntry.h"
#include "platform/linux/entries/PackageName.h"
#include "platform/linux/posix/GObjects.h"
#include "platform/linux/posix/WholeFiles.h"

#include <sys/stat.h>
#include <unistd.h>

#include <optional>
#include <string_view>

namespace zv {

namespace {

constexpr std::chrono::seconds fileManagerTimeout { 10 };
constexpr int maximumLinkSteps = 8;

bool isFolder(std::string const& path)
{
    struct stat information { };
    return ::stat(path.c_str(), &information) == 0 && S_ISDIR(information.st_mode);
}

bool isProgramFile(std::string const& path)
{
    struct stat information { };
    return !isApplicationEntryName(path) && ::stat(path.c_str(), &information) == 0 && S_ISREG(information.st_mode) && ::access(path.c_str(), X_OK) == 0;
}

/// The start program of an application folder; empty for a plain folder.
std::string startProgramOf(Url const& url)
{
    if (!isPackageFolderName(url.lastPathComponent()) || !isFolder(url.path()))
        return {};
    auto const program = url.appending("AppRun").path();
    return ::access(program.c_str(), X_OK) == 0 ? program : "";
}

Result<void> resultOf(GErrorSlot& error)
{
    if (error)
        return Failure { error.get()->message };
    return {};
}

Result<void> startProgram(std::string const& path)
{
    auto const home = GString8(g_strdup(g_get_home_dir()));
    char* arguments[] = { const_cast<char*>(path.c_str()), nullptr };
    GErrorSlot error;
    g_spawn_async(home.get(), arguments, nullptr, G_SPAWN_DEFAULT, nullptr, nullptr, nullptr, error.out());
    return resultOf(error);
}

Result<void> launchEntry(std::string const& path, std::string const& sessionBus)
{
    GObjectRef<GDesktopAppInfo> const entry(g_desktop_app_info_new_from_filename(path.c_str()));
    if (!entry)
        return Failure { "no application entry that can be started" };
    GErrorSlot error;
    g_app_info_launch(G_APP_INFO(entry.get()), nullptr, nullptr, error.out());
    flushSharedBus(sessionBus);
    return resultOf(error);
}

/// The target of an entry of type Link.
std::optional<Url> linkTarget(std::string const& path)
{
    auto const text = readTextFile(path).value_or("");
    DesktopEntry const entry(text);
    auto const url = entry.text("Type") == "Link" ? entry.text("URL") : "";
    return url.starts_with('/') ? Url::fromPath(url) : Url::parse(url);
}

Result<void> openInHandler(Url const& url, std::string const& sessionBus)
{
    GErrorSlot error;
    g_app_info_launch_default_for_uri(url.toString().c_str(), nullptr, error.out());
    flushSharedBus(sessionBus);
    return resultOf(error);
}

bool isApplicationEntry(Url const& url) { return url.isFile() && isApplicationEntryName(url.lastPathComponent()) && !isFolder(url.path()); }

} // namespace

/// The shared connection must not end this program when it closes.
void flushSharedBus(std::string const& sessionBus)
{
    if (sessionBus.empty())
        return;
    GObjectRef<GDBusConnection> const bus(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
    if (!bus)
        return;
    g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
    g_dbus_connection_flush_sync(bus.get(), nullptr, nullptr);
}

bool isApplication(Url const& url) { return isApplicationEntry(url) || !startProgramOf(url).empty(); }

Result<void> launchApplication(Url const& application, std::string const& sessionBus)
{
    if (isProgramFile(application.path()))
        return startProgram(application.path());
    if (auto const program = startProgramOf(application); !program.empty())
        return startProgram(program);
    return launchEntry(application.path(), sessionBus);
}

Result<void> openUrl(Url const& url, std::string const& sessionBus)
{
    auto current = url;
    for (int step = 0; step < maximumLinkSteps; ++step) {
        if (!startProgramOf(current).empty())
            return launchApplication(current, sessionBus);
        if (!isApplicationEntry(current))
            return openInHandler(current, sessionBus);
        auto const target = linkTarget(current.path());
        if (!target)
            return launchApplication(current, sessionBus);
        current = *target;
    }
    return Failure { "the links lead nowhere" };
}

Result<void> revealFile(Url const& fileURL, std::string const& sessionBus)
{
    // https://www.freedesktop.org/wiki/Specifications/file-manager-interface
    static constexpr BusObject fileManager { "org.freedesktop.FileManager1", "/org/freedesktop/FileManager1", "org.freedesktop.FileManager1" };
    Deadline const deadline(fileManagerTimeout);
    if (auto const bus = BusConnection::open(sessionBus, deadline)) {
        char const* const urls[] = { fileURL.toString().c_str() };
        auto* const arguments = g_variant_new("(@ass)", g_variant_new_strv(urls, 1), "");
        auto const reply = bus->call(fileManager, "ShowItems", arguments, deadline);
        // A slow file manager shows the file all the same; opening the folder would be a second window.
        if (reply || reply.error().kind == BusFailure::Kind::timedOut)
            return {};
    }
    return openInHandler(fileURL.parent(), sessionBus);
}

} // namespace zv
