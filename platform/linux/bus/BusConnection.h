#pragma once

#include "base/Result.h"
#include "platform/linux/posix/GObjects.h"
#include "platform/program/Environment.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace zv {

/// The addresses of the two message buses; empty where there is none. Users of a bus get its
/// address handed in.
struct BusAddresses {
    std::string session;
    std::string system;

    /// The addresses in the environment, else the standard places.
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

/// The moment by which a series of calls must have ended.
class Deadline {
public:
    explicit Deadline(std::chrono::milliseconds fromNow)
        : m_end(std::chrono::steady_clock::now() + fromNow)
    {
    }
    /// At least 1: a zero would mean "no limit" to some calls.
    [[nodiscard]] int millisecondsLeft() const;
    [[nodiscard]] std::chrono::steady_clock::time_point end() const { return m_end; }

private:
    std::chrono::steady_clock::time_point m_end;
};

/// A private connection for one piece of background work, or for a command. Calls block: never
/// used on the main thread of a program with a menu.
class BusConnection {
public:
    enum class Starting { allowed, forbidden }; ///< whether a call may start the service

    /// Nothing without a bus that answers in time.
    [[nodiscard]] static std::optional<BusConnection> open(std::string const& address, Deadline const& deadline);

    /// `arguments` may be floating, or null for none. A reply of another type than
    /// `replyType` ("()" and the like; null for any) is a failure.
    Result<GVariantRef, BusFailure> call(BusObject const& object, char const* method, GVariant* arguments, Deadline const& deadline,
        char const* replyType = nullptr, Starting starting = Starting::allowed) const;
    /// A call whose reply is a single text.
    [[nodiscard]] Result<std::string, BusFailure> callForText(BusObject const& object, char const* method, Deadline const& deadline) const;
    /// A property of the object's interface; null when missing or of another type. Starts no
    /// service.
    [[nodiscard]] GVariantRef property(BusObject const& object, char const* name, char const* type, Deadline const& deadline) const;
    [[nodiscard]] bool hasOwner(char const* service, Deadline const& deadline) const;
    /// Whether the service runs, or a call would start it.
    [[nodiscard]] bool canReach(std::string_view service, Deadline const& deadline) const;

private:
    explicit BusConnection(GDBusConnection* connection)
        : m_connection(connection)
    {
    }
    GObjectRef<GDBusConnection> m_connection;
};

} // namespace zv
