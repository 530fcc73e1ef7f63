#pragma once

#include "app/menu/Menu.h"

#include <memory>

namespace zv {

/// The menus of entries themselves, which a right click opens. They are made when they are asked
/// for: most entries never show theirs. Main thread only.
class EntryMenus {
public:
    virtual ~EntryMenus() = default;
    /// An entry of the same title whose submenu is the entry's own menu, filled when it opens; no
    /// submenu where there is nothing to do.
    [[nodiscard]] virtual MenuEntry menuOf(MenuEntry const& entry) const = 0;
    /// Opens the folder that the entry's submenu lists; null for other entries.
    [[nodiscard]] virtual std::shared_ptr<MenuActionTarget> openingOf(EntrySubject const& subject) const = 0;
    /// Adds what Option shows above the entries of the subject's own submenu, and a separator.
    virtual void addHead(Menu& submenu, EntrySubject const& subject) const = 0;
};

} // namespace zv
