#include "app/settings/MenuDifference.h"

#include "app/menu/DisplayText.h"
#include "base/Translation.h"

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

std::string titleOf(MenuItem const& item) { return item.kind == MenuItemKind::separator ? tr("a separator") : quoted(displayText(item.displayTitle())); }

std::string titlesOf(std::vector<MenuItem const*> const& items)
{
    std::vector<std::string> titles;
    auto const named = items.size() > titlesNamed ? titlesNamed - 1 : items.size();
    for (std::size_t i = 0; i < named; ++i)
        titles.push_back(titleOf(*items[i]));
    if (named < items.size())
        return trn("%2 and %1 more", "%2 and %1 more", items.size() - named, listed(titles));
    auto const last = titles.back();
    titles.pop_back();
    // TRANSLATORS: the end of a list; %1 may be several, with commas
    return titles.empty() ? last : tr("%1 and %2", listed(titles), last);
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
    auto const &added = difference.added, &removed = difference.removed, &changed = difference.changed;
    std::string text;
    if (!added.empty())
        text += trn("%1 item is added: %2.", "%1 items are added: %2.", added.size(), titlesOf(added)) + "\n";
    if (!removed.empty())
        text += trn("%1 item is removed: %2.", "%1 items are removed: %2.", removed.size(), titlesOf(removed)) + "\n";
    if (!changed.empty())
        text += trn("%1 item is changed: %2.", "%1 items are changed: %2.", changed.size(), titlesOf(changed)) + "\n";
    return text.empty() ? tr("It holds the same items.") + "\n" : text;
}

} // namespace zv
