#pragma once

#include "platform/linux/bus/BusConnection.h"
#include "platform/linux/session/DesktopAccess.h"
#include "platform/session/SessionEvents.h"
#include "platform/time/Tasks.h"

namespace zv {

/// Performs session events through the desktop's own services, else the login service. A value
/// for background work: it blocks.
class LinuxSession {
public:
    explicit LinuxSession(DesktopAccess access)
        : m_access(std::move(access))
    {
    }
    [[nodiscard]] SessionEventOutcome send(SessionEvent wanted, std::chrono::milliseconds timeout) const;

private:
    struct Event;
    [[nodiscard]] SessionEventOutcome askThroughDesktop(Event const& event, Deadline const& deadline) const;
    [[nodiscard]] SessionEventOutcome force(Event const& event, Deadline const& deadline) const;
    [[nodiscard]] bool callShell(char const* service, char const* path, char const* interface, char const* method, Deadline const& deadline) const;
    [[nodiscard]] SessionEventOutcome callLogin(Event const& event, Deadline const& deadline) const;
    [[nodiscard]] GVariant* loginArguments(Event const& event) const;

    static Event const events[];
    DesktopAccess m_access;
};

class LinuxSessionEvents : public SessionEvents {
public:
    LinuxSessionEvents(DesktopAccess access, Tasks& tasks)
        : m_session(std::move(access))
        , m_tasks(tasks)
    {
    }
    void send(SessionEvent event, std::chrono::seconds timeout, std::function<void(SessionEventOutcome)> done) override;

private:
    LinuxSession m_session;
    Tasks& m_tasks;
};

} // namespace zv
