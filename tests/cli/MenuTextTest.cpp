#include "cli/MenuText.h"
#include "app/menu/MenuKeyEquivalent.h"
#include "platform/linux/text/CellTextMeasure.h"
#include "tests/fakes/FakeMenuServices.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace zv {
namespace {

MenuEntry entryTitled(std::string title)
{
    MenuEntry entry;
    entry.title = std::move(title);
    return entry;
}

MenuEntry withKey(MenuEntry entry, char const* key)
{
    applyKeyEquivalent({ .trigger = KeyEquivalentSpec::Trigger::character(key), .option = true }, entry);
    return entry;
}

MenuEntry withHint(MenuEntry entry, std::string hint)
{
    entry.attributedTitle = AttributedTitle { .text = entry.title, .hint = std::move(hint), .hintTab = 120 };
    return entry;
}

MenuEntry unavailable(std::string title, std::string reason)
{
    auto entry = MenuEntry::disabled(std::move(title));
    entry.attributedTitle = AttributedTitle { .text = entry.title, .italic = true };
    entry.toolTip = std::move(reason);
    return entry;
}

MenuEntry withSubmenu(MenuEntry entry, std::vector<MenuEntry> entries)
{
    entry.submenu = std::make_shared<Menu>(entry.title);
    entry.submenu->entries = std::move(entries);
    return entry;
}

TEST(MenuText, IsATreeWithShortcutsInAColumn)
{
    Menu menu;
    auto marked = entryTitled("Office");
    marked.isMarked = true;
    menu.entries = { withKey(entryTitled("Sleep"), "S"), MenuEntry::separator(),
        withSubmenu(entryTitled("Places"), { withHint(entryTitled("日本"), "⌘F12"), unavailable("Private", "No permission."), marked }),
        entryTitled("A title that is longer than all those with a shortcut"), MenuEntry::disabled("Loading…"), unavailable("two\nlines", "One\x1B.") };
    EXPECT_EQ(menuAsText(menu, CellTextMeasure(), SystemKind::macOS),
        "Sleep     ⌥⌘S\n"
        "────────\n"
        "Places ▸\n"
        "  日本   ⌘F12\n"
        "  (Private)  No permission.\n"
        "  ✓ Office\n"
        "A title that is longer than all those with a shortcut\n"
        "(Loading…)\n"
        "(two␊lines)  One␛.\n");
}

TEST(MenuJson, HasTheDocumentedKeysOnlyWhereTheyApply)
{
    Menu menu;
    auto quit = withKey(entryTitled("Quit"), "q");
    quit.identifier = "QuitZantheVell";
    quit.image = std::make_shared<fakes::FakeImage>("application-exit");
    auto withoutName = entryTitled("Plain");
    withoutName.image = std::make_shared<fakes::FakeImage>("");
    menu.entries = { withoutName, MenuEntry::separator(), quit, unavailable("Pane", "Not installed."),
        withSubmenu(entryTitled("Places"), { withHint(entryTitled("Home"), "⌘H") }), withSubmenu(entryTitled("Later"), { MenuEntry::disabled("Loading…") }) };
    EXPECT_EQ(menuAsJson(menu).dump(),
        R"({"items":[{"type":"item","title":"Plain","enabled":true},{"type":"separator"},)"
        R"({"type":"item","title":"Quit","enabled":true,"keyEquivalent":"⌥⌘Q","identifier":"QuitZantheVell","icon":"application-exit"},)"
        R"({"type":"item","title":"Pane","enabled":false,"italic":true,"toolTip":"Not installed."},)"
        R"({"type":"submenu","title":"Places","enabled":true,"items":[{"type":"item","title":"Home","enabled":true,"hint":"⌘H"}]},)"
        R"({"type":"submenu","title":"Later","enabled":true,"items":[{"type":"item","title":"Loading…","enabled":false}]}]})");
}

TEST(CellTextMeasure, CountsTheCellsOfATerminal)
{
    CellTextMeasure const measure;
    struct Row {
        std::string text;
        double cells;
    };
    Row const rows[] = { { "", 0 }, { "abc", 3 }, { "⌥⌘E", 3 }, { "日本", 4 }, { "e\u0301", 1 }, { "a\u200Fb", 2 }, { "\xFF", 1 } };
    for (auto const& row : rows)
        EXPECT_EQ(measure.menuFontWidth(row.text), row.cells) << row.text;
}

} // namespace
} // namespace zv
