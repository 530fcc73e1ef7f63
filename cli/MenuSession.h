#pragma once

#include "app/menu/MenuBuilder.h"

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace zv {

/// Menus without a display: built, and opened as if somebody pointed at them.
class MenuSession {
public:
    /// Turns the run loop until the question is answered with yes, or the time is over.
    using TurnUntil = std::function<void(std::function<bool()> const& isDone, std::chrono::milliseconds limit)>;

    /// The builder outlives this.
    MenuSession(MenuBuilder const& builder, TurnUntil turnUntil);

    [[nodiscard]] std::shared_ptr<Menu> build(std::vector<MenuItem> const& items, OptionKey option) const;
    /// Fills the menu and waits until it shows its entries, or says that they do not come.
    void open(Menu& menu) const;
    /// Opens the submenus that fill themselves, so many levels deep; those of a level all at
    /// once. What takes more than two seconds is left at "Loading…".
    void openSubmenus(Menu& menu, int levels) const;

    [[nodiscard]] MenuBuilder const& builder() const { return m_builder; }

private:
    using Menus = std::vector<std::shared_ptr<Menu>>;

    void openAll(Menus const& menus, std::chrono::milliseconds patience) const;

    MenuBuilder const& m_builder;
    TurnUntil m_turnUntil;
};

} // namespace zv
