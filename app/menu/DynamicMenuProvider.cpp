#include "app/menu/DynamicMenuProvider.h"

#include "app/menu/MachineLists.h"
#include "base/MainThread.h"

#include <utility>

namespace zv {

namespace {

using Done = std::function<void(std::vector<DynamicEntry>)>;

/// Hands on the entries that `make` makes of what a seam tells.
template <class Told, class Make> std::function<void(Told)> turnedInto(Make make, Done done)
{
    return [make = std::move(make), done = std::move(done)](Told told) { done(make(std::move(told))); };
}

/// A folder that nobody has made yet is an empty list.
std::vector<DynamicEntry> itemsFolderEntries(FolderListing const& listing)
{
    return listing.failure == FolderReadFailure::notFound ? std::vector<DynamicEntry> {} : listing.entries;
}

} // namespace

DynamicMenuProvider::DynamicMenuProvider(Services services)
    : m_services(std::move(services))
{
}

void DynamicMenuProvider::entries(MenuItemKind const& kind, std::optional<ItemLocation> const&, std::int64_t, Done done)
{
    assertMainThread();
    switch (kind.value()) {
    case MenuItemKind::zantheVellItems:
        return listItemsFolder(std::move(done));
    case MenuItemKind::mountedVolumes:
        return m_services.lists.volumes.list(turnedInto<std::vector<Volume>>(volumeEntries, std::move(done)));
    case MenuItemKind::recentServers: {
        auto const limited = [limit = m_services.preferences.recentItemsLimit()](auto const& servers) { return recentServerEntries(servers, limit); };
        return m_services.lists.recentServers.list(turnedInto<RecentServers::List>(limited, std::move(done)));
    }
    case MenuItemKind::runningApplications:
        return m_services.lists.runningApplications.list(turnedInto<RunningApplications::List>(runningApplicationEntries, std::move(done)));
    case MenuItemKind::ipAddress:
        return m_services.lists.networkInterfaces.list(turnedInto<std::vector<InterfaceAddress>>(addressEntries, std::move(done)));
    case MenuItemKind::systemPrefs:
        return m_services.lists.settingsPanes.list(turnedInto<std::vector<SettingsPane>>(settingsPaneEntries, std::move(done)));
    default:
        return done({});
    }
}

/// One on a volume that may not answer is neither read nor looked for on the main thread.
void DynamicMenuProvider::listItemsFolder(Done done) const
{
    FolderListingOptions const options { m_services.preferences.showHiddenFiles(), m_services.preferences.sortFoldersFirst() };
    auto answer = [done = std::move(done)](FolderListing const& listing) { done(itemsFolderEntries(listing)); };
    if (m_services.folders.isRemote(m_services.itemsFolder))
        m_services.folders.listInBackground(m_services.itemsFolder, options, std::move(answer));
    else
        answer(m_services.folders.list(m_services.itemsFolder, options));
}

} // namespace zv
