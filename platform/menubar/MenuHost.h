#pragma once

#include "platform/desk/Geometry.h"

#include <memory>

namespace zv {

class Menu;

/// Shows a menu of ours at any place of the screen. Main thread only.
class MenuHost {
public:
    virtual ~MenuHost() = default;
    /// Asks the menu to fill itself, then pops it up with its top left corner at the point,
    /// moved as far as needed to stay on the screen that holds the point. May return before
    /// or after the menu has closed.
    virtual void popUp(std::shared_ptr<Menu> const& menu, Point at) = 0;
    /// The same for a menu opened by a key: at the pointer, centred on the screen where there is
    /// none, its first entry selected.
    virtual void popUpByKey(std::shared_ptr<Menu> const& menu) = 0;
};

} // namespace zv
