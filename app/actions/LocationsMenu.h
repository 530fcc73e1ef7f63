#pragma once

#include "app/actions/ListCommands.h"
#include "app/actions/NetworkLocations.h"
#include "app/menu/DynamicMenuProvider.h"

namespace zv {

/// The submenu of the network locations, the current one marked. Main thread only.
class LocationsMenu : public SubmenuFiller {
public:
    LocationsMenu(NetworkLocations locations, LocationCommands& commands)
        : m_locations(std::move(locations))
        , m_commands(commands)
    {
    }
    void fill(Menu& menu) override;

private:
    [[nodiscard]] MenuEntry entryFor(NetworkLocations::Location const& location) const;

    NetworkLocations m_locations;
    LocationCommands& m_commands;
};

} // namespace zv
