#include "platform/linux/apps/XdgApplicationFolders.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace zv {

namespace {

using Category = ApplicationCategory;

/// The main categories in the order in which the first that an entry names decides: a game that is also a utility is
/// a game.
constexpr std::array<std::pair<std::string_view, Category>, 13> mainCategories { {
    { "Game", Category::games },
    { "Settings", Category::settings },
    { "Education", Category::education },
    { "Science", Category::science },
    { "Development", Category::development },
    { "Graphics", Category::graphics },
    { "Office", Category::office },
    { "Network", Category::internet },
    { "AudioVideo", Category::multimedia },
    { "Audio", Category::multimedia },
    { "Video", Category::multimedia },
    { "System", Category::system },
    { "Utility", Category::accessories },
} };

Category categoryOf(ApplicationEntry const& entry)
{
    auto const first = std::find_if(mainCategories.begin(), mainCategories.end(), [&](auto const& row) { return entry.hasCategory(row.first); });
    return first == mainCategories.end() ? Category::other : first->second;
}

std::vector<InstalledApplication> applicationsToStart(ApplicationIndex const& index)
{
    std::vector<InstalledApplication> applications;
    for (auto const& entry : index.entries()) {
        if (entry.isListed() && entry.missingProgram().empty())
            applications.push_back({ entry.name, Url::fromPath(entry.path), categoryOf(entry) });
    }
    return applications;
}

} // namespace

XdgApplicationFolders::XdgApplicationFolders(ApplicationCatalog& catalog, std::vector<std::string> folders)
    : m_catalog(catalog)
    , m_folders(std::move(folders))
{
}

bool XdgApplicationFolders::contains(Url const& folder) const { return std::find(m_folders.begin(), m_folders.end(), folder.path()) != m_folders.end(); }

void XdgApplicationFolders::list(std::function<void(std::vector<InstalledApplication>)> done)
{
    m_catalog.withIndex([done = std::move(done)](ApplicationCatalog::Index const& index) { done(applicationsToStart(*index)); });
}

} // namespace zv
