#include "platform/linux/files/NameDoubts.h"

#include "base/Url.h"
#include "platform/linux/entries/PackageName.h"
#include "platform/linux/entries/Startable.h"
#include "platform/linux/posix/WholeFiles.h"

#include <algorithm>
#include <cstdlib>
#include <sys/stat.h>
#include <sys/xattr.h>

namespace zv {

namespace {

// https://www.freedesktop.org/wiki/CommonExtendedAttributes
constexpr char const* downloadMarks[] = { "user.xdg.origin.url", "user.xdg.referrer.url" };

bool carriesDownloadMark(std::string const& path)
{
    return std::any_of(std::begin(downloadMarks), std::end(downloadMarks), [&](char const* mark) { return ::lgetxattr(path.c_str(), mark, nullptr, 0) >= 0; });
}

bool isBelowAny(std::string const& path, std::vector<std::string> const& folders)
{
    return std::any_of(folders.begin(), folders.end(), [&](std::string const& folder) { return isAtOrBelow(path, withoutLinks(folder)); });
}

} // namespace

std::optional<NameDoubt> NameDoubts::about(std::string const& path, MountTable const& mounts) const
{
    auto const folder = mounts.follow(folderOf(path));
    auto const file = folder.path + "/" + std::string(lastPathComponent(path));
    auto const* mount = mounts.mountOf(file);
    if (folder.kind == MountTable::Fate::Kind::remote || (mount && isRemovable(*mount)))
        return NameDoubt::onForeignVolume;
    struct stat status { };
    if (::lstat(file.c_str(), &status) != 0 || status.st_uid != user)
        return NameDoubt::ofAnotherUser;
    bool const isAnItem = folder.path == withoutLinks(itemsFolder);
    if (!isAnItem && carriesDownloadMark(file))
        return NameDoubt::downloaded;
    if (!isAnItem && isBelowAny(file, downloadFolders))
        return NameDoubt::amongDownloads;
    auto const target = mounts.follow(file);
    if (target.kind == MountTable::Fate::Kind::remote)
        return isApplicationEntryName(file) ? std::optional(NameDoubt::onForeignVolume) : std::nullopt;
    auto const startable = startableAt(file);
    return startable && !trust.trusts(startable->file) ? std::optional(NameDoubt::notInstalled) : std::nullopt;
}

bool isRemovable(Mount const& mount)
{
    if (mount.path.starts_with("/media/") || mount.path.starts_with("/run/media/"))
        return true;
    auto const device = "/sys/dev/block/" + mount.device;
    // A partition has no such file, but the disk around it has.
    return readTextFile(device + "/removable").value_or("") == "1\n" || readTextFile(device + "/../removable").value_or("") == "1\n";
}

} // namespace zv
