#include "platform/linux/session/LinuxSessionEvents.h"

#include "platform/linux/session/LoginManager.h"

#include <iterator>
#include <string_view>
#include <utility>

namespace zv {

namespace {

using State = SessionEventOutcome::State;

/// Long enough for typing a password.
constexpr std::chrono::minutes authorizationTimeout { 5 };

SessionEventOutcome failed(std::int64_t status) { return { State::failed, status }; }

SessionEventOutcome outcomeOf(BusFailure const& failure)
{
    switch (failure.kind) {
    case BusFailure::Kind::noService:
        return failed(SessionStatus::noSuchService);
    case BusFailure::Kind::denied:
        return failed(SessionStatus::refused);
    case BusFailure::Kind::timedOut:
        return failed(SessionStatus::timedOut);
    case BusFailure::Kind::other:
        break;
    }
    return failed(SessionStatus::notHandled);
}

} // namespace

/// The way to do an event on a desktop. `prompt` and `shell` are methods of the desktop's D-Bus
/// services, the commands are those of its session manager.
struct LinuxSession::Event {
    struct Command {
        Desktop desktop;
        std::vector<std::string> line;
    };
    SessionEvent id;
    bool asks;
    char const* shellMethod; ///< of the KDE session services
    std::vector<Command> commands;
    char const* loginMethod;
    char const* loginCheck; ///< called before the method; null for none
};

/// KDE's methods: logout-greeter/org.kde.LogoutPrompt.xml and org.kde.Shutdown of
/// https://invent.kde.org/plasma/plasma-workspace; the commands have manual pages of their names,
/// the login service's methods stand in LoginManager.h.
LinuxSession::Event const LinuxSession::events[] = {
    { SessionEvent::sleep, false, nullptr, {}, "Suspend", "CanSuspend" },
    { SessionEvent::askToRestart, true, "promptReboot",
        { { Desktop::gnome, { "gnome-session-quit", "--reboot" } }, { Desktop::mate, { "mate-session-save", "--shutdown-dialog" } },
            { Desktop::xfce, { "xfce4-session-logout" } }, { Desktop::lxqt, { "lxqt-leave" } },
            { Desktop::cinnamon, { "cinnamon-session-quit", "--reboot" } } },
        nullptr, nullptr },
    { SessionEvent::askToShutDown, true, "promptShutDown",
        { { Desktop::gnome, { "gnome-session-quit", "--power-off" } }, { Desktop::mate, { "mate-session-save", "--shutdown-dialog" } },
            { Desktop::xfce, { "xfce4-session-logout" } }, { Desktop::lxqt, { "lxqt-leave" } },
            { Desktop::cinnamon, { "cinnamon-session-quit", "--power-off" } } },
        nullptr, nullptr },
    { SessionEvent::askToLogOut, true, "promptLogout",
        { { Desktop::gnome, { "gnome-session-quit", "--logout" } }, { Desktop::mate, { "mate-session-save", "--logout-dialog" } },
            { Desktop::xfce, { "xfce4-session-logout" } }, { Desktop::lxqt, { "lxqt-leave" } },
            { Desktop::cinnamon, { "cinnamon-session-quit", "--logout" } } },
        nullptr, nullptr },
    { SessionEvent::restart, false, "logoutAndReboot", { { Desktop::xfce, { "xfce4-session-logout", "--reboot" } } }, "Reboot", "CanReboot" },
    { SessionEvent::shutDown, false, "logoutAndShutdown", { { Desktop::xfce, { "xfce4-session-logout", "--halt" } } }, "PowerOff", "CanPowerOff" },
    { SessionEvent::logOut, false, "logout",
        { { Desktop::xfce, { "xfce4-session-logout", "--logout" } }, { Desktop::gnome, { "gnome-session-quit", "--logout", "--no-prompt" } } },
        "TerminateSession", nullptr },
};

SessionEventOutcome LinuxSession::send(SessionEvent wanted, std::chrono::milliseconds timeout) const
{
    Deadline const deadline(timeout);
    for (auto const& event : events) {
        if (event.id == wanted)
            return event.asks ? askThroughDesktop(event, deadline) : force(event, deadline);
    }
    return failed(SessionStatus::notHandled);
}

/// Asks only the running desktop: another one's prompt would end a session that does not exist.
SessionEventOutcome LinuxSession::askThroughDesktop(Event const& event, Deadline const& deadline) const
{
    if (callShell("org.kde.LogoutPrompt", "/LogoutPrompt", "org.kde.LogoutPrompt", event.shellMethod, deadline))
        return {};
    for (auto const& command : event.commands) {
        if (command.desktop == m_access.desktop && m_access.programs->start(command.line))
            return {};
    }
    return { State::needsConfirmation };
}

SessionEventOutcome LinuxSession::force(Event const& event, Deadline const& deadline) const
{
    if (event.shellMethod && callShell("org.kde.Shutdown", "/Shutdown", "org.kde.Shutdown", event.shellMethod, deadline))
        return {};
    for (auto const& command : event.commands) {
        if (command.desktop == m_access.desktop && m_access.programs->start(command.line))
            return {};
    }
    return callLogin(event, deadline);
}

bool LinuxSession::callShell(char const* service, char const* path, char const* interface, char const* method, Deadline const& deadline) const
{
    if (m_access.desktop != Desktop::kde)
        return false;
    auto const bus = BusConnection::open(m_access.buses.session, deadline);
    if (!bus)
        return false;
    auto const reply = bus->call({ service, path, interface }, method, nullptr, deadline);
    // A slow prompt is shown all the same; asking again would show a second one.
    return reply.ok() || reply.error().kind == BusFailure::Kind::timedOut;
}

SessionEventOutcome LinuxSession::callLogin(Event const& event, Deadline const& deadline) const
{
    auto const bus = BusConnection::open(m_access.buses.system, deadline);
    if (!bus)
        return failed(SessionStatus::noSuchService);
    bool needsAuthorization = false;
    if (event.loginCheck) {
        auto const answer = bus->callForText(loginManager, event.loginCheck, deadline);
        if (!answer)
            return outcomeOf(answer.error());
        needsAuthorization = *answer == "challenge";
        if (*answer != "yes" && !needsAuthorization)
            return failed(SessionStatus::refused);
    }
    auto const reply = bus->call(loginManager, event.loginMethod, loginArguments(event), needsAuthorization ? Deadline(authorizationTimeout) : deadline);
    return reply ? SessionEventOutcome {} : outcomeOf(reply.error());
}

GVariant* LinuxSession::loginArguments(Event const& event) const
{
    if (event.loginCheck)
        return g_variant_new("(b)", TRUE);
    return g_variant_new("(s)", m_access.sessionId.empty() ? "auto" : m_access.sessionId.c_str());
}

void LinuxSessionEvents::send(SessionEvent event, std::chrono::seconds timeout, std::function<void(SessionEventOutcome)> done)
{
    m_tasks.runDetached([session = m_session, event, timeout, done = std::move(done)] {
        return std::function<void()>([done, outcome = session.send(event, timeout)] { done(outcome); });
    });
}

} // namespace zv
