#include "platform/linux/apps/Launching.h"

#include "platform/linux/bus/BusConnection.h"
#include "platform/linux/entries/DesktopEntry.h"
#include "platform/linux/entries/Startable.h"
#include "platform/linux/posix/GObjects.h"
#include "platform/linux/posix/LaunchContext.h"
#include "platform/linux/posix/WholeFiles.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <optional>
#include <string_view>

namespace zv {

namespace {

constexpr int maximumLinkSteps = 8;
constexpr mode_t permissionBits = 07777;

Result<void> resultOf(GErrorSlot& error)
{
    if (error)
        return Failure { error.get()->message };
    return {};
}

/// Runs in the child before its program: away from our terminal, and without what we print to, which a reader would wait
/// for to be closed.
void detach(void*)
{
    ::setsid();
    int const nothing = ::open("/dev/null", O_RDWR);
    for (int const descriptor : { STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO })
        ::dup2(nothing, descriptor);
    if (nothing > STDERR_FILENO)
        ::close(nothing);
}

/// Starts the application with an address, or without one.
Result<void> launch(GAppInfo* application, char const* uri, std::string const& sessionBus)
{
    GList uris { const_cast<char*>(uri), nullptr, nullptr };
    GErrorSlot error;
    g_desktop_app_info_launch_uris_as_manager(
        G_DESKTOP_APP_INFO(application), uri ? &uris : nullptr, launchContext().get(), G_SPAWN_SEARCH_PATH, detach, nullptr, nullptr, nullptr, error.out());
    flushSharedBus(sessionBus);
    return resultOf(error);
}

Result<void> startProgram(std::string const& path)
{
    auto const home = GString8(g_strdup(g_get_home_dir()));
    char* arguments[] = { const_cast<char*>(path.c_str()), nullptr };
    GObjectRef<char*> const environment(g_app_launch_context_get_environment(launchContext().get()));
    GErrorSlot error;
    g_spawn_async(home.get(), arguments, environment.get(), G_SPAWN_DEFAULT, detach, nullptr, nullptr, error.out());
    return resultOf(error);
}

mode_t modeOf(std::string const& path)
{
    struct stat status { };
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & permissionBits : 0;
}

/// A downloaded program lacks the executable bit, which it gets for as long as starting it takes.
Result<void> startProgramOnce(std::string const& path)
{
    auto const mode = modeOf(path);
    if ((mode & S_IXUSR) != 0)
        return startProgram(path);
    ::chmod(path.c_str(), mode | S_IXUSR);
    auto started = startProgram(path);
    ::chmod(path.c_str(), mode);
    return started;
}

Result<void> launchEntry(std::string const& path, std::string const& sessionBus)
{
    GObjectRef<GDesktopAppInfo> const entry(g_desktop_app_info_new_from_filename(path.c_str()));
    if (!entry)
        return Failure { "no application entry that can be started" };
    return launch(G_APP_INFO(entry.get()), nullptr, sessionBus);
}

/// Empty unless the entry is of type Link.
std::string addressOf(DesktopEntry const& entry) { return entry.text("Type") == "Link" ? entry.text("URL") : ""; }

/// The target of an entry of type Link.
std::optional<Url> linkTarget(std::string const& path)
{
    auto const text = readTextFile(path).value_or("");
    auto const address = addressOf(DesktopEntry(text));
    return address.starts_with('/') ? Url::fromPath(address) : Url::parse(address);
}

std::string commandOf(Startable const& startable)
{
    if (startable.kind != Startable::Kind::entry)
        return startable.file;
    auto const text = readTextFile(startable.file).value_or("");
    DesktopEntry const entry(text);
    auto const address = addressOf(entry);
    return address.empty() ? entry.text("Exec") : address;
}

Result<void> openInHandler(Url const& url, std::string const& sessionBus)
{
    auto const* const uri = url.toString().c_str();
    GObjectRef<GAppInfo> handler(g_app_info_get_default_for_uri_scheme(url.scheme().c_str()));
    GErrorSlot error;
    if (!handler) {
        GObjectRef<GFile> const file(g_file_new_for_uri(uri));
        handler.reset(g_file_query_default_handler(file.get(), nullptr, error.out()));
    }
    return handler ? launch(handler.get(), uri, sessionBus) : resultOf(error);
}

Result<void> launch(Startable const& startable, std::string const& sessionBus)
{
    return startable.kind == Startable::Kind::entry ? launchEntry(startable.file, sessionBus) : startProgramOnce(startable.file);
}

Result<void, OpenFailure> withReason(Result<void> const& done)
{
    if (!done)
        return Failure { OpenFailure { done.error() } };
    return {};
}

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

bool isApplication(Url const& url) { return url.isFile() && startableAt(url.path()).has_value(); }

Result<void> launchApplication(Url const& application, std::string const& sessionBus)
{
    auto const startable = startableAt(application.path());
    return startable ? launch(*startable, sessionBus) : Failure { std::string("no application that can be started") };
}

Result<void, OpenFailure> openUrl(Url const& url, std::string const& sessionBus, StartTrust const& trust, std::optional<UntrustedStart> const& agreed)
{
    auto current = url;
    for (int step = 0; step < maximumLinkSteps; ++step) {
        auto const startable = current.isFile() ? startableAt(current.path()) : std::nullopt;
        if (!startable)
            return withReason(openInHandler(current, sessionBus));
        if (!trust.trusts(startable->file)) {
            UntrustedStart const start { current, commandOf(*startable), trust.canBeTrusted(startable->file) };
            if (start != agreed)
                return Failure { OpenFailure { "it was not installed as an application", start } };
        }
        auto const target = startable->kind == Startable::Kind::entry ? linkTarget(startable->file) : std::nullopt;
        if (!target)
            return withReason(launch(*startable, sessionBus));
        current = *target;
    }
    return Failure { OpenFailure { "the links lead nowhere" } };
}

void makeExecutable(std::string const& path)
{
    if (auto const startable = startableAt(path))
        ::chmod(startable->file.c_str(), modeOf(startable->file) | S_IXUSR);
}

Result<void> revealFile(Url const& fileURL, std::string const& sessionBus, std::chrono::milliseconds patience)
{
    // https://www.freedesktop.org/wiki/Specifications/file-manager-interface
    static constexpr BusObject fileManager { "org.freedesktop.FileManager1", "/org/freedesktop/FileManager1", "org.freedesktop.FileManager1" };
    Deadline const deadline(patience);
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
