#include "app/menu/DockMenu.h"

#include "platform/text/PropertyListFormat.h"

namespace zv {

std::vector<MenuItem> loadDockMenu(Resources const& resources)
{
    auto const bytes = resources.load("DockMenu", "plist");
    if (!bytes)
        return {};
    auto const document = readPropertyList(*bytes);
    if (!document)
        return {};
    auto items = menuItemsFromPropertyList(*document);
    // A Dock submenu within itself would never end.
    if (!items || containsKind(*items, MenuItemKind::dockMenu))
        return {};
    return std::move(items).value();
}

} // namespace zv
