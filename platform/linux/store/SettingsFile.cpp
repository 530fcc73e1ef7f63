#include "platform/linux/store/SettingsFile.h"

#include "base/Url.h"
#include "platform/linux/posix/FileLock.h"
#include "platform/linux/posix/WholeFiles.h"
#include "platform/text/PropertyListFormat.h"

#include <cerrno>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <thread>

namespace zv {

namespace {

constexpr mode_t privateFolder = 0700;
constexpr mode_t privateFile = 0600;
constexpr auto forWriters = std::chrono::milliseconds(100);

bool isSameMoment(timespec const& a, timespec const& b) { return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec; }

bool isSameContent(struct stat const& a, struct stat const& b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_size == b.st_size && isSameMoment(a.st_mtim, b.st_mtim);
}

/// The local time as "20250131-094500".
std::string dateForFileName()
{
    auto const now = std::time(nullptr);
    std::tm parts {};
    ::localtime_r(&now, &parts);
    char text[32];
    auto const length = std::strftime(text, sizeof text, "%Y%m%d-%H%M%S", &parts);
    return { text, length };
}

Failure<SettingsFile::ReadFailure> contentFailure(std::string reason) { return { { SettingsFile::ReadFailure::Cause::content, std::move(reason) } }; }

bool isMissing(std::string const& path)
{
    struct stat status { };
    return ::stat(path.c_str(), &status) != 0 && (errno == ENOENT || errno == ENOTDIR);
}

bool isTooLarge(std::string const& path)
{
    struct stat status { };
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && static_cast<std::size_t>(status.st_size) > maximumPropertyListSize;
}

} // namespace

SettingsFile::SettingsFile(std::string path, std::chrono::milliseconds patience)
    : m_path(std::move(path))
    , m_patience(patience)
{
}

bool SettingsFile::hasChanged() const
{
    struct stat there { };
    bool const exists = ::stat(m_path.c_str(), &there) == 0;
    if (!exists || !m_known.isOpen())
        return exists || m_known.isOpen();
    return !isSameContent(there, m_knownStatus);
}

void SettingsFile::remember()
{
    m_known = FileDescriptor(::open(m_path.c_str(), O_PATH | O_CLOEXEC));
    if (m_known.isOpen() && ::fstat(m_known.get(), &m_knownStatus) != 0)
        m_known = FileDescriptor();
}

Result<PropertyListDictionary, SettingsFile::ReadFailure> SettingsFile::read()
{
    // Remembered before reading: a file replaced in between counts as changed.
    remember();
    auto settings = readDictionary();
    if (!settings)
        m_known = FileDescriptor(); // an unreadable file still counts as changed
    return settings;
}

Result<PropertyListDictionary, SettingsFile::ReadFailure> SettingsFile::readDictionary() const
{
    if (auto broken = brokenLinkAt(m_path))
        return Failure { ReadFailure { ReadFailure::Cause::system, std::move(*broken) } };
    if (isMissing(m_path))
        return PropertyListDictionary();
    if (isTooLarge(m_path))
        return contentFailure("it is larger than the 64 MB that are allowed");
    auto const bytes = readWholeFile(m_path, maximumPropertyListSize);
    if (!bytes)
        return Failure { ReadFailure { ReadFailure::Cause::system, bytes.error() } };
    auto value = readPropertyList(*bytes);
    if (!value)
        return contentFailure(value.error());
    if (!value->dictionary())
        return contentFailure("it is " + std::string(value->typeName()) + " where a dictionary is expected");
    return std::move(*value->dictionary());
}

Result<FileDescriptor> SettingsFile::lock() const
{
    if (auto broken = brokenLinkAt(m_path))
        return Failure { std::move(*broken) };
    if (auto const made = makeFolders(folderOf(m_path), privateFolder); !made)
        return Failure { made.error() };
    return lockFile(m_path + ".lock", m_patience);
}

Result<void> SettingsFile::write(std::vector<std::byte> const& bytes)
{
    // A link to a file kept elsewhere stays a link. The temporary file has a fixed name: under
    // the lock only one exists, and a killed program's leftover is reused.
    auto const target = followingLink(m_path);
    if (auto replaced = replaceFile(target, target + ".new", bytes, privateFile); !replaced)
        return replaced;
    remember();
    return {};
}

void SettingsFile::awaitWriter() const
{
    struct stat status { };
    if (::stat(m_path.c_str(), &status) == 0 && std::time(nullptr) - status.st_mtim.tv_sec <= 1)
        std::this_thread::sleep_for(forWriters);
}

Result<std::string> SettingsFile::setAside()
{
    auto const stem = std::string(deletingPathExtension(m_path)) + ".unreadable-" + dateForFileName();
    for (int attempt = 1; attempt <= 100; ++attempt) {
        auto const name = stem + (attempt > 1 ? "-" + std::to_string(attempt) : std::string()) + ".plist";
        if (::renameat2(AT_FDCWD, m_path.c_str(), AT_FDCWD, name.c_str(), RENAME_NOREPLACE) == 0) {
            m_known = FileDescriptor();
            return name;
        }
        if (errno != EEXIST)
            break;
    }
    return Failure { systemMessage(errno) };
}

} // namespace zv
