#include "platform/linux/bus/BusConnection.h"

#include <unistd.h>

#include <algorithm>
#include <condition_variable>
#include <iterator>
#include <mutex>
#include <string_view>
#include <thread>

namespace zv {

namespace {

std::string socketAddress(std::string const& path) { return ::access(path.c_str(), R_OK | W_OK) == 0 ? "unix:path=" + path : ""; }

/// D-Bus, "Message Bus Messages", at https://dbus.freedesktop.org/doc/
constexpr BusObject bus { "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus" };

struct NamedKind {
    std::string_view name;
    BusFailure::Kind kind;
};

using Kind = BusFailure::Kind;
constexpr NamedKind remoteErrors[] = {
    { "org.freedesktop.DBus.Error.ServiceUnknown", Kind::noService },
    { "org.freedesktop.DBus.Error.NameHasNoOwner", Kind::noService },
    { "org.freedesktop.DBus.Error.UnknownMethod", Kind::noService },
    { "org.freedesktop.DBus.Error.UnknownObject", Kind::noService },
    { "org.freedesktop.DBus.Error.UnknownInterface", Kind::noService },
    { "org.freedesktop.DBus.Error.NotSupported", Kind::noService },
    { "org.freedesktop.DBus.Error.AccessDenied", Kind::denied },
    { "org.freedesktop.DBus.Error.AuthFailed", Kind::denied },
    { "org.freedesktop.DBus.Error.InteractiveAuthorizationRequired", Kind::denied },
    { "org.freedesktop.DBus.Error.NoReply", Kind::timedOut },
    { "org.freedesktop.DBus.Error.Timeout", Kind::timedOut },
    { "org.freedesktop.DBus.Error.TimedOut", Kind::timedOut },
};

Kind kindOf(GError const* error)
{
    if (g_error_matches(error, G_IO_ERROR, G_IO_ERROR_TIMED_OUT))
        return Kind::timedOut;
    GString8 const name(g_dbus_error_get_remote_error(error));
    if (!name)
        return Kind::noService;
    std::string_view const text = name.get();
    if (text.starts_with("org.freedesktop.DBus.Error.Spawn."))
        return Kind::noService;
    auto const* const found = std::ranges::find(remoteErrors, text, &NamedKind::name);
    return found == std::end(remoteErrors) ? Kind::other : found->kind;
}

/// Cancels connecting after a time, as connecting has no limit of its own.
class Watchdog {
public:
    explicit Watchdog(Deadline const& deadline)
        : m_thread([this, end = deadline.end()](std::stop_token const& stop) {
            std::unique_lock lock(m_mutex);
            m_ended.wait_until(lock, stop, end, [] { return false; });
            if (!stop.stop_requested())
                g_cancellable_cancel(m_cancellable.get());
        })
    {
    }
    [[nodiscard]] GCancellable* cancellable() const { return m_cancellable.get(); }

private:
    GObjectRef<GCancellable> m_cancellable { g_cancellable_new() };
    std::mutex m_mutex;
    std::condition_variable_any m_ended;
    std::jthread m_thread;
};

BusFailure failureOf(GError* error)
{
    auto const kind = kindOf(error);
    g_dbus_error_strip_remote_error(error);
    return { kind, error->message };
}

} // namespace

BusAddresses BusAddresses::of(Environment const& environment)
{
    BusAddresses addresses { valueOf(environment, "DBUS_SESSION_BUS_ADDRESS"), valueOf(environment, "DBUS_SYSTEM_BUS_ADDRESS") };
    if (addresses.session.empty())
        addresses.session = socketAddress(valueOf(environment, "XDG_RUNTIME_DIR") + "/bus");
    if (addresses.system.empty())
        addresses.system = socketAddress("/run/dbus/system_bus_socket");
    return addresses;
}

int Deadline::millisecondsLeft() const
{
    auto const left = std::chrono::ceil<std::chrono::milliseconds>(m_end - std::chrono::steady_clock::now()).count();
    return static_cast<int>(std::max<std::int64_t>(left, 1));
}

std::optional<BusConnection> BusConnection::open(std::string const& address, Deadline const& deadline)
{
    if (address.empty())
        return std::nullopt;
    Watchdog const watchdog(deadline);
    auto const flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT | G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    auto* const connection = g_dbus_connection_new_for_address_sync(address.c_str(), flags, nullptr, watchdog.cancellable(), nullptr);
    return connection ? std::optional(BusConnection(connection)) : std::nullopt;
}

Result<GVariantRef, BusFailure> BusConnection::call(
    BusObject const& object, char const* method, GVariant* arguments, Deadline const& deadline, char const* replyType, Starting starting) const
{
    auto const flags = static_cast<GDBusCallFlags>(
        G_DBUS_CALL_FLAGS_ALLOW_INTERACTIVE_AUTHORIZATION | (starting == Starting::forbidden ? G_DBUS_CALL_FLAGS_NO_AUTO_START : 0));
    GErrorSlot error;
    auto* const reply = g_dbus_connection_call_sync(m_connection.get(), object.service, object.path, object.interface, method, arguments,
        replyType ? G_VARIANT_TYPE(replyType) : nullptr, flags, deadline.millisecondsLeft(), nullptr, error.out());
    if (!reply)
        return Failure { failureOf(error.get()) };
    return GVariantRef(reply);
}

Result<std::string, BusFailure> BusConnection::callForText(BusObject const& object, char const* method, Deadline const& deadline) const
{
    auto const reply = call(object, method, nullptr, deadline, "(s)");
    if (!reply)
        return Failure { reply.error() };
    char const* text = "";
    g_variant_get(reply->get(), "(&s)", &text);
    return std::string(text);
}

GVariantRef BusConnection::property(BusObject const& object, char const* name, char const* type, Deadline const& deadline) const
{
    BusObject const properties { object.service, object.path, "org.freedesktop.DBus.Properties" };
    auto const reply = call(properties, "Get", g_variant_new("(ss)", object.interface, name), deadline, "(v)", Starting::forbidden);
    if (!reply)
        return nullptr;
    GVariantRef const boxed(g_variant_get_child_value(reply->get(), 0));
    GVariantRef value(g_variant_get_variant(boxed.get()));
    return g_variant_is_of_type(value.get(), G_VARIANT_TYPE(type)) ? std::move(value) : nullptr;
}

bool BusConnection::hasOwner(char const* service, Deadline const& deadline) const
{
    auto const reply = call(bus, "NameHasOwner", g_variant_new("(s)", service), deadline, "(b)");
    gboolean isOwned = FALSE;
    if (reply)
        g_variant_get(reply->get(), "(b)", &isOwned);
    return isOwned != FALSE;
}

bool BusConnection::canReach(std::string_view service, Deadline const& deadline) const
{
    for (auto const* question : { "ListNames", "ListActivatableNames" }) {
        auto const reply = call(bus, question, nullptr, deadline, "(as)");
        if (!reply)
            continue;
        GVariantRef const names(g_variant_get_child_value(reply->get(), 0));
        for (gsize i = 0; i < g_variant_n_children(names.get()); ++i) {
            GVariantRef const name(g_variant_get_child_value(names.get(), i));
            if (service == g_variant_get_string(name.get(), nullptr))
                return true;
        }
    }
    return false;
}

} // namespace zv
