#include "platform/linux/compose/LinuxFiles.h"

#include "platform/linux/files/LinuxFolderReader.h"
#include "platform/linux/install/LinuxInstallation.h"
#include "platform/linux/posix/ProgramFiles.h"
#include "platform/linux/toolkit/ProgramEnvironment.h"

namespace zv {

namespace {

Places placesOf(XdgDirectories const& directories)
{
    auto environment = processEnvironment();
    auto const bundle = LinuxInstallation::runningBundle(environment);
    return { .bundle = bundle,
        .environment = std::move(environment),
        .home = directories.home,
        .itemsFolder = Url::fromPath(itemsFolder(directories)),
        .backupsFolder = Url::fromPath(backupsFolder(directories)) };
}

std::vector<std::string> resourceFolders(Environment const& environment)
{
    auto folders = BundleResources::standardFolders();
    auto const given = environment.find(resourcesVariable);
    if (given != environment.end() && !given->second.empty())
        folders.insert(folders.begin(), given->second);
    return folders;
}

} // namespace

LinuxFiles::LinuxFiles()
    : m_directories(XdgDirectories::current())
    , m_places(placesOf(m_directories))
    , m_defaults(settingsFile(m_directories))
    , m_resources(resourceFolders(m_places.environment))
    , m_disk(std::make_shared<LinuxFileSystem>())
    , m_folders(std::make_shared<LinuxFolderReader>(DesktopAudience::current()))
{
}

Files LinuxFiles::files()
{
    return { .defaults = m_defaults, .resources = m_resources, .disk = m_disk, .bookmarks = m_bookmarks, .aliases = m_aliases, .folders = m_folders };
}

Url LinuxFiles::settingsFolder() const { return Url::fromPath(settingsFile(m_directories)).parent(); }

} // namespace zv
