#include "platform/linux/posix/WholeFiles.h"

#include "base/Url.h"

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
constexpr std::size_t pieceSize = std::size_t { 64 } << 10;
constexpr int notPlain = -1; ///< outside the system's error numbers

std::string sentenceOf(int error) { return error == notPlain ? "Not a regular file" : systemMessage(error); }

ssize_t readSome(int descriptor, std::span<std::byte> into)
{
    ssize_t count = 0;
    do
        count = ::read(descriptor, into.data(), into.size());
    while (count < 0 && errno == EINTR);
    return count;
}

/// Reads to the end even if the file has grown, but at most `mostBytes`. Kernel files report a size of zero.
template <class Bytes> Result<Bytes, int> readToEnd(PlainFile const& file, std::size_t mostBytes)
{
    if (file.size > mostBytes)
        return Failure { EFBIG };
    Bytes bytes;
    bytes.resize(file.size > 0 ? file.size + 1 : pieceSize);
    std::size_t size = 0;
    while (true) {
        auto const count = readSome(file.descriptor.get(), std::as_writable_bytes(std::span(bytes)).subspan(size));
        if (count < 0)
            return Failure { errno };
        if (count == 0)
            break;
        size += static_cast<std::size_t>(count);
        if (size > mostBytes)
            return Failure { EFBIG };
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

/// Makes a rename durable, on file systems that can sync a folder.
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

std::string withoutLinks(std::string const& path)
{
    char real[PATH_MAX];
    if (path == "/" || ::realpath(path.c_str(), real))
        return path == "/" ? path : real;
    auto const folder = withoutLinks(folderOf(path));
    return (folder == "/" ? "" : folder) + "/" + std::string(lastPathComponent(path));
}

std::string followingLink(std::string const& path)
{
    struct stat status { };
    return ::lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode) ? withoutLinks(path) : path;
}

std::optional<std::string> brokenLinkAt(std::string path)
{
    struct stat status { };
    while (path != "/" && ::lstat(path.c_str(), &status) != 0)
        path = folderOf(path);
    bool const isBroken = S_ISLNK(status.st_mode) && ::stat(path.c_str(), &status) != 0;
    return isBroken ? std::optional("the link " + path + " leads to a place that is not there") : std::nullopt;
}

Result<PlainFile, int> openPlainFile(char const* path, int folder, int moreFlags)
{
    FileDescriptor file(::openat(folder, path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY | moreFlags));
    struct stat status { };
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0)
        return Failure { errno };
    if (!S_ISREG(status.st_mode))
        return Failure { S_ISDIR(status.st_mode) ? EISDIR : notPlain };
    return PlainFile { std::move(file), static_cast<std::size_t>(status.st_size) };
}

Result<std::vector<std::byte>> readWholeFile(std::string const& path, std::size_t mostBytes)
{
    auto const file = openPlainFile(path.c_str());
    auto bytes = file ? readToEnd<std::vector<std::byte>>(*file, mostBytes) : Failure { file.error() };
    if (!bytes)
        return Failure { sentenceOf(bytes.error()) };
    return std::move(bytes).value();
}

std::optional<std::string> readText(PlainFile const& file, std::size_t mostBytes)
{
    auto text = readToEnd<std::string>(file, mostBytes);
    return text ? std::optional(std::move(text).value()) : std::nullopt;
}

std::optional<std::string> readTextFile(std::string const& path, std::size_t mostBytes)
{
    auto const file = openPlainFile(path.c_str());
    return file ? readText(*file, mostBytes) : std::nullopt;
}

FileReading readInPieces(PlainFile const& file, std::function<bool(std::string_view)> const& take, std::size_t most)
{
    std::string buffer(most, '\0');
    while (true) {
        auto const count = readSome(file.descriptor.get(), std::as_writable_bytes(std::span(buffer)));
        if (count < 0)
            return FileReading::failed;
        if (count == 0 || !take({ buffer.data(), static_cast<std::size_t>(count) }))
            return FileReading::complete;
    }
}

FileReading readInPieces(std::string const& path, std::function<bool(std::string_view)> const& take)
{
    auto const file = openPlainFile(path.c_str());
    if (!file)
        return file.error() == ENOENT || file.error() == ENOTDIR ? FileReading::missing : FileReading::failed;
    return readInPieces(*file, take, pieceSize);
}

Result<void> makeFolders(std::string const& path, mode_t mode)
{
    if (::mkdir(path.c_str(), mode) == 0 || (errno == EEXIST && isFolder(path)))
        return {};
    if (errno != ENOENT || path == "/")
        return Failure { systemMessage(errno) };
    if (auto parent = makeFolders(folderOf(path), mode); !parent)
        return parent;
    bool const isMade = ::mkdir(path.c_str(), mode) == 0 || errno == EEXIST;
    if (!isMade)
        return Failure { systemMessage(errno) };
    return {};
}

Result<void> replaceFile(std::string const& path, std::string const& temporaryPath, std::span<std::byte const> bytes, mode_t mode)
{
    bool const isWritten = writeAndSync(temporaryPath, bytes, permissionsOf(path), mode);
    if (!isWritten || ::rename(temporaryPath.c_str(), path.c_str()) != 0) {
        int const error = errno;
        ::unlink(temporaryPath.c_str());
        return Failure { systemMessage(error) };
    }
    syncFolder(folderOf(path));
    return {};
}

} // namespace zv
