#pragma once

#include <QDBusConnection>
#include <QString>

#include <csignal>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace zv {

/// A message bus of a test's own.
class PrivateBus {
public:
    PrivateBus()
    {
        int ends[2];
        if (pipe(ends) != 0)
            return;
        m_process = fork();
        if (m_process == 0) {
            auto const out = "--print-address=" + std::to_string(ends[1]);
            execlp("dbus-daemon", "dbus-daemon", "--session", "--nofork", "--nopidfile", out.c_str(), nullptr);
            _exit(127);
        }
        close(ends[1]);
        for (char c = 0; read(ends[0], &c, 1) == 1 && c != '\n';)
            m_address += c;
        close(ends[0]);
    }
    ~PrivateBus()
    {
        kill(m_process, SIGTERM);
        waitpid(m_process, nullptr, 0);
    }
    PrivateBus(PrivateBus const&) = delete;
    PrivateBus& operator=(PrivateBus const&) = delete;

    /// A connection of that name; close it with QDBusConnection::disconnectFromBus().
    [[nodiscard]] QDBusConnection connect(char const* name) const
    {
        return QDBusConnection::connectToBus(QString::fromStdString(m_address), QString::fromLatin1(name));
    }

private:
    pid_t m_process = -1;
    std::string m_address;
};

} // namespace zv
