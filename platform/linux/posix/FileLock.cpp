#include "platform/linux/posix/FileLock.h"

#include "platform/linux/posix/WholeFiles.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>

namespace zv {

namespace {

constexpr mode_t privateFile = 0600;
constexpr auto betweenAttempts = std::chrono::milliseconds(5);

} // namespace

Result<FileDescriptor> lockFile(std::string const& path, std::chrono::milliseconds patience)
{
    FileDescriptor file(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, privateFile));
    if (!file.isOpen())
        return Failure { systemMessage(errno) };
    auto const deadline = std::chrono::steady_clock::now() + patience;
    while (::flock(file.get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR)
            return Failure { systemMessage(errno) };
        if (std::chrono::steady_clock::now() > deadline)
            return Failure { "another program does not let go of " + path };
        std::this_thread::sleep_for(betweenAttempts);
    }
    return file;
}

} // namespace zv
