#include "app/settings/MenuTree.h"

#include <algorithm>
#include <iterator>

namespace zv::menuTree {

namespace {

Items* childrenAt(Items& items, std::optional<Uuid> const& parent)
{
    if (!parent)
        return &items;
    auto* item = find(items, *parent);
    return item && canHoldItems(*item) ? &item->children : nullptr;
}

void collectOutermost(Items const& items, std::set<Uuid> const& ids, std::vector<Uuid>& found)
{
    for (auto const& item : items) {
        if (ids.contains(item.id))
            found.push_back(item.id);
        else
            collectOutermost(item.children, ids, found);
    }
}

/// Takes the items out of the tree, outermost first, in its order.
void take(Items& items, std::set<Uuid> const& ids, Items& taken)
{
    Items kept;
    for (auto& item : items) {
        if (ids.contains(item.id)) {
            taken.push_back(std::move(item));
            continue;
        }
        take(item.children, ids, taken);
        kept.push_back(std::move(item));
    }
    items = std::move(kept);
}

std::optional<Position> positionIn(Items const& items, Uuid const& id, std::optional<Uuid> const& parent)
{
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (items[i].id == id)
            return Position { parent, i };
        if (auto const below = positionIn(items[i].children, id, items[i].id))
            return below;
    }
    return std::nullopt;
}

} // namespace

MenuItem* find(Items& items, Uuid const& id) { return const_cast<MenuItem*>(findItem(items, id)); }

std::optional<Position> positionOf(Items const& items, Uuid const& id) { return positionIn(items, id, std::nullopt); }

bool liesWithin(Items const& items, Uuid const& id, Uuid const& ancestor)
{
    auto const* item = findItem(items, ancestor);
    return item && (id == ancestor || findItem(item->children, id));
}

std::vector<Uuid> outermost(Items const& items, std::set<Uuid> const& ids)
{
    std::vector<Uuid> found;
    collectOutermost(items, ids, found);
    return found;
}

bool canHoldItems(MenuItem const& item) { return item.kind == MenuItemKind::submenu || !item.children.empty(); }

bool insert(Items& items, Items added, Position const& position)
{
    auto* children = childrenAt(items, position.parent);
    if (!children)
        return false;
    auto const at = std::min(position.index, children->size());
    children->insert(children->begin() + static_cast<std::ptrdiff_t>(at), std::make_move_iterator(added.begin()), std::make_move_iterator(added.end()));
    return true;
}

void remove(Items& items, std::set<Uuid> const& ids)
{
    Items removed;
    take(items, ids, removed);
}

bool move(Items& items, std::set<Uuid> const& ids, Position const& position)
{
    auto const* children = childrenAt(items, position.parent);
    bool const intoItself = position.parent && std::any_of(ids.begin(), ids.end(), [&](auto const& id) { return liesWithin(items, *position.parent, id); });
    if (!children || intoItself)
        return false;
    auto const end = children->begin() + static_cast<std::ptrdiff_t>(std::min(position.index, children->size()));
    auto const leaving = std::count_if(children->begin(), end, [&](auto const& item) { return ids.contains(item.id); });
    auto const index = static_cast<std::size_t>(std::distance(children->begin(), end) - leaving);
    Items taken;
    // The target stays one, even if the move takes its last child.
    auto moved = items;
    take(moved, ids, taken);
    auto* target = position.parent ? find(moved, *position.parent) : nullptr;
    auto& destination = target ? target->children : moved;
    destination.insert(destination.begin() + static_cast<std::ptrdiff_t>(std::min(index, destination.size())), std::make_move_iterator(taken.begin()),
        std::make_move_iterator(taken.end()));
    items = std::move(moved);
    return true;
}

bool change(Items& items, Uuid const& id, std::function<void(MenuItem&)> const& edit)
{
    auto* item = find(items, id);
    if (item)
        edit(*item);
    return item != nullptr;
}

MenuItem withFreshIds(MenuItem item)
{
    item.id = Uuid::random();
    for (auto& child : item.children)
        child = withFreshIds(std::move(child));
    return item;
}

} // namespace zv::menuTree
