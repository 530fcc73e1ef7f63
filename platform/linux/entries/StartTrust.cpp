#include "platform/linux/entries/StartTrust.h"

#include "platform/linux/posix/Paths.h"
#include "platform/linux/posix/WholeFiles.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <sys/stat.h>
#include <sys/vfs.h>

namespace zv {

namespace {

constexpr int mostLinks = 40; // the kernel's limit

// linux/magic.h, and the drivers that name theirs in their own sources.
constexpr long typesWithoutBits[] = { 0x4d44 /* vfat */, 0x2011BAB0 /* exfat */, 0x5346544e /* ntfs */, 0x7366746e /* ntfs3 */, 0x65735546 /* fuse */ };

std::optional<struct stat> regularFile(std::string const& path)
{
    struct stat status { };
    bool const isRegular = ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
    return isRegular ? std::optional(status) : std::nullopt;
}

bool liesOnKeepingFileSystem(std::string const& path)
{
    struct statfs volume { };
    return ::statfs(path.c_str(), &volume) == 0 && keepsExecutableBits(volume.f_type);
}

std::optional<std::string> linkTarget(std::string const& path)
{
    char target[PATH_MAX];
    auto const length = ::readlink(path.c_str(), target, sizeof target);
    return length < 0 ? std::nullopt : std::optional(std::string(target, static_cast<std::size_t>(length)));
}

/// The folders of the file and of each link on the way to it, free of links.
std::vector<std::string> foldersOnTheWay(std::string path)
{
    std::vector<std::string> folders;
    for (int links = 0; links <= mostLinks; ++links) {
        char resolved[PATH_MAX];
        if (!::realpath(folderOf(path).c_str(), resolved))
            break;
        folders.emplace_back(resolved);
        auto const target = linkTarget(path);
        if (!target)
            break;
        path = target->starts_with('/') ? *target : folders.back() + "/" + *target;
    }
    return folders;
}

} // namespace

bool StartTrust::trusts(std::string const& path) const
{
    auto const file = regularFile(path);
    if (!file)
        return false;
    bool const isExecutable = file->st_uid == m_users.self && (file->st_mode & S_IXUSR) != 0;
    return file->st_uid == m_users.system || (isExecutable && liesOnKeepingFileSystem(path)) || isInstalled(path);
}

bool StartTrust::canBeTrusted(std::string const& path) const
{
    auto const file = regularFile(path);
    return file && file->st_uid == m_users.self && liesOnKeepingFileSystem(path);
}

bool StartTrust::isInstalled(std::string const& path) const
{
    auto const onTheWay = foldersOnTheWay(path);
    return std::any_of(m_folders.begin(), m_folders.end(), [&](std::string const& folder) {
        char resolved[PATH_MAX];
        return ::realpath(folder.c_str(), resolved)
            && std::any_of(onTheWay.begin(), onTheWay.end(), [&](std::string const& each) { return isAtOrBelow(each, resolved); });
    });
}

bool keepsExecutableBits(long fileSystemType)
{
    return std::find(std::begin(typesWithoutBits), std::end(typesWithoutBits), fileSystemType) == std::end(typesWithoutBits);
}

} // namespace zv
