#pragma once

#include "app/menu/MenuBuilder.h"

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace zv {

/// Builds menus without a display, and opens them as if pointed at.
class MenuSession {
public:
    /// Turns the run loop until `isDone` is true or the time is over.
    using TurnUntil = std::function<void(std::function<bool()> const& isDone, std::chrono::milliseconds limit)>;

    /// The builder outlives this.
    MenuSession(MenuBuilder const& builder, TurnUntil turnUntil);

    [[nodiscard]] std::shared_ptr<Menu> build(std::vector<MenuItem> const& items, OptionKey option) const;
    /// Fills the menu and waits until it shows its entries, or the reason for having none.
    void open(Menu& menu) const;
    /// Opens self-filling submenus, `levels` deep; those of a level all at once. Submenus that take
    /// over two seconds stay at "Loading…".
    void openSubmenus(Menu& menu, int levels) const;

    [[nodiscard]] MenuBuilder const& builder() const { return m_builder; }

private:
    using Menus = std::vector<std::shared_ptr<Menu>>;

    void openAll(Menus const& menus, std::chrono::milliseconds patience) const;

    MenuBuilder const& m_builder;
    TurnUntil m_turnUntil;
};

} // namespace zv
