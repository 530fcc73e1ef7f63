#include "platform/linux/files/LinuxFileSystem.h"

#include "base/Uuid.h"
#include "platform/linux/entries/ApplicationEntry.h"
#include "platform/linux/entries/PackageName.h"
#include "platform/linux/posix/FolderStream.h"
#include "platform/linux/posix/GObjects.h"
#include "platform/linux/posix/WholeFiles.h"
#include "platform/text/Text.h"

#include <cerrno>
#include <chrono>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <gio/gunixmounts.h>
#include <memory>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>
#include <utility>

namespace zv {

namespace {

/// Larger than any document of ours; keeps a wrongly chosen file from filling the memory.
constexpr std::size_t mostBytesRead = std::size_t { 256 } << 20;

enum class Links { followed, kept };

/// Nothing when there is no such file. Never triggers an automatic mount.
std::optional<struct stat> statusOf(std::string const& path, Links links)
{
    struct stat status { };
    int const flags = AT_NO_AUTOMOUNT | (links == Links::kept ? AT_SYMLINK_NOFOLLOW : 0);
    return ::fstatat(AT_FDCWD, path.c_str(), &status, flags) == 0 ? std::optional(status) : std::nullopt;
}

std::string temporaryBeside(std::string const& path) { return folderOf(path) + "/.zanthe-vell-" + Uuid::random().toString(); }

bool isDotOrDotDot(std::string_view name) { return name == "." || name == ".."; }

struct FreeMountEntry {
    void operator()(GUnixMountEntry* entry) const { g_unix_mount_free(entry); }
};

/// Traits guessed from the name: without an extension, a folder.
FileTraits traitsByName(std::string_view name)
{
    bool const isFolder = pathExtension(name).empty() || isPackageFolderName(name);
    return { isFolder, isPackageFolderName(name) || isApplicationEntryName(name) };
}

FileFault faultOfEntry(std::string const& path)
{
    auto const text = readDesktopEntry(AT_FDCWD, path.c_str());
    auto const needed = DesktopEntry(text).text("TryExec");
    return needed.empty() || isInstalled(needed) ? FileFault::none : FileFault::programMissing;
}

Result<void> writeWhole(Url const& url, std::vector<std::byte> const& bytes, mode_t newMode)
{
    if (auto broken = brokenLinkAt(url.path()))
        return Failure { std::move(*broken) };
    // Writes to a link's target, so that the link stays.
    auto const path = followingLink(url.path());
    auto const status = statusOf(path, Links::followed);
    if (status && !S_ISREG(status->st_mode))
        return Failure { S_ISDIR(status->st_mode) ? systemMessage(EISDIR) : "Not a regular file" };
    return replaceFile(path, temporaryBeside(path), bytes, newMode);
}

} // namespace

LinuxFileSystem::LinuxFileSystem(std::string mountInfoPath, StartTrust trust)
    : m_mounts(std::move(mountInfoPath))
    , m_trust(std::move(trust))
{
}

bool LinuxFileSystem::exists(Url const& url) const
{
    auto const path = url.path();
    return m_mounts.isRemote(path) || statusOf(path, Links::followed).has_value();
}

bool LinuxFileSystem::isTaken(Url const& url) const { return statusOf(url.path(), Links::kept).has_value(); }

std::optional<FileTraits> LinuxFileSystem::traits(Url const& url) const
{
    auto const path = url.path();
    if (m_mounts.isRemote(path))
        return traitsByName(url.lastPathComponent());
    auto const asked = std::chrono::steady_clock::now();
    auto const status = statusOf(path, Links::followed);
    if (status)
        m_mounts.noteAnswer(status->st_dev, std::chrono::steady_clock::now() - asked);
    if (!status)
        return isTaken(url) ? std::optional(FileTraits { .fault = FileFault::leadsNowhere }) : std::nullopt;
    auto const target = followingLink(path); // decides what it is, as in a listing
    auto const name = lastPathComponent(target);
    bool const isDirectory = S_ISDIR(status->st_mode);
    bool const isEntry = !isDirectory && isApplicationEntryName(name);
    return FileTraits { isDirectory, isDirectory ? isPackageFolderName(name) : isEntry, isEntry ? faultOfEntry(target) : FileFault::none };
}

Url LinuxFileSystem::resolvingSymlinks(Url const& url) const
{
    auto const path = url.path();
    char resolved[PATH_MAX];
    return !m_mounts.isRemote(path) && ::realpath(path.c_str(), resolved) ? Url::fromPath(resolved) : url;
}

/// The name of a trusted entry's application; of other files, the file name.
std::string LinuxFileSystem::localizedName(Url const& url) const
{
    auto const name = url.lastPathComponent();
    bool const isReadable = isApplicationEntryName(name) && !m_mounts.isRemote(url.path()) && m_trust.trusts(url.path());
    auto const entry = isReadable ? readApplicationEntry(url.path(), name, { userLanguages(), {} }) : std::nullopt;
    return withValidUtf8(entry ? entry->name : name);
}

std::optional<std::string> LinuxFileSystem::volumeName(Url const& url) const
{
    std::unique_ptr<GUnixMountEntry, FreeMountEntry> const entry(g_unix_mount_at(url.path().c_str(), nullptr));
    if (!entry)
        return std::nullopt;
    if (url.path() == "/")
        return std::string(); // the library's own words for it, not a name
    return withValidUtf8(taken(g_unix_mount_guess_name(entry.get())));
}

bool LinuxFileSystem::isOnReadOnlyVolume(Url const& url) const
{
    struct statvfs volume { };
    return ::statvfs(url.path().c_str(), &volume) == 0 && (volume.f_flag & ST_RDONLY) != 0;
}

Result<void> LinuxFileSystem::createDirectory(Url const& url) { return makeFolders(url.path(), 0777); }

bool LinuxFileSystem::isWritableDirectory(Url const& url) const
{
    auto const status = statusOf(url.path(), Links::followed);
    return status && S_ISDIR(status->st_mode) && ::faccessat(AT_FDCWD, url.path().c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

Result<std::vector<std::byte>> LinuxFileSystem::read(Url const& url) const { return readWholeFile(url.path(), mostBytesRead); }

Result<void> LinuxFileSystem::write(Url const& url, std::vector<std::byte> const& bytes) { return writeWhole(url, bytes, 0666); }

Result<void> LinuxFileSystem::writePrivately(Url const& url, std::vector<std::byte> const& bytes)
{
    auto const folder = url.parent().path();
    if (auto made = makeFolders(folder, 0700); !made)
        return made;
    (void)::chmod(folder.c_str(), 0700); // one of another owner is as private as that owner wants it
    return writeWhole(url, bytes, 0600);
}

Result<void> LinuxFileSystem::makeStartable(Url const& url)
{
    auto const path = url.path();
    auto const status = statusOf(path, Links::followed);
    if (!status || ::chmod(path.c_str(), (status->st_mode & 07777) | S_IXUSR) != 0)
        return Failure { systemMessage(errno) };
    return {};
}

Result<std::vector<std::string>> LinuxFileSystem::names(Url const& folder) const
{
    FolderStream const stream(::opendir(folder.path().c_str()));
    if (!stream)
        return Failure { systemMessage(errno) };
    std::vector<std::string> names;
    while (auto const* entry = ::readdir(stream.get())) {
        if (!isDotOrDotDot(entry->d_name))
            names.emplace_back(entry->d_name);
    }
    return names;
}

Result<void> LinuxFileSystem::remove(Url const& url)
{
    if (std::remove(url.path().c_str()) != 0)
        return Failure { systemMessage(errno) };
    return {};
}

Result<void> LinuxFileSystem::rename(Url const& from, Url const& to)
{
    if (::renameat2(AT_FDCWD, from.path().c_str(), AT_FDCWD, to.path().c_str(), RENAME_NOREPLACE) != 0)
        return Failure { systemMessage(errno) };
    return {};
}

} // namespace zv
