#pragma once

#include "app/model/MenuItem.h"
#include "base/Uuid.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <vector>

/// Edits a menu tree as a plain value: each function changes the tree, or reports that it cannot.
/// Items are named by their id; of two with the same id the first in pre-order counts.
namespace zv::menuTree {

/// A place between the children of one parent.
struct Position {
    std::optional<Uuid> parent; ///< empty: the top level
    std::size_t index = 0; ///< clamped to the children's count

    friend bool operator==(Position const&, Position const&) = default;
};

using Items = std::vector<MenuItem>;

[[nodiscard]] MenuItem* find(Items& items, Uuid const& id);
/// The item's position.
[[nodiscard]] std::optional<Position> positionOf(Items const& items, Uuid const& id);
/// True when `id` is `ancestor` or lies below it.
[[nodiscard]] bool liesWithin(Items const& items, Uuid const& id, Uuid const& ancestor);
/// The ids without those below another of them, in the tree's order.
[[nodiscard]] std::vector<Uuid> outermost(Items const& items, std::set<Uuid> const& ids);

/// False when the parent does not exist or cannot hold items.
[[nodiscard]] bool insert(Items& items, Items added, Position const& position);
void remove(Items& items, std::set<Uuid> const& ids);
/// Moves the items, in the tree's order, to the position, an index of the tree before the move.
/// False when the position lies within one of them or cannot hold items.
[[nodiscard]] bool move(Items& items, std::set<Uuid> const& ids, Position const& position);
/// False when the item does not exist.
[[nodiscard]] bool change(Items& items, Uuid const& id, std::function<void(MenuItem&)> const& edit);

/// Copies the item with fresh ids throughout.
[[nodiscard]] MenuItem withFreshIds(MenuItem item);
/// True for submenus, and for items that have children already.
[[nodiscard]] bool canHoldItems(MenuItem const& item);

} // namespace zv::menuTree
