#include "app/actions/SessionControl.h"

#include "base/MainThread.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace zv {

namespace {

// Events of Apple's AERegistry.h, in the core suite. What loginwindow does on each: Daemons and Services Programming
// Guide, "The Life Cycle of a Daemon"
// (https://developer.apple.com/library/archive/documentation/MacOSX/Conceptual/BPSystemStartup/Chapters/Lifecycle.html).
constexpr FourCharCode coreEventClass = fourCharCode("aevt");
constexpr std::chrono::seconds sendTimeout { 10 };

struct SessionEvent {
    MenuItemKind::Case kind;
    FourCharCode id;
    MenuItemKind::Case forced; ///< the kind that does the same without asking
};

constexpr SessionEvent sessionEvents[] = {
    { MenuItemKind::sleep, fourCharCode("slep"), MenuItemKind::sleep },
    { MenuItemKind::restart, fourCharCode("rrst"), MenuItemKind::restartForced },
    { MenuItemKind::shutdown, fourCharCode("rsdn"), MenuItemKind::shutdownForced },
    { MenuItemKind::logOut, fourCharCode("logo"), MenuItemKind::logOutForced },
    { MenuItemKind::restartForced, fourCharCode("rest"), MenuItemKind::restartForced },
    { MenuItemKind::shutdownForced, fourCharCode("shut"), MenuItemKind::shutdownForced },
    { MenuItemKind::logOutForced, fourCharCode("rlgo"), MenuItemKind::logOutForced },
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

std::optional<SessionControl::Event> SessionControl::eventFor(MenuItemKind const& kind)
{
    auto const* const found = std::find_if(std::begin(sessionEvents), std::end(sessionEvents), [&](auto const& event) { return kind == event.kind; });
    if (found == std::end(sessionEvents))
        return std::nullopt;
    return static_cast<Event>(found - std::begin(sessionEvents));
}

void SessionControl::send(Event event, Done done)
{
    assertMainThread();
    if (event >= std::size(sessionEvents))
        return;
    m_events.send(coreEventClass, sessionEvents[event].id, sendTimeout, m_lifetime.guard([this, event, done = std::move(done)](auto const& outcome) {
        if (outcome.state == SessionEventOutcome::State::needsConfirmation)
            confirmAndForce(event, done);
        else
            done(resultOf(outcome));
    }));
}

void SessionControl::confirmAndForce(Event event, Done done)
{
    auto const& asked = sessionEvents[event];
    if (asked.forced == asked.kind)
        return done(sendFailure(SessionStatus::notHandled));
    if (!m_confirmation.confirms(asked.kind))
        return done({});
    send(*eventFor(asked.forced), std::move(done));
}

} // namespace zv
