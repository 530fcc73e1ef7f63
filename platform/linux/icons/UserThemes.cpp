#include "platform/linux/icons/UserThemes.h"

#include "platform/linux/icons/ThemeFolders.h"

#include <QIcon>

#include <sys/stat.h>

namespace zv {

namespace {

constexpr std::size_t mostFolders = 2'000;

bool isTaken(std::string const& path)
{
    struct stat status { };
    return ::lstat(path.c_str(), &status) == 0;
}

} // namespace

std::vector<std::string> iconSearchPaths()
{
    std::vector<std::string> paths;
    for (auto const& path : QIcon::themeSearchPaths() + QIcon::fallbackSearchPaths()) {
        if (path.startsWith(QLatin1Char('/')))
            paths.push_back(path.toStdString());
    }
    return paths;
}

std::vector<std::string> UserThemes::filesOf(std::string_view name)
{
    if (auto paths = iconSearchPaths(); paths != m_searched) {
        find(paths);
        m_searched = std::move(paths);
    }
    std::vector<std::string> files;
    if (m_folders.empty())
        return files;
    // "a-b-c" falls back to "a-b" and to "a".
    for (; !name.empty(); name = name.substr(0, name.find('-') == std::string_view::npos ? 0 : name.rfind('-'))) {
        for (auto const& folder : m_folders) {
            for (auto const extension : pictureExtensions) {
                if (auto file = folder + "/" + std::string(name).append(extension); isTaken(file))
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
        for (auto const& theme : namesInFolder(path)) {
            auto const folders = pictureFoldersOf(path + "/" + std::string(theme));
            m_folders.insert(m_folders.end(), folders.begin(), folders.end());
        }
    }
    if (m_folders.size() > mostFolders)
        m_folders.resize(mostFolders);
}

} // namespace zv
