#include "app/actions/LocationsMenu.h"

#include "base/MainThread.h"

#include <memory>

namespace zv {

void LocationsMenu::fill(Menu& menu)
{
    assertMainThread();
    menu.entries.clear();
    for (auto const& location : m_locations.list())
        menu.entries.push_back(entryFor(location));
    if (menu.entries.empty())
        menu.entries.push_back(MenuEntry::disabled("No Locations"));
}

MenuEntry LocationsMenu::entryFor(NetworkLocations::Location const& location) const
{
    MenuEntry entry;
    entry.title = location.name;
    entry.isMarked = location.isCurrent;
    entry.target = std::make_shared<MenuActionTarget>([&commands = m_commands, location] { commands.selectLocation(location.id, location.name); });
    entry.representedObject = entry.target;
    return entry;
}

} // namespace zv
