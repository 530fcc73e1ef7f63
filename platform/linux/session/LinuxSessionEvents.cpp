#include "platform/linux/session/LinuxSessionEvents.h"

#include "platform/linux/session/LoginManager.h"

#include <iterator>
#include <string_view>
#include <utility>

namespace zv {

namespace {

using State = SessionEventOutcome::State;

/// Somebody types a password meanwhile.
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

/// A row tells who does the event on which desktop. `prompt` and `shell` are methods of the
/// desktop's D-Bus services, the commands are those of its session manager.
struct LinuxSession::Event {
    struct Command {
        Desktop desktop;
        std::vector<std::string> line;
    };
    FourCharCode id;
    bool asks;
    char const* shellMethod; ///< of the KDE session services
    std::vector<Command> commands;
    char const* loginMethod;
    char const* loginCheck; ///< asked before the method is called; null for none
};

/// KDE's methods: logout-greeter/org.kde.LogoutPrompt.xml and org.kde.Shutdown of
/// https://invent.kde.org/plasma/plasma-workspace; the commands have manual pages of their names,
/// the login service's methods stand in LoginManager.h.
LinuxSession::Event const LinuxSession::events[] = {
    { fourCharCode("slep"), false, nullptr, {}, "Suspend", "CanSuspend" },
    { fourCharCode("rrst"), true, "promptReboot",
        { { Desktop::gnome, { "gnome-session-quit", "--reboot" } }, { Desktop::mate, { "mate-session-save", "--shutdown-dialog" } },
            { Desktop::xfce, { "xfce4-session-logout" } }, { Desktop::lxqt, { "lxqt-leave" } },
            { Desktop::cinnamon, { "cinnamon-session-quit", "--reboot" } } },
        nullptr, nullptr },
    { fourCharCode("rsdn"), true, "promptShutDown",
        { { Desktop::gnome, { "gnome-session-quit", "--power-off" } }, { Desktop::mate, { "mate-session-save", "--shutdown-dialog" } },
            { Desktop::xfce, { "xfce4-session-logout" } }, { Desktop::lxqt, { "lxqt-leave" } },
            { Desktop::cinnamon, { "cinnamon-session-quit", "--power-off" } } },
        nullptr, nullptr },
    { fourCharCode("logo"), true, "promptLogout",
        { { Desktop::gnome, { "gnome-session-quit", "--logout" } }, { Desktop::mate, { "mate-session-save", "--logout-dialog" } },
            { Desktop::xfce, { "xfce4-session-logout" } }, { Desktop::lxqt, { "lxqt-leave" } },
            { Desktop::cinnamon, { "cinnamon-session-quit", "--logout" } } },
        nullptr, nullptr },
    { fourCharCode("rest"), false, "logoutAndReboot", { { Desktop::xfce, { "xfce4-session-logout", "--reboot" } } }, "Reboot", "CanReboot" },
    { fourCharCode("shut"), false, "logoutAndShutdown", { { Desktop::xfce, { "xfce4-session-logout", "--halt" } } }, "PowerOff", "CanPowerOff" },
    { fourCharCode("rlgo"), false, "logout",
        { { Desktop::xfce, { "xfce4-session-logout", "--logout" } }, { Desktop::gnome, { "gnome-session-quit", "--logout", "--no-prompt" } } },
        "TerminateSession", nullptr },
};

SessionEventOutcome LinuxSession::send(FourCharCode eventID, std::chrono::milliseconds timeout) const
{
    Deadline const deadline(timeout);
    for (auto const& event : events) {
        if (event.id == eventID)
            return event.asks ? askThroughDesktop(event, deadline) : force(event, deadline);
    }
    return failed(SessionStatus::notHandled);
}

/// Only the running desktop's own question: another one's would end a session that is not there.
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
    // A prompt that takes its time is shown all the same; asking a second one would be wrong.
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

void LinuxSessionEvents::send(FourCharCode, FourCharCode eventID, std::chrono::seconds timeout, std::function<void(SessionEventOutcome)> done)
{
    m_tasks.runDetached([session = m_session, eventID, timeout, done = std::move(done)] {
        return std::function<void()>([done, outcome = session.send(eventID, timeout)] { done(outcome); });
    });
}

} // namespace zv
