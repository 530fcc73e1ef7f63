#pragma once

#include "platform/linux/posix/FileDescriptor.h"
#include "platform/linux/program/BusProgramServer.h"

#include <string>

namespace zv {

/// Keeps the program to one instance a user session: by a locked file, which the system unlocks
/// however the process ends, and by its name on the bus, which may come, go and come back.
class SingleInstance {
public:
    SingleInstance(QDBusConnection bus, ProgramHandlers handlers, std::string lockFile);
    ~SingleInstance();

    /// False when another instance runs.
    [[nodiscard]] bool claim();
    /// Takes the name on a new connection, after the former was lost.
    void useBus(QDBusConnection const& bus);
    /// Lets another process be the running instance.
    void release();

private:
    [[nodiscard]] bool lock();

    QDBusConnection m_bus;
    BusProgramServer m_program;
    std::string m_lockFile;
    FileDescriptor m_lock;
};

} // namespace zv
