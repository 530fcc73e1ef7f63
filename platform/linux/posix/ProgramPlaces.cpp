#include "platform/linux/posix/ProgramPlaces.h"

#include "platform/linux/posix/WholeFiles.h"

#include <climits>
#include <cstdlib>
#include <unistd.h>

namespace zv {

namespace {

std::string programFolder()
{
    char path[PATH_MAX];
    return ::realpath("/proc/self/exe", path) ? folderOf(path) : std::string("/usr/bin");
}

std::vector<std::string> inEach(std::vector<std::string> folders, std::string_view file)
{
    for (auto& folder : folders)
        folder += file;
    return folders;
}

/// The folder of the user's session, also for a start that was told nothing of it. The cache serves where there is
/// none.
std::string sessionFolder(XdgDirectories const& user)
{
    auto const usual = "/run/user/" + std::to_string(::getuid());
    if (!user.runtime.empty())
        return user.runtime;
    return ::access(usual.c_str(), W_OK) == 0 ? usual : user.cache;
}

} // namespace

ProgramPlaces ProgramPlaces::of(Environment const& environment)
{
    static constexpr char const* name = "/zanthe-vell";
    static constexpr char const* settings = "/zanthe-vell/org.zanthevell.ZantheVell.plist";
    auto const user = XdgDirectories::of(environment);
    auto const program = programFolder();
    return {
        .user = user,
        .settingsFile = user.config + settings,
        .givenSettings = inEach(user.configDirs, settings),
        .itemsFolder = user.data + name + "/Zanthe Vell Items",
        .backupsFolder = user.data + name + "/Backups",
        .chosenFile = user.data + name + "/Search/Chosen.plist",
        .launchLog = user.state + name + "/launches",
        .downloadsFolder = user.cache + name,
        .instanceLock = sessionFolder(user) + name + ".lock",
        .givenResources = valueOf(environment, "ZANTHE_VELL_RESOURCES"),
        .ownResources = { program + "/resources", folderOf(program) + "/share" + name },
        .catalogues = { program + "/locale", folderOf(program) + "/share/locale" },
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
