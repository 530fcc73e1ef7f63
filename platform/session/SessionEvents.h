#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

namespace zv {

/// Events of the session. The `ask…` events have the system ask the user first.
enum class SessionEvent : std::uint8_t { sleep, askToRestart, askToShutDown, askToLogOut, restart, shutDown, logOut };

/// Status codes with a meaning of their own; any other is the system's. The numbers are those of
/// Apple's MacErrors.h: errAEEventNotPermitted, procNotFound, errAETimeout, errAEPrivilegeError, errAEEventNotHandled.
namespace SessionStatus {
inline constexpr std::int64_t notPermitted = -1743;
inline constexpr std::int64_t noSuchService = -600; ///< no receiver of the event
inline constexpr std::int64_t timedOut = -1712;
inline constexpr std::int64_t refused = -10004; ///< the service denied it
inline constexpr std::int64_t notHandled = -1708;
} // namespace SessionStatus

struct SessionEventOutcome {
    enum class State : std::uint8_t {
        sent,
        failed,
        needsConfirmation, ///< the user should be asked first, and nothing here asks
    };
    State state = State::sent;
    std::int64_t status = 0; ///< of a failure
};

/// Sends events to the service that ends and suspends the session. Main thread only.
class SessionEvents {
public:
    virtual ~SessionEvents() = default;
    /// Calls `done` once, on the main thread: before it returns, or later. Waits no longer
    /// than `timeout` for the event to be taken.
    virtual void send(SessionEvent event, std::chrono::seconds timeout, std::function<void(SessionEventOutcome)> done) = 0;
};

} // namespace zv
