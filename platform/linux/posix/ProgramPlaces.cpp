#include "platform/linux/posix/ProgramPlaces.h"

#include "platform/linux/posix/WholeFiles.h"

#include <climits>
#include <cstdlib>

namespace zv {

namespace {

std::string programFolder()
{
    char path[PATH_MAX];
    return ::realpath("/proc/self/exe", path) ? folderOf(path) : std::string("/usr/bin");
}

} // namespace

ProgramPlaces ProgramPlaces::of(Environment const& environment)
{
    static constexpr char const* name = "/zanthe-vell";
    auto const user = XdgDirectories::of(environment);
    auto const program = programFolder();
    return {
        .user = user,
        .settingsFile = user.config + name + "/org.zanthevell.ZantheVell.plist",
        .itemsFolder = user.data + name + "/Zanthe Vell Items",
        .backupsFolder = user.data + name + "/Backups",
        .launchLog = user.state + name + "/launches",
        .downloadsFolder = user.cache + name,
        .givenResources = valueOf(environment, "ZANTHE_VELL_RESOURCES"),
        .ownResources = { program + "/resources", folderOf(program) + "/share" + name },
    };
}

std::vector<std::string> ProgramPlaces::resourceFolders() const
{
    auto folders = ownResources;
    if (!givenResources.empty())
        folders.insert(folders.begin(), givenResources);
    return folders;
}

} // namespace zv
