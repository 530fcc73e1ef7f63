#include "app/shell/Menus.h"

#include "app/menu/FileEntry.h"
#include "app/model/Locations.h"

#include <utility>

namespace zv {

Menus::Menus(Parts parts)
    : m_locations(locationsOf(parts.system))
    , m_confirmation(parts.desk.application, parts.desk.alerts)
    , m_session(parts.system.session.events, m_confirmation)
    , m_scripts(parts.system.session.scripts, [this] { return m_confirmation.confirmsForceQuit(); })
    , m_actions({ .system = parts.system, .desk = parts.desk, .session = m_session, .scripts = m_scripts, .shell = std::move(parts.shell) })
    , m_folders(parts.system.files.folders, parts.system.time.tasks)
    , m_machineLists({ .lists = parts.system.lists, .preferences = parts.preferences, .folders = m_folders, .itemsFolder = parts.system.places.itemsFolder })
    , m_recentItemsProvider(parts.system.lists.recentFiles, [disk = parts.system.files.disk](Url const& url) { return fileEntry(url, *disk); })
    , m_recentItems(m_recentItemsProvider, parts.preferences, parts.system.time.clock)
    , m_shortcuts(ShortcutsProvider(parts.system.session.tools), parts.system.time.clock, parts.system.time.tasks)
    , m_shortcutsMenu(m_shortcuts, m_actions)
    , m_networkLocationsMenu(NetworkLocations(parts.system.session.tools), m_actions)
    , m_lists(lists())
    , m_sources { m_folders, m_recentItems, m_lists, parts.listedFolders, parts.system.time.timers }
    , m_icons(parts.looks.icons, parts.system.places.itemsFolder)
    , m_builder({ .preferences = parts.preferences,
                    .locations = m_locations,
                    .icons = m_icons,
                    .commands = m_actions,
                    .workspace = parts.system.session.workspace,
                    .resources = parts.system.files.resources,
                    .text = parts.looks.text },
          m_sources)
{
}

DynamicLists Menus::lists()
{
    DynamicLists lists;
    for (auto const kind : { MenuItemKind::zantheVellItems, MenuItemKind::mountedVolumes, MenuItemKind::recentServers, MenuItemKind::runningApplications,
             MenuItemKind::ipAddress, MenuItemKind::systemPrefs })
        lists.providers[kind] = &m_machineLists;
    lists.shortcuts = &m_shortcutsMenu;
    lists.locations = &m_networkLocationsMenu;
    return lists;
}

void Menus::refreshLists(std::vector<MenuItem> const& items)
{
    constexpr std::pair<MenuItemKind::Case, RecentItemsScope> scopes[] = {
        { MenuItemKind::recentItems, RecentItemsScope::all },
        { MenuItemKind::recentApps, RecentItemsScope::applications },
        { MenuItemKind::recentFolders, RecentItemsScope::folders },
        { MenuItemKind::recentDocs, RecentItemsScope::documents },
    };
    for (auto const& [kind, scope] : scopes) {
        if (containsKind(items, kind))
            m_recentItems.refresh(scope);
    }
    if (containsKind(items, MenuItemKind::shortcuts))
        m_shortcuts.refresh();
}

} // namespace zv
