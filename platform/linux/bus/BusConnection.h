#pragma once

#include "base/Result.h"
#include "platform/linux/posix/GObjects.h"
#include "platform/program/Environment.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace zv {

/// Where the two message buses listen; empty where there is none. Who uses a bus gets its
/// address handed in.
struct BusAddresses {
    std::string session;
    std::string system;

    /// Those that the environment names, else the standard places.
    [[nodiscard]] static BusAddresses of(Environment const& environment);
};

struct BusFailure {
    enum class Kind { noService, denied, timedOut, other };
    Kind kind = Kind::other;
    std::string message; ///< the service's own words
};

struct BusObject {
    char const* service;
    char const* path;
    char const* interface;
};

/// A moment by which a series of calls must have ended.
class Deadline {
public:
    explicit Deadline(std::chrono::milliseconds fromNow)
        : m_end(std::chrono::steady_clock::now() + fromNow)
    {
    }
    /// Never less than one: a zero would mean "no limit" to some calls.
    [[nodiscard]] int millisecondsLeft() const;
    [[nodiscard]] std::chrono::steady_clock::time_point end() const { return m_end; }

private:
    std::chrono::steady_clock::time_point m_end;
};

/// A connection of its own for one piece of background work, or for a command. Calls block:
/// never used on the main thread of what has a menu.
class BusConnection {
public:
    enum class Starting { allowed, forbidden }; ///< whether a call may start the service

    /// Nothing when there is no bus, or none that answers in time.
    [[nodiscard]] static std::optional<BusConnection> open(std::string const& address, Deadline const& deadline);

    /// `arguments` may be floating, or null for none. A reply of another type than
    /// `replyType` ("()" and the like; null for any) is a failure.
    Result<GVariantRef, BusFailure> call(BusObject const& object, char const* method, GVariant* arguments, Deadline const& deadline,
        char const* replyType = nullptr, Starting starting = Starting::allowed) const;
    /// A call that a single text answers.
    [[nodiscard]] Result<std::string, BusFailure> callForText(BusObject const& object, char const* method, Deadline const& deadline) const;
    /// The value of a property of the object's interface; null when there is none, or when it
    /// is of another type. Starts nothing.
    [[nodiscard]] GVariantRef property(BusObject const& object, char const* name, char const* type, Deadline const& deadline) const;
    [[nodiscard]] bool hasOwner(char const* service, Deadline const& deadline) const;
    /// Runs, or would be started by a call.
    [[nodiscard]] bool canReach(std::string_view service, Deadline const& deadline) const;

private:
    explicit BusConnection(GDBusConnection* connection)
        : m_connection(connection)
    {
    }
    GObjectRef<GDBusConnection> m_connection;
};

} // namespace zv
