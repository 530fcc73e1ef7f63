#include "app/menu/HotkeyHints.h"

#include <algorithm>
#include <string>
#include <vector>

namespace zv {

namespace {

constexpr double gapBeforeHints = 24; ///< points

std::string hintOf(DynamicEntry const& entry)
{
    if (entry.isSeparator || !entry.hotkey)
        return {};
    return entry.hotkey->description();
}

double widestTitle(std::span<MenuEntry const> items, TextMeasure const& text)
{
    double widest = 0;
    for (auto const& item : items)
        widest = std::max(widest, text.menuFontWidth(item.visibleTitle()));
    return widest;
}

double widestHint(std::span<std::string const> hints, TextMeasure const& text)
{
    double widest = 0;
    for (auto const& hint : hints)
        widest = std::max(widest, hint.empty() ? 0 : text.shortcutWidth(hint));
    return widest;
}

void addHint(MenuEntry& item, std::string const& hint, double tab)
{
    if (item.visibleTitle().empty())
        return;
    if (!item.attributedTitle)
        item.attributedTitle = AttributedTitle { .text = item.title };
    item.attributedTitle->hint = hint;
    item.attributedTitle->hintTab = tab;
}

} // namespace

void applyHotkeyHints(std::span<DynamicEntry const> entries, std::span<MenuEntry> items, TextMeasure const& text)
{
    bool const hasHints = std::any_of(entries.begin(), entries.end(), [](auto const& entry) { return !entry.isSeparator && entry.hotkey; });
    if (!hasHints)
        return;
    std::vector<std::string> hints(entries.size());
    std::transform(entries.begin(), entries.end(), hints.begin(), hintOf);
    double const tab = widestTitle(items, text) + gapBeforeHints + widestHint(hints, text);
    for (std::size_t i = 0; i < std::min(items.size(), hints.size()); ++i) {
        if (!hints[i].empty())
            addHint(items[i], hints[i], tab);
    }
}

} // namespace zv
