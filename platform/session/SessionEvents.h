#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

namespace zv {

/// Four ASCII characters, the first one in the highest byte.
using FourCharCode = std::uint32_t;

[[nodiscard]] constexpr FourCharCode fourCharCode(std::string_view text)
{
    FourCharCode code = 0;
    for (char const c : text)
        code = code << 8 | static_cast<unsigned char>(c);
    return code;
}

/// Status codes with a meaning of their own; any other is the system's. The numbers are those of
/// Apple's MacErrors.h: errAEEventNotPermitted, procNotFound, errAETimeout, errAEPrivilegeError, errAEEventNotHandled.
namespace SessionStatus {
inline constexpr std::int64_t notPermitted = -1743;
inline constexpr std::int64_t noSuchService = -600; ///< nobody there takes the event
inline constexpr std::int64_t timedOut = -1712;
inline constexpr std::int64_t refused = -10004; ///< the service denied it
inline constexpr std::int64_t notHandled = -1708;
} // namespace SessionStatus

struct SessionEventOutcome {
    enum class State : std::uint8_t {
        sent,
        failed,
        needsConfirmation, ///< the event should ask the user first, and nothing here does
    };
    State state = State::sent;
    std::int64_t status = 0; ///< of a failure
};

/// Events to whatever ends and suspends the user's session. Main thread only.
class SessionEvents {
public:
    virtual ~SessionEvents() = default;
    /// Calls `done` once, on the main thread: before it returns, or later. Waits no longer
    /// than `timeout` for the event to be taken.
    virtual void send(FourCharCode eventClass, FourCharCode eventID, std::chrono::seconds timeout, std::function<void(SessionEventOutcome)> done) = 0;
};

} // namespace zv
