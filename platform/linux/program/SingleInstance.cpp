#include "platform/linux/program/SingleInstance.h"

#include <QStandardPaths>

namespace zv {

namespace {

QString lockPath()
{
    auto folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folder.isEmpty())
        folder = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    return folder + QStringLiteral("/zanthe-vell.lock");
}

} // namespace

SingleInstance::SingleInstance(QDBusConnection bus, ProgramHandlers handlers)
    : m_bus(bus)
    , m_program(std::move(bus), std::move(handlers))
{
}

SingleInstance::~SingleInstance() = default;

bool SingleInstance::claim()
{
    if (m_bus.isConnected())
        return m_program.takeName();
    m_lock = std::make_unique<QLockFile>(lockPath());
    m_lock->setStaleLockTime(0); // stale only when its process has ended
    return m_lock->tryLock() || m_lock->error() != QLockFile::LockFailedError;
}

void SingleInstance::release()
{
    m_program.leaveName();
    m_lock.reset();
}

} // namespace zv
