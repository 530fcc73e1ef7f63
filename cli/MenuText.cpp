#include "cli/MenuText.h"

#include "app/menu/DisplayText.h"
#include "app/menu/MenuKeyEquivalent.h"
#include "app/menu/ShownShortcut.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <utility>
#include <vector>

namespace zv {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t indentation = 2;
constexpr double gapBeforeShortcuts = 3; ///< cells
constexpr char const* separatorLine = "────────";

struct Line {
    std::string text;
    std::string shortcut;
};

std::string hintOf(MenuEntry const& entry) { return entry.attributedTitle ? entry.attributedTitle->hint : std::string(); }

std::string shortcutOf(MenuEntry const& entry)
{
    auto shortcut = keyEquivalentText(entry);
    return shortcut.empty() ? hintOf(entry) : shortcut;
}

std::string textOf(MenuEntry const& entry)
{
    if (entry.type == MenuEntry::Type::separator)
        return separatorLine;
    auto text = entry.isMarked ? "✓ " + entry.visibleTitle() : entry.visibleTitle();
    if (!entry.enabled)
        text = "(" + text + ")";
    if (entry.submenu)
        text += " ▸";
    return !entry.enabled && !entry.toolTip.empty() ? text + "  " + entry.toolTip : text;
}

void appendLines(Menu const& menu, std::size_t level, std::vector<Line>& lines)
{
    for (auto const& entry : menu.entries) {
        lines.push_back({ std::string(level * indentation, ' ') + displayText(textOf(entry)), displayText(shortcutOf(entry)) });
        if (entry.submenu)
            appendLines(*entry.submenu, level + 1, lines);
    }
}

/// The column where shortcuts end: past the widest line that has one.
double shortcutColumn(std::vector<Line> const& lines, TextMeasure const& cells)
{
    double widestText = 0;
    double widestShortcut = 0;
    for (auto const& line : lines) {
        if (line.shortcut.empty())
            continue;
        widestText = std::max(widestText, cells.menuFontWidth(line.text));
        widestShortcut = std::max(widestShortcut, cells.menuFontWidth(line.shortcut));
    }
    return widestText + gapBeforeShortcuts + widestShortcut;
}

std::string withShortcut(Line const& line, double column, TextMeasure const& cells)
{
    if (line.shortcut.empty())
        return line.text;
    auto const blanks = column - cells.menuFontWidth(line.text) - cells.menuFontWidth(line.shortcut);
    return line.text + std::string(static_cast<std::size_t>(std::max(blanks, 1.0)), ' ') + line.shortcut;
}

void addText(Json& json, char const* key, std::string const& text)
{
    if (!text.empty())
        json[key] = text;
}

Json itemsAsJson(Menu const& menu);

Json entryAsJson(MenuEntry const& entry)
{
    if (entry.type == MenuEntry::Type::separator)
        return { { "type", "separator" } };
    Json json { { "type", entry.submenu ? "submenu" : "item" }, { "title", entry.visibleTitle() }, { "enabled", entry.enabled } };
    if (entry.attributedTitle && entry.attributedTitle->italic)
        json["italic"] = true;
    addText(json, "toolTip", entry.toolTip);
    addText(json, "keyEquivalent", keyEquivalentText(entry));
    addText(json, "hint", hintOf(entry));
    if (entry.attributedTitle && entry.attributedTitle->hintIsItalic)
        json["hintIsItalic"] = true;
    addText(json, "identifier", entry.identifier);
    addText(json, "icon", entry.image ? entry.image->name() : std::string());
    if (entry.submenu)
        json["items"] = itemsAsJson(*entry.submenu);
    return json;
}

Json itemsAsJson(Menu const& menu)
{
    auto items = Json::array();
    for (auto const& entry : menu.entries)
        items.push_back(entryAsJson(entry));
    return items;
}

} // namespace

std::string menuAsText(Menu const& menu, TextMeasure const& cells, SystemKind system)
{
    std::vector<Line> lines;
    appendLines(menu, 0, lines);
    for (auto& line : lines)
        line.shortcut = shownShortcut(line.shortcut, system);
    auto const column = shortcutColumn(lines, cells);
    std::string text;
    for (auto const& line : lines)
        text += withShortcut(line, column, cells) + '\n';
    return text;
}

nlohmann::ordered_json menuAsJson(Menu const& menu) { return { { "items", itemsAsJson(menu) } }; }

} // namespace zv
