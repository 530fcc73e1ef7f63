#include "app/menu/HotkeyHints.h"

#include "base/Translation.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
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

/// The reason why the combination does not work, and what the user can do about it.
std::string explanationOf(NameDoubt doubt)
{
    switch (doubt) {
    case NameDoubt::ofAnotherUser:
        return tr("The shortcut is not in use, as the file belongs to somebody else. To use it, put the file into the Items folder.");
    case NameDoubt::onForeignVolume:
        return tr("The shortcut is not in use, as the file lies on a volume that may go away. To use it, move the file to this computer’s disk, or put it into "
                  "the Items folder.");
    case NameDoubt::downloaded:
        return tr("The shortcut is not in use, as the file was downloaded. To use it, put the file into the Items folder.");
    case NameDoubt::amongDownloads:
        return tr(
            "The shortcut is not in use, as the file lies among the downloads. To use it, move the file to another folder, or put it into the Items folder.");
    case NameDoubt::notInstalled:
        break;
    }
    return tr("The shortcut is not in use, as the file was not installed as an application. To use it, choose the file, then “Always Start”.");
}

void addHint(MenuEntry& item, std::string const& hint, std::optional<NameDoubt> const& doubt, double tab)
{
    if (item.visibleTitle().empty())
        return;
    if (doubt && item.toolTip.empty())
        item.toolTip = explanationOf(*doubt);
    if (!item.attributedTitle)
        item.attributedTitle = AttributedTitle { .text = item.title };
    item.attributedTitle->hint = hint;
    item.attributedTitle->hintIsItalic = doubt.has_value();
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
            addHint(items[i], hints[i], entries[i].hotkeyDoubt, tab);
    }
}

} // namespace zv
