#include "platform/linux/program/SingleInstance.h"

#include "base/Log.h"
#include "platform/linux/posix/WholeFiles.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>

namespace zv {

SingleInstance::SingleInstance(QDBusConnection bus, ProgramHandlers handlers, std::string lockFile)
    : m_bus(bus)
    , m_program(std::move(bus), std::move(handlers))
    , m_lockFile(std::move(lockFile))
{
}

SingleInstance::~SingleInstance() = default;

bool SingleInstance::claim() { return lock() && (!m_bus.isConnected() || m_program.takeName()); }

/// True also where no file can be locked: then the name alone must do.
bool SingleInstance::lock()
{
    (void)makeFolders(folderOf(m_lockFile), 0700);
    m_lock = FileDescriptor(::open(m_lockFile.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
    return !m_lock.isOpen() || ::flock(m_lock.get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

void SingleInstance::useBus(QDBusConnection const& bus)
{
    m_bus = bus;
    m_program.useBus(bus);
    if (!m_program.takeName())
        logLine("another process has the program's name on the message bus");
}

void SingleInstance::release()
{
    m_program.leaveName();
    m_lock = FileDescriptor();
}

} // namespace zv
