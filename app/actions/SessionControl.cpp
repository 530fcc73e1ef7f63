#include "app/actions/SessionControl.h"

#include "base/MainThread.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace zv {

namespace {

constexpr std::chrono::seconds sendTimeout { 10 };

struct KindEvent {
    MenuItemKind::Case kind;
    SessionEvent event;
    SessionEvent forced; ///< does the same without asking
};

constexpr KindEvent kindEvents[] = {
    { MenuItemKind::sleep, SessionEvent::sleep, SessionEvent::sleep },
    { MenuItemKind::restart, SessionEvent::askToRestart, SessionEvent::restart },
    { MenuItemKind::shutdown, SessionEvent::askToShutDown, SessionEvent::shutDown },
    { MenuItemKind::logOut, SessionEvent::askToLogOut, SessionEvent::logOut },
    { MenuItemKind::restartForced, SessionEvent::restart, SessionEvent::restart },
    { MenuItemKind::shutdownForced, SessionEvent::shutDown, SessionEvent::shutDown },
    { MenuItemKind::logOutForced, SessionEvent::logOut, SessionEvent::logOut },
};

Failure<SessionControl::Failure> sendFailure(std::int64_t status)
{
    return { { SessionControl::Failure::Case::sendFailed, static_cast<std::int32_t>(status) } };
}

Result<void, SessionControl::Failure> resultOf(SessionEventOutcome const& outcome)
{
    if (outcome.state == SessionEventOutcome::State::sent)
        return {};
    if (outcome.status == SessionStatus::notPermitted)
        return Failure { SessionControl::Failure { SessionControl::Failure::Case::notPermitted } };
    return sendFailure(outcome.status);
}

} // namespace

std::string SessionControl::Failure::description() const
{
    return reason == Case::notPermitted ? "notPermitted" : "sendFailed(" + std::to_string(status) + ")";
}

std::optional<SessionEvent> SessionControl::eventFor(MenuItemKind const& kind)
{
    auto const* const found = std::find_if(std::begin(kindEvents), std::end(kindEvents), [&](auto const& row) { return kind == row.kind; });
    return found != std::end(kindEvents) ? std::optional(found->event) : std::nullopt;
}

void SessionControl::send(SessionEvent event, Done done)
{
    assertMainThread();
    m_events.send(event, sendTimeout, m_lifetime.guard([this, event, done = std::move(done)](auto const& outcome) {
        if (outcome.state == SessionEventOutcome::State::needsConfirmation)
            confirmAndForce(event, done);
        else
            done(resultOf(outcome));
    }));
}

void SessionControl::confirmAndForce(SessionEvent event, Done done)
{
    auto const& asked = *std::find_if(std::begin(kindEvents), std::end(kindEvents), [&](auto const& row) { return event == row.event; });
    if (asked.forced == event)
        return done(sendFailure(SessionStatus::notHandled));
    if (!m_confirmation.confirms(asked.kind))
        return done({});
    send(asked.forced, std::move(done));
}

} // namespace zv
