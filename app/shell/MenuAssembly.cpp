#include "app/shell/MenuAssembly.h"

#include "app/menu/FileEntry.h"

namespace zv {

namespace {

DynamicLists listsOf(MenuAssembly::Services const& services, DynamicListProvider& machine)
{
    DynamicLists lists;
    for (auto const kind : { MenuItemKind::zantheVellItems, MenuItemKind::mountedVolumes, MenuItemKind::recentServers, MenuItemKind::runningApplications,
             MenuItemKind::ipAddress, MenuItemKind::systemPrefs })
        lists.providers[kind] = &machine;
    lists.shortcuts = services.shortcuts;
    lists.locations = services.networkLocations;
    return lists;
}

} // namespace

MenuAssembly::MenuAssembly(Services services)
    : m_folders(services.folders, services.tasks)
    , m_machineLists({ services.runningApplications, services.volumes, services.recentServers, services.networkInterfaces, services.settingsPanes,
          services.preferences, m_folders, services.itemsFolder })
    , m_lists(listsOf(services, m_machineLists))
    , m_recentItemsProvider(services.recentFiles, [&files = services.locations.files](Url const& url) { return fileEntry(url, files); })
    , m_recentItems(m_recentItemsProvider, services.preferences, services.clock)
    , m_sources { m_folders, m_recentItems, m_lists, services.listedFolders, services.timers }
    , m_icons(services.icons, services.itemsFolder)
    , m_builder({ services.preferences, services.locations, m_icons, services.commands, services.workspace, services.resources, services.text }, m_sources)
{
}

} // namespace zv
