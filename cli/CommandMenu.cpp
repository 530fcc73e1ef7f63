#include "cli/CommandMenu.h"

namespace zv {

CommandMenu::CommandMenu(Platform platform)
    : m_actions(platform.actions)
    , m_menus(menuServices(platform))
    , m_session(m_menus.builder(), platform.actions.turnUntil)
{
}

MenuAssembly::Services CommandMenu::menuServices(Platform const& platform)
{
    auto const& actions = platform.actions;
    return { platform.preferences, actions.locations, platform.resources, platform.folders, platform.cells, platform.recentFiles, platform.icons,
        m_actions.commands(), actions.workspace, actions.runningApplications, platform.volumes, platform.recentServers, platform.networkInterfaces,
        platform.settingsPanes, m_hotkeys, actions.tools, m_actions.commands(), m_actions.commands(), actions.clock, platform.timers, actions.tasks,
        actions.itemsFolder };
}

} // namespace zv
