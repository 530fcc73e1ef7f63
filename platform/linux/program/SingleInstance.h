#pragma once

#include "platform/linux/program/BusProgramServer.h"

#include <QLockFile>

#include <memory>

namespace zv {

/// Keeps the program to one instance a user session: by its name on the bus and, where there is
/// no bus, by a lock file.
class SingleInstance {
public:
    SingleInstance(QDBusConnection bus, ProgramHandlers handlers);
    ~SingleInstance();

    /// False when another instance runs.
    [[nodiscard]] bool claim();
    /// Lets another process be the running instance.
    void release();

private:
    QDBusConnection m_bus;
    BusProgramServer m_program;
    std::unique_ptr<QLockFile> m_lock;
};

} // namespace zv
