#include "platform/linux/posix/WholeFiles.h"

#include "platform/linux/posix/FileDescriptor.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>

namespace zv {

namespace {

constexpr mode_t permissionBits = 07777;

Failure<std::string> failureOf(int error) { return { systemMessage(error) }; }

ssize_t readSome(int descriptor, std::span<std::byte> into)
{
    ssize_t count = 0;
    do
        count = ::read(descriptor, into.data(), into.size());
    while (count < 0 && errno == EINTR);
    return count;
}

/// Reads on when the file grew meanwhile, but never beyond `mostBytes`.
Result<std::vector<std::byte>> readToEnd(int descriptor, std::size_t expected, std::size_t mostBytes)
{
    std::vector<std::byte> bytes(expected + 1);
    std::size_t size = 0;
    while (true) {
        auto const count = readSome(descriptor, std::span(bytes).subspan(size));
        if (count < 0)
            return failureOf(errno);
        if (count == 0)
            break;
        size += static_cast<std::size_t>(count);
        if (size > mostBytes)
            return failureOf(EFBIG);
        if (size == bytes.size())
            bytes.resize(size * 2);
    }
    bytes.resize(size);
    return bytes;
}

bool writeAll(int descriptor, std::span<std::byte const> bytes)
{
    while (!bytes.empty()) {
        auto const count = ::write(descriptor, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    return true;
}

bool writeAndSync(std::string const& path, std::span<std::byte const> bytes, std::optional<mode_t> exactMode, mode_t newMode)
{
    FileDescriptor const file(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, newMode));
    if (!file.isOpen())
        return false;
    if (exactMode && ::fchmod(file.get(), *exactMode) != 0)
        return false;
    return writeAll(file.get(), bytes) && ::fsync(file.get()) == 0;
}

/// Makes a rename durable. Not every file system can; then the rename itself is all there is.
void syncFolder(std::string const& folder)
{
    FileDescriptor const descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.isOpen())
        (void)::fsync(descriptor.get());
}

std::optional<mode_t> permissionsOf(std::string const& path)
{
    struct stat status { };
    return ::stat(path.c_str(), &status) == 0 ? std::optional<mode_t>(status.st_mode & permissionBits) : std::nullopt;
}

bool isFolder(std::string const& path)
{
    struct stat status { };
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

} // namespace

std::string systemMessage(int error) { return std::generic_category().message(error); }

std::string folderOf(std::string const& path)
{
    auto const slash = path.rfind('/');
    return slash == 0 || slash == std::string::npos ? "/" : path.substr(0, slash);
}

std::string followingLink(std::string const& path)
{
    struct stat status { };
    if (::lstat(path.c_str(), &status) != 0 || !S_ISLNK(status.st_mode))
        return path;
    char target[PATH_MAX];
    return ::realpath(path.c_str(), target) ? target : path;
}

Result<std::vector<std::byte>> readWholeFile(std::string const& path, std::size_t mostBytes)
{
    FileDescriptor const file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status { };
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0)
        return failureOf(errno);
    if (!S_ISREG(status.st_mode))
        return S_ISDIR(status.st_mode) ? failureOf(EISDIR) : Failure { std::string("Not a regular file") };
    auto const size = static_cast<std::size_t>(status.st_size);
    if (size > mostBytes)
        return failureOf(EFBIG);
    return readToEnd(file.get(), size, mostBytes);
}

MaybeFailure<> makeFolders(std::string const& path, mode_t mode)
{
    if (::mkdir(path.c_str(), mode) == 0 || (errno == EEXIST && isFolder(path)))
        return std::nullopt;
    if (errno != ENOENT || path == "/")
        return systemMessage(errno);
    if (auto failure = makeFolders(folderOf(path), mode))
        return failure;
    bool const isMade = ::mkdir(path.c_str(), mode) == 0 || errno == EEXIST;
    return isMade ? MaybeFailure<>() : systemMessage(errno);
}

MaybeFailure<> replaceFile(std::string const& path, std::string const& temporaryPath, std::span<std::byte const> bytes, mode_t mode)
{
    bool const isWritten = writeAndSync(temporaryPath, bytes, permissionsOf(path), mode);
    if (!isWritten || ::rename(temporaryPath.c_str(), path.c_str()) != 0) {
        int const error = errno;
        ::unlink(temporaryPath.c_str());
        return systemMessage(error);
    }
    syncFolder(folderOf(path));
    return std::nullopt;
}

} // namespace zv
