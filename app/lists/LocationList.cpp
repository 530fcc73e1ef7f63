#include "app/actions/NetworkLocations.h"
#include "app/lists/AllLists.h"
#include "app/menu/MenuIcon.h"
#include "base/Translation.h"

#include <memory>

namespace zv {

namespace {

/// The network locations, the current one marked.
class LocationList : public DynamicList {
public:
    LocationList(NetworkLocations locations, LocationCommands& commands)
        : m_locations(std::move(locations))
        , m_commands(commands)
    {
    }
    MenuItemKind::Case kind() const override { return MenuItemKind::location; }
    ImageRef icon(MenuIcon& icons) const override { return icons.systemIcon(SystemIcon::networkLocation); }
    std::string emptyTitle() const override { return tr("No Locations"); }
    void fill(Done done) override
    {
        std::vector<MenuEntry> items;
        for (auto const& location : m_locations.list())
            items.push_back(itemFor(location));
        done(std::move(items));
    }

private:
    [[nodiscard]] MenuEntry itemFor(NetworkLocations::Location const& location) const
    {
        MenuEntry item;
        item.title = location.name;
        item.isMarked = location.isCurrent;
        item.target = std::make_shared<MenuActionTarget>([&commands = m_commands, location] { commands.selectLocation(location.id, location.name); });
        item.representedObject = item.target;
        return item;
    }

    NetworkLocations m_locations;
    LocationCommands& m_commands;
};

} // namespace

void addLocationList(DynamicMenuProvider& lists, ListServices const& services)
{
    lists.add(std::make_unique<LocationList>(NetworkLocations(services.tools), services.locationCommands));
}

} // namespace zv
