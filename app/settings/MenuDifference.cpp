#include "app/settings/MenuDifference.h"

#include "app/menu/DisplayText.h"

#include <map>
#include <optional>

namespace zv {

namespace {

constexpr std::size_t titlesNamed = 3;

struct Placed {
    MenuItem const* item;
    std::optional<Uuid> parent;
};

struct Flat {
    std::vector<Placed> inOrder;
    std::map<Uuid, Placed> byId;
};

void flatten(std::vector<MenuItem> const& items, std::optional<Uuid> const& parent, Flat& flat)
{
    for (auto const& item : items) {
        flat.inOrder.push_back({ &item, parent });
        flat.byId.emplace(item.id, flat.inOrder.back());
        flatten(item.children, item.id, flat);
    }
}

Flat flat(std::vector<MenuItem> const& items)
{
    Flat made;
    flatten(items, std::nullopt, made);
    return made;
}

/// Leaves out what is no doing of the user's: how a file is found again.
bool isAlike(Placed const& a, Placed const& b)
{
    auto const pathOf = [](MenuItem const& item) { return item.location ? item.location->path : std::nullopt; };
    auto const &one = *a.item, &other = *b.item;
    return a.parent == b.parent && one.kind == other.kind && one.title == other.title && one.keyEquivalent == other.keyEquivalent
        && one.isHidden == other.isHidden && one.scanDepth == other.scanDepth && one.unrecognizedKeys == other.unrecognizedKeys && pathOf(one) == pathOf(other);
}

std::string titleOf(MenuItem const& item) { return item.kind == MenuItemKind::separator ? "a separator" : "“" + displayText(item.displayTitle()) + "”"; }

std::string titlesOf(std::vector<MenuItem const*> const& items)
{
    std::string text;
    auto const named = items.size() > titlesNamed ? titlesNamed - 1 : items.size();
    for (std::size_t i = 0; i < named; ++i)
        text += (i == 0 ? "" : i + 1 == items.size() ? " and " : ", ") + titleOf(*items[i]);
    return named == items.size() ? text : text + " and " + std::to_string(items.size() - named) + " more";
}

std::string sentence(std::vector<MenuItem const*> const& items, char const* what)
{
    auto const count = std::to_string(items.size()) + (items.size() == 1 ? " item is " : " items are ");
    return items.empty() ? std::string() : count + what + ": " + titlesOf(items) + ".\n";
}

} // namespace

MenuDifference differenceBetween(std::vector<MenuItem> const& before, std::vector<MenuItem> const& after)
{
    auto const old = flat(before);
    auto const now = flat(after);
    MenuDifference difference;
    for (auto const& placed : now.inOrder) {
        auto const known = old.byId.find(placed.item->id);
        if (known == old.byId.end())
            difference.added.push_back(placed.item);
        else if (!isAlike(known->second, placed))
            difference.changed.push_back(placed.item);
    }
    for (auto const& placed : old.inOrder) {
        if (!now.byId.contains(placed.item->id))
            difference.removed.push_back(placed.item);
    }
    return difference;
}

std::string describe(MenuDifference const& difference)
{
    auto const text = sentence(difference.added, "added") + sentence(difference.removed, "removed") + sentence(difference.changed, "changed");
    return text.empty() ? "It holds the same items.\n" : text;
}

} // namespace zv
