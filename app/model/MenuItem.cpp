#include "app/model/MenuItem.h"

#include "app/model/HashCombiner.h"
#include "platform/text/Text.h"

#include <algorithm>

namespace zv {

namespace {

constexpr char const* titleIsOwn = "TitleIsOwn";

bool hasText(std::optional<std::string> const& text) { return text && !text->empty(); }

} // namespace

MenuItem MenuItem::ofKind(MenuItemKind kind)
{
    MenuItem item;
    item.kind = std::move(kind);
    return item;
}

void MenuItem::setOwnTitle(std::optional<std::string> own)
{
    title = std::move(own);
    unrecognizedKeys.remove(titleIsOwn);
    if (title && kind.gives(*title))
        unrecognizedKeys.set(titleIsOwn, true);
}

std::string MenuItem::displayTitle() const
{
    if (hasText(title))
        return unrecognizedKeys.find(titleIsOwn) ? withValidUtf8(*title) : kind.shownTitle(withValidUtf8(*title));
    if (location && hasText(location->displayName))
        return withValidUtf8(*location->displayName);
    return kind.defaultTitle();
}

std::size_t hashValue(MenuItem const& item)
{
    HashCombiner hash;
    hash.add(item.id).add(item.kind.rawValue()).add(item.title).add(item.children.size());
    for (auto const& child : item.children)
        hash.addHash(hashValue(child));
    hash.addHash(item.location ? 1 : 0).addHash(item.location ? hashValue(*item.location) : 0);
    hash.add(item.keyEquivalent).add(item.isHidden).add(item.scanDepth);
    return hash.addHash(hashValue(PropertyList(item.unrecognizedKeys))).result();
}

MenuItem const* findItem(std::span<MenuItem const> items, Uuid const& id)
{
    for (auto const& item : items) {
        if (item.id == id)
            return &item;
        if (auto const* found = findItem(item.children, id))
            return found;
    }
    return nullptr;
}

bool containsKind(std::vector<MenuItem> const& items, MenuItemKind::Case kind)
{
    return std::any_of(items.begin(), items.end(), [&](MenuItem const& item) { return item.kind == kind || containsKind(item.children, kind); });
}

} // namespace zv
