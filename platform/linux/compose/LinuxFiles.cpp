#include "platform/linux/compose/LinuxFiles.h"

#include "platform/linux/files/LinuxFolderReader.h"
#include "platform/linux/install/LinuxInstallation.h"

#include <glib.h>

namespace zv {

namespace {

/// Those that are not the home folder itself, which stands for none.
std::vector<Url> userFolders(std::string const& home)
{
    std::vector<Url> folders;
    for (auto const directory : { G_USER_DIRECTORY_DESKTOP, G_USER_DIRECTORY_DOCUMENTS, G_USER_DIRECTORY_DOWNLOAD, G_USER_DIRECTORY_PICTURES }) {
        auto const* path = g_get_user_special_dir(directory);
        if (path && path != home)
            folders.push_back(Url::fromPath(path));
    }
    return folders;
}

Places placesOf(ProgramPlaces const& paths, Environment environment)
{
    auto const bundle = LinuxInstallation::runningBundle(environment);
    return { .bundle = bundle,
        .environment = std::move(environment),
        .home = paths.user.home,
        .userFolders = userFolders(paths.user.home),
        .itemsFolder = Url::fromPath(paths.itemsFolder),
        .backupsFolder = Url::fromPath(paths.backupsFolder),
        .chosenFile = Url::fromPath(paths.chosenFile) };
}

/// The one that the user has chosen, and the usual one. A user without any may have chosen the home folder, which is none.
std::vector<std::string> downloadFolders(std::string const& home)
{
    std::vector<std::string> folders { home + "/Downloads" };
    auto const* chosen = g_get_user_special_dir(G_USER_DIRECTORY_DOWNLOAD);
    if (chosen && *chosen && !isAtOrBelow(home, chosen))
        folders.emplace_back(chosen);
    return folders;
}

} // namespace

LinuxFiles::LinuxFiles(Environment environment)
    : m_paths(ProgramPlaces::of(environment))
    , m_audience { userLanguages(), desktopsNamed(valueOf(environment, "XDG_CURRENT_DESKTOP")) }
    , m_trust(m_paths.user.applicationFolders())
    , m_places(placesOf(m_paths, std::move(environment)))
    , m_defaults(m_paths.settingsFile, SettingsFile::usualPatience, GivenSettings::read(m_paths.givenSettings))
    , m_resources(m_paths.resourceFolders())
    , m_disk(std::make_shared<LinuxFileSystem>(MountWatch::systemTable, m_trust))
    , m_folders(std::make_shared<LinuxFolderReader>(m_audience, MountWatch::systemTable,
          NameDoubts { .itemsFolder = m_paths.itemsFolder, .downloadFolders = downloadFolders(m_paths.user.home), .trust = m_trust }))
{
}

Files LinuxFiles::files()
{
    return { .defaults = m_defaults, .resources = m_resources, .disk = m_disk, .bookmarks = m_bookmarks, .aliases = m_aliases, .folders = m_folders };
}

} // namespace zv
