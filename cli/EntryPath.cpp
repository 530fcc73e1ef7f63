#include "cli/EntryPath.h"

#include "base/Translation.h"
#include "base/Uuid.h"
#include "platform/text/Text.h"

#include <algorithm>

namespace zv {

namespace {

/// Prefers enabled entries, as several may have the title.
template <class Matches> MenuEntry const* findEntry(Menu const& menu, Matches matches)
{
    MenuEntry const* disabled = nullptr;
    for (auto const& entry : menu.entries) {
        if (entry.type != MenuEntry::Type::item || !matches(entry.visibleTitle()))
            continue;
        if (entry.enabled)
            return &entry;
        disabled = disabled ? disabled : &entry;
    }
    return disabled;
}

/// An item is also found by its identifier, which stays when its title changes.
MenuEntry const* entryOfItem(Menu const& menu, std::string const& text)
{
    auto const id = Uuid::parse(text);
    auto const found = std::ranges::find_if(menu.entries, [&](MenuEntry const& entry) { return id && entry.subject.item == id; });
    return found == menu.entries.end() ? nullptr : &*found;
}

MenuEntry const* entryTitled(Menu const& menu, std::string const& title)
{
    if (auto const* const entry = entryOfItem(menu, title))
        return entry;
    if (auto const* const entry = findEntry(menu, [&](std::string const& candidate) { return candidate == title; }))
        return entry;
    auto const folded = foldedForSearch(title);
    return findEntry(menu, [&](std::string const& candidate) { return foldedForSearch(candidate) == folded; });
}

/// The reason given by a menu with no enabled entry: "Loading…", "No Shortcuts".
std::string remarkOf(Menu const& menu)
{
    auto const isItem = [](MenuEntry const& entry) { return entry.type == MenuEntry::Type::item; };
    auto const first = std::find_if(menu.entries.begin(), menu.entries.end(), isItem);
    bool const hasChoice = std::any_of(menu.entries.begin(), menu.entries.end(), [&](MenuEntry const& entry) { return isItem(entry) && entry.enabled; });
    if (hasChoice || first == menu.entries.end())
        return {};
    bool const hasReason = !first->toolTip.empty() && first->toolTip != first->visibleTitle();
    return first->visibleTitle() + (hasReason ? ": " + first->toolTip : "");
}

/// `within` is the submenu's title, empty for the menu itself.
std::string absenceOf(std::string const& title, std::string const& within, Menu const& menu)
{
    auto const sentence = within.empty() ? tr("there is no %1 in the menu", quoted(title)) : tr("there is no %1 in %2", quoted(title), quoted(within));
    auto const remark = remarkOf(menu);
    return remark.empty() ? sentence : tr("%1: %2", sentence, remark);
}

} // namespace

Result<MenuEntry> entryAt(std::shared_ptr<Menu> menu, std::span<std::string const> titles, std::function<void(Menu&)> const& open)
{
    std::string within;
    for (;; titles = titles.subspan(1)) {
        auto const* const entry = entryTitled(*menu, titles.front());
        if (!entry)
            return Failure { absenceOf(titles.front(), within, *menu) };
        if (titles.size() == 1)
            return *entry;
        if (!entry->submenu)
            return Failure { tr("%1 has no submenu", quoted(titles.front())) };
        within = titles.front();
        menu = entry->submenu;
        open(*menu);
    }
}

} // namespace zv
