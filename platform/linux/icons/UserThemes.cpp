#include "platform/linux/icons/UserThemes.h"

#include "base/Split.h"
#include "platform/linux/posix/FolderStream.h"
#include "platform/linux/posix/WholeFiles.h"

#include <QIcon>

#include <sys/stat.h>

namespace zv {

namespace {

constexpr std::size_t largestIndex = std::size_t { 1 } << 20;
constexpr std::size_t mostFolders = 2'000;
constexpr char const* extensions[] = { ".png", ".svg", ".svgz", ".xpm" };
// https://specifications.freedesktop.org/icon-theme-spec, "File Formats".
constexpr std::string_view folderKeys[] = { "Directories=", "ScaledDirectories=" };

std::vector<std::string> themesIn(std::string const& folder)
{
    std::vector<std::string> themes;
    FolderStream const stream(::opendir(folder.c_str()));
    while (auto const* entry = stream ? ::readdir(stream.get()) : nullptr) {
        if (entry->d_name[0] != '.')
            themes.push_back(folder + "/" + entry->d_name);
    }
    return themes;
}

void addFoldersOf(std::string const& theme, std::vector<std::string>& folders)
{
    auto const index = readTextFile(theme + "/index.theme", largestIndex).value_or("");
    for (auto const line : split(index, '\n')) {
        for (auto const key : folderKeys) {
            if (!line.starts_with(key))
                continue;
            for (auto const name : split(line.substr(key.size()), ','))
                folders.push_back(theme + "/" + std::string(name));
        }
    }
}

std::vector<std::string> searchPaths()
{
    std::vector<std::string> paths;
    for (auto const& path : QIcon::themeSearchPaths() + QIcon::fallbackSearchPaths()) {
        if (path.startsWith(QLatin1Char('/')))
            paths.push_back(path.toStdString());
    }
    return paths;
}

bool isTaken(std::string const& path)
{
    struct stat status { };
    return ::lstat(path.c_str(), &status) == 0;
}

} // namespace

std::vector<std::string> UserThemes::filesOf(std::string_view name)
{
    if (auto paths = searchPaths(); paths != m_searched) {
        find(paths);
        m_searched = std::move(paths);
    }
    std::vector<std::string> files;
    if (m_folders.empty())
        return files;
    // "a-b-c" falls back to "a-b" and to "a".
    for (; !name.empty(); name = name.substr(0, name.find('-') == std::string_view::npos ? 0 : name.rfind('-'))) {
        for (auto const& folder : m_folders) {
            for (auto const* extension : extensions) {
                if (auto file = folder + "/" + std::string(name) + extension; isTaken(file))
                    files.push_back(std::move(file));
            }
        }
    }
    return files;
}

void UserThemes::find(std::vector<std::string> const& searchPaths)
{
    m_folders.clear();
    for (auto const& path : searchPaths) {
        struct stat status { };
        if (::stat(path.c_str(), &status) != 0 || status.st_uid == m_system)
            continue;
        m_folders.push_back(path);
        for (auto const& theme : themesIn(path))
            addFoldersOf(theme, m_folders);
    }
    if (m_folders.size() > mostFolders)
        m_folders.resize(mostFolders);
}

} // namespace zv
