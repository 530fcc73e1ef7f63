#pragma once

#include "app/model/MenuItem.h"
#include "base/Uuid.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <vector>

/// Edits of a menu tree as plain values: each takes a tree and changes it, or says that it
/// cannot. Items are named by their id; of two with the same id the first in pre-order counts.
namespace zv::menuTree {

/// A place between the children of one parent.
struct Position {
    std::optional<Uuid> parent; ///< nothing: the top level
    std::size_t index = 0; ///< clamped to the children's count

    friend bool operator==(Position const&, Position const&) = default;
};

using Items = std::vector<MenuItem>;

[[nodiscard]] MenuItem* find(Items& items, Uuid const& id);
/// Where the item stands.
[[nodiscard]] std::optional<Position> positionOf(Items const& items, Uuid const& id);
/// True when `id` is `ancestor` or lies below it.
[[nodiscard]] bool liesWithin(Items const& items, Uuid const& id, Uuid const& ancestor);
/// Those of the ids that do not lie below another of them, in the tree's order.
[[nodiscard]] std::vector<Uuid> outermost(Items const& items, std::set<Uuid> const& ids);

/// False when the parent is not there, or cannot hold items.
[[nodiscard]] bool insert(Items& items, Items added, Position const& position);
void remove(Items& items, std::set<Uuid> const& ids);
/// Takes the items out and puts them, in the tree's order, at the position, an index of the
/// tree as it was. False when the position lies within one of them, or cannot hold items.
[[nodiscard]] bool move(Items& items, std::set<Uuid> const& ids, Position const& position);
/// False when there is no such item.
[[nodiscard]] bool change(Items& items, Uuid const& id, std::function<void(MenuItem&)> const& edit);

/// The same item with fresh ids throughout.
[[nodiscard]] MenuItem withFreshIds(MenuItem item);
/// Only submenus hold items that were put into them by hand; what has children already keeps them.
[[nodiscard]] bool canHoldItems(MenuItem const& item);

} // namespace zv::menuTree
