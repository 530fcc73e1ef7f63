#include "cli/MenuSession.h"

#include "app/menu/DynamicSubmenu.h"

#include <algorithm>
#include <utility>

namespace zv {

namespace {

constexpr std::chrono::seconds patienceWithMany { 2 };
/// Longer than the wait for a silent folder, so that the menu shows the reason.
constexpr std::chrono::seconds patienceWithOne { 11 };

using Menus = std::vector<std::shared_ptr<Menu>>;

/// Collects the nearest self-filling submenus, also those within groups.
void collectSelfFilling(Menu const& menu, Menus& found)
{
    for (auto const& entry : menu.entries) {
        if (entry.submenu && !entry.submenu->delegate.expired())
            found.push_back(entry.submenu);
        else if (entry.submenu)
            collectSelfFilling(*entry.submenu, found);
    }
}

} // namespace

MenuSession::MenuSession(MenuBuilder const& builder, TurnUntil turnUntil)
    : m_builder(builder)
    , m_turnUntil(std::move(turnUntil))
{
}

std::shared_ptr<Menu> MenuSession::build(std::vector<MenuItem> const& items, OptionKey option) const
{
    auto menu = std::make_shared<Menu>();
    m_builder.buildMenu(*menu, items, option);
    return menu;
}

void MenuSession::open(Menu& menu) const { openAll({ menu.shared_from_this() }, patienceWithOne); }

void MenuSession::openSubmenus(Menu& menu, int levels) const
{
    Menus level;
    collectSelfFilling(menu, level);
    for (; levels > 0 && !level.empty(); --levels) {
        openAll(level, patienceWithMany);
        Menus next;
        for (auto const& opened : level)
            collectSelfFilling(*opened, next);
        level = std::move(next);
    }
}

void MenuSession::openAll(Menus const& menus, std::chrono::milliseconds patience) const
{
    for (auto const& menu : menus)
        menu->needsUpdate();
    auto const isFilled = [&] { return std::none_of(menus.begin(), menus.end(), [](auto const& menu) { return isLoading(*menu); }); };
    if (!isFilled())
        m_turnUntil(isFilled, patience);
}

} // namespace zv
