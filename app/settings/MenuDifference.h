#pragma once

#include "app/model/MenuItem.h"

#include <string>
#include <vector>

namespace zv {

/// The difference between two menus, by the items' ids. A group counts with each item in it.
struct MenuDifference {
    std::vector<MenuItem const*> added; ///< in the order of `after`, as the next
    std::vector<MenuItem const*> changed; ///< in itself, or put into another submenu
    std::vector<MenuItem const*> removed; ///< in the order of `before`
};

/// The pointers hold as long as both lists.
[[nodiscard]] MenuDifference differenceBetween(std::vector<MenuItem> const& before, std::vector<MenuItem> const& after);

/// "2 are added: “Mail” and “Notes”. 1 is removed: “Old”." – a sentence for each sort, with a few titles.
[[nodiscard]] std::string describe(MenuDifference const& difference);

} // namespace zv
