#include "app/shell/Menus.h"

#include "app/lists/AllLists.h"
#include "app/model/Locations.h"
#include "app/search/SubmenuSearch.h"

#include <utility>

namespace zv {

Menus::Menus(Parts parts)
    : m_system(parts.system)
    , m_chosen(parts.chosen)
    , m_locations(locationsOf(parts.system))
    , m_confirmation(parts.desk.application, parts.desk.alerts)
    , m_session(parts.system.session.events, m_confirmation)
    , m_scripts(parts.system.session.scripts, [this] { return m_confirmation.confirmsForceQuit(); })
    , m_actions({ .system = parts.system, .desk = parts.desk, .session = m_session, .scripts = m_scripts, .shell = std::move(parts.shell) })
    , m_kept(parts.system.files.defaults)
    , m_openingKeys(parts.desk.modifierKeys)
    , m_folders(parts.system.files.folders, parts.system.time.tasks)
    , m_lists(allLists({ .preferences = parts.preferences,
          .kept = m_kept,
          .folders = m_folders,
          .files = *parts.system.files.disk,
          .itemsFolder = parts.system.places.itemsFolder,
          .listedFolders = parts.listedFolders,
          .seams = parts.system.lists,
          .tools = parts.system.session.tools,
          .clock = parts.system.time.clock,
          .tasks = parts.system.time.tasks,
          .shortcutCommands = m_actions,
          .locationCommands = m_actions }))
    , m_ownItems(parts.system.kind, parts.system.places.itemsFolder, *parts.system.files.disk)
    , m_scriptMenus(
          { .tools = parts.system.session.tools, .tasks = parts.system.time.tasks, .workspace = parts.system.session.workspace, .ownItems = m_ownItems })
    , m_sources { m_folders, m_lists, parts.listedFolders, parts.system.time.timers, m_openingKeys, parts.system.lists.applicationFolders, &m_scriptMenus }
    , m_icons(parts.looks.icons, m_lists, parts.system.places.itemsFolder,
          [&preferences = parts.preferences, kind = parts.system.kind] { return kind != SystemKind::macOS || preferences.showCommandIcons(); })
    , m_entryMenu({ .system = parts.system,
          .desk = parts.desk,
          .preferences = parts.preferences,
          .kept = m_kept,
          .commands = m_actions,
          .icons = m_icons,
          .shell = std::move(parts.entryShell) })
    , m_builder({ .preferences = parts.preferences,
                    .locations = m_locations,
                    .icons = m_icons,
                    .commands = m_actions,
                    .entryMenus = m_entryMenu,
                    .workspace = parts.system.session.workspace,
                    .resources = parts.system.files.resources,
                    .text = parts.looks.text },
          m_sources)
{
}

std::shared_ptr<MenuSearch> Menus::searchBelow(Menu const& start) const
{
    return std::make_shared<SubmenuSearch>(
        SubmenuSearch::Services { .builder = m_builder, .sources = m_sources, .files = m_system.files.disk, .tasks = m_system.time.tasks, .chosen = m_chosen },
        start);
}

} // namespace zv
