#include "platform/linux/files/LinuxBookmarks.h"

#include "platform/linux/posix/FolderStream.h"
#include "platform/linux/posix/WholeFiles.h"

#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <utility>

namespace zv {

namespace {

constexpr std::string_view signature = "zvb1";

/// The identity of a file, which renaming keeps. Inode numbers are reused after a file is
/// deleted; the birth time tells the new file from the old. Zero where the file system stores
/// none.
struct Identity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t birth = 0;
};

struct Entry {
    Identity identity;
    bool isLink;
};

constexpr std::size_t headerSize = signature.size() + sizeof(Identity);

/// Status of the entry itself; links are not followed.
std::optional<Entry> entryAt(int folder, char const* path)
{
    struct statx status { };
    // Asks for the time of the last change too, because kernels stamp changes after such a query
    // more finely: a file made a moment later then has another birth time.
    constexpr unsigned wanted = STATX_TYPE | STATX_INO | STATX_BTIME | STATX_CTIME;
    if (::statx(folder, path, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, wanted, &status) != 0)
        return std::nullopt;
    bool const hasBirth = (status.stx_mask & STATX_BTIME) != 0;
    auto const birth = hasBirth ? status.stx_btime.tv_sec * 1'000'000'000 + status.stx_btime.tv_nsec : 0;
    return Entry { { ::makedev(status.stx_dev_major, status.stx_dev_minor), status.stx_ino, birth }, S_ISLNK(status.stx_mode) };
}

/// Device numbers may change at a restart of the system, so a matching birth time also confirms
/// an inode.
bool isSameFile(Identity const& recorded, Identity const& found)
{
    bool const hasSameBirth = recorded.birth == found.birth;
    return recorded.inode == found.inode && hasSameBirth && (recorded.device == found.device || recorded.birth != 0);
}

/// Nothing for a broken link either.
std::optional<Identity> identityOf(std::string const& path)
{
    auto const entry = entryAt(AT_FDCWD, path.c_str());
    struct stat target { };
    if (!entry || (entry->isLink && ::fstatat(AT_FDCWD, path.c_str(), &target, AT_NO_AUTOMOUNT) != 0))
        return std::nullopt;
    return entry->identity;
}

/// The path of the file with the identity in the folder of `path`.
std::optional<std::string> findBeside(std::string const& path, Identity const& identity)
{
    auto const folder = folderOf(path);
    FolderStream const stream(::opendir(folder.c_str()));
    if (!stream)
        return std::nullopt;
    while (auto const* entry = ::readdir(stream.get())) {
        // The inode number first, as it costs no system call.
        if (entry->d_ino != identity.inode)
            continue;
        auto const found = entryAt(::dirfd(stream.get()), entry->d_name);
        if (found && isSameFile(identity, found->identity))
            return (folder == "/" ? folder : folder + "/") + entry->d_name;
    }
    return std::nullopt;
}

BookmarkData dataOf(Identity const& identity, std::string_view path)
{
    BookmarkData data(headerSize + path.size());
    std::memcpy(data.data(), signature.data(), signature.size());
    std::memcpy(data.data() + signature.size(), &identity, sizeof identity);
    std::memcpy(data.data() + headerSize, path.data(), path.size());
    return data;
}

struct Recorded {
    Identity identity;
    std::string path;
};

std::optional<Recorded> recordedIn(BookmarkData const& data)
{
    if (data.size() <= headerSize || std::memcmp(data.data(), signature.data(), signature.size()) != 0)
        return std::nullopt;
    Recorded recorded;
    std::memcpy(&recorded.identity, data.data() + signature.size(), sizeof recorded.identity);
    recorded.path.assign(reinterpret_cast<char const*>(data.data()) + headerSize, data.size() - headerSize);
    bool const isPath = recorded.path.starts_with('/') && recorded.path.find('\0') == std::string::npos;
    return isPath ? std::optional(std::move(recorded)) : std::nullopt;
}

} // namespace

LinuxBookmarks::LinuxBookmarks(std::string mountInfoPath)
    : m_mounts(std::move(mountInfoPath))
{
}

std::optional<BookmarkData> LinuxBookmarks::create(Url const& url) const
{
    auto const path = url.path();
    if (m_mounts.isRemote(path))
        return std::nullopt;
    auto const identity = identityOf(path);
    return identity ? std::optional(dataOf(*identity, path)) : std::nullopt;
}

std::optional<ResolvedBookmark> LinuxBookmarks::resolve(BookmarkData const& data) const
{
    auto const recorded = recordedIn(data);
    if (!recorded)
        return std::nullopt;
    if (m_mounts.isRemote(recorded->path))
        return ResolvedBookmark { Url::fromPath(recorded->path), false };
    // A program that saves by replacing the file leaves another identity at the path.
    if (auto const identity = identityOf(recorded->path))
        return ResolvedBookmark { Url::fromPath(recorded->path), !isSameFile(recorded->identity, *identity) };
    auto const moved = findBeside(recorded->path, recorded->identity);
    if (!moved || !identityOf(*moved))
        return std::nullopt;
    return ResolvedBookmark { Url::fromPath(*moved), true };
}

} // namespace zv
