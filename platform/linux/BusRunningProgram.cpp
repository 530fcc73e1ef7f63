#include "platform/linux/BusRunningProgram.h"

#include "platform/linux/BusConnection.h"

#include <gio/gio.h>

#include <cmath>

namespace zv {

namespace {

constexpr char const* name = "org.zanthevell.ZantheVell";
constexpr char const* path = "/org/zanthevell/ZantheVell";
constexpr int patience = 5000; // milliseconds
constexpr char const* notRunning = "Zanthe Vell is not running.";

struct ErrorDeleter {
    void operator()(GError* error) const { g_error_free(error); }
};
using ErrorRef = std::unique_ptr<GError, ErrorDeleter>;

struct VariantDeleter {
    void operator()(GVariant* variant) const { g_variant_unref(variant); }
};
using VariantRef = std::unique_ptr<GVariant, VariantDeleter>;

std::string sentenceFor(GError const& error)
{
    bool const isAbsent
        = g_error_matches(&error, G_DBUS_ERROR, G_DBUS_ERROR_SERVICE_UNKNOWN) || g_error_matches(&error, G_DBUS_ERROR, G_DBUS_ERROR_NAME_HAS_NO_OWNER);
    return isAbsent ? notRunning : "The running program did not answer: " + std::string(error.message);
}

} // namespace

/// The session's bus; none where it does not answer.
struct BusRunningProgram::Connection {
    Connection()
    {
        auto const address = BusAddresses::ofThisMachine().session;
        auto const flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT | G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
        if (!address.empty())
            bus = g_dbus_connection_new_for_address_sync(address.c_str(), flags, nullptr, nullptr, nullptr);
    }
    ~Connection() { g_clear_object(&bus); }
    Connection(Connection const&) = delete;
    Connection& operator=(Connection const&) = delete;

    GDBusConnection* bus = nullptr;
};

BusRunningProgram::BusRunningProgram() = default;
BusRunningProgram::~BusRunningProgram() = default;

Result<GVariant*> BusRunningProgram::ask(char const* method, GVariant* arguments)
{
    VariantRef const owned(arguments ? g_variant_ref_sink(arguments) : nullptr);
    if (!m_connection)
        m_connection = std::make_unique<Connection>();
    if (!m_connection->bus)
        return Failure { std::string("There is no session bus to reach the running program by.") };
    GError* error = nullptr;
    auto* answer = g_dbus_connection_call_sync(
        m_connection->bus, name, path, name, method, owned.get(), nullptr, G_DBUS_CALL_FLAGS_NO_AUTO_START, patience, nullptr, &error);
    if (answer)
        return answer;
    return Failure { sentenceFor(*ErrorRef(error)) };
}

MaybeFailure<> BusRunningProgram::tell(char const* method, GVariant* arguments)
{
    auto const answer = ask(method, arguments);
    if (!answer)
        return answer.error();
    g_variant_unref(*answer);
    return std::nullopt;
}

bool BusRunningProgram::isRunning() const
{
    Connection const connection;
    if (!connection.bus)
        return false;
    VariantRef const answer(g_dbus_connection_call_sync(connection.bus, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameHasOwner",
        g_variant_new("(s)", name), G_VARIANT_TYPE("(b)"), G_DBUS_CALL_FLAGS_NONE, patience, nullptr, nullptr));
    gboolean hasOwner = FALSE;
    if (answer)
        g_variant_get(answer.get(), "(b)", &hasOwner);
    return hasOwner;
}

MaybeFailure<> BusRunningProgram::showMenu(std::optional<ScreenPoint> at)
{
    if (!at)
        return tell("ShowMenu", nullptr);
    return tell("ShowMenuAt", g_variant_new("(ii)", static_cast<int>(std::lround(at->x)), static_cast<int>(std::lround(at->y))));
}

MaybeFailure<> BusRunningProgram::openSettings() { return tell("OpenSettings", nullptr); }

MaybeFailure<> BusRunningProgram::quit() { return tell("Quit", nullptr); }

Result<std::string> BusRunningProgram::hotkeys()
{
    auto const answer = ask("Hotkeys", nullptr);
    if (!answer)
        return Failure { answer.error() };
    VariantRef const owned(*answer);
    if (!g_variant_is_of_type(owned.get(), G_VARIANT_TYPE("(s)")))
        return Failure { std::string("The running program's answer is not what was asked for.") };
    char const* json = nullptr;
    g_variant_get(owned.get(), "(&s)", &json);
    return std::string(json);
}

MaybeFailure<> BusRunningProgram::addFiles(std::vector<std::string> const& paths)
{
    GVariantBuilder builder;
    g_variant_builder_init(&builder, G_VARIANT_TYPE("(as)"));
    g_variant_builder_open(&builder, G_VARIANT_TYPE("as"));
    for (auto const& file : paths) {
        if (!g_utf8_validate(file.c_str(), -1, nullptr))
            continue;
        g_variant_builder_add(&builder, "s", file.c_str());
    }
    g_variant_builder_close(&builder);
    return tell("AddFiles", g_variant_builder_end(&builder));
}

} // namespace zv
