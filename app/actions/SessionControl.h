#pragma once

#include "app/model/MenuItemKind.h"
#include "base/Lifetime.h"
#include "base/Result.h"
#include "platform/session/SessionEvents.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace zv {

/// Asks the user before a session ends, where the system does not ask by itself.
class SessionConfirmation {
public:
    virtual ~SessionConfirmation() = default;
    [[nodiscard]] virtual bool confirms(MenuItemKind const& kind) = 0;
};

/// Ends or suspends the user's session. Main thread only.
class SessionControl {
public:
    struct Failure {
        enum class Case { sendFailed, notPermitted };
        Case reason = Case::sendFailed;
        std::int32_t status = 0; ///< of sendFailed

        /// The failure as text: "sendFailed(-600)".
        [[nodiscard]] std::string description() const;
        friend bool operator==(Failure const&, Failure const&) = default;
    };
    using Done = std::function<void(Result<void, Failure>)>;

    SessionControl(SessionEvents& events, SessionConfirmation& confirmation)
        : m_events(events)
        , m_confirmation(confirmation)
    {
    }

    /// Empty for a kind that is no session event.
    [[nodiscard]] static std::optional<SessionEvent> eventFor(MenuItemKind const& kind);
    /// Calls `done` once: at once if the system answers at once, else later.
    void send(SessionEvent event, Done done);

private:
    void confirmAndForce(SessionEvent event, Done done);

    SessionEvents& m_events;
    SessionConfirmation& m_confirmation;
    Lifetime m_lifetime;
};

} // namespace zv
