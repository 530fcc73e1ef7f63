#include "app/shell/MenuAssembly.h"

namespace zv {

MenuAssembly::MenuAssembly(Services services)
    : m_folders(services.folders, services.tasks)
    , m_lists(allLists({ .preferences = services.preferences,
          .folders = m_folders,
          .files = services.locations.files,
          .itemsFolder = services.itemsFolder,
          .recentFiles = services.recentFiles,
          .runningApplications = services.runningApplications,
          .volumes = services.volumes,
          .recentServers = services.recentServers,
          .networkInterfaces = services.networkInterfaces,
          .settingsPanes = services.settingsPanes,
          .tools = services.tools,
          .clock = services.clock,
          .tasks = services.tasks,
          .shortcutCommands = services.shortcutCommands,
          .locationCommands = services.locationCommands }))
    , m_sources { m_folders, m_lists, services.listedFolders, services.timers }
    , m_icons(services.icons, m_lists, services.itemsFolder)
    , m_builder({ services.preferences, services.locations, m_icons, services.commands, services.workspace, services.resources, services.text }, m_sources)
{
}

} // namespace zv
