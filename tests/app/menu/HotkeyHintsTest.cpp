#include "app/menu/HotkeyHints.h"
#include "tests/app/menu/MenuBench.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using Trigger = KeyEquivalentSpec::Trigger;

DynamicEntry withHotkey(std::string title, KeyEquivalentSpec hotkey)
{
    auto entry = entryTitled(std::move(title));
    entry.hotkey = std::move(hotkey);
    return entry;
}

MenuEntry itemTitled(std::string title)
{
    MenuEntry item;
    item.title = std::move(title);
    return item;
}

struct HotkeyHints : testing::Test {
    void apply() { applyHotkeyHints(entries, items, text); }

    fakes::FakeTextMeasure text; // ten points a byte
    std::vector<DynamicEntry> entries;
    std::vector<MenuEntry> items;
};

TEST_F(HotkeyHints, LineUpPastTheWidestTitle)
{
    entries = { entryTitled("A much wider title"), withHotkey("Example", { .trigger = Trigger::character("E"), .option = true }) };
    items = { itemTitled("A much wider title"), itemTitled("Example") };
    apply();
    std::string const hint = "⌥⌘E";
    EXPECT_EQ(items[1].attributedTitle, (AttributedTitle { .text = "Example", .hint = hint, .hintTab = 180 + 24 + 10.0 * static_cast<double>(hint.size()) }));
    EXPECT_FALSE(items[0].attributedTitle) << "the others are unchanged";
}

TEST_F(HotkeyHints, ShareOneTabBesideTheWidestHint)
{
    entries = { withHotkey("A", { .trigger = Trigger::named("esc"), .control = true, .noCommand = true }),
        withHotkey("B", { .trigger = Trigger::named("f12"), .shift = true }) };
    items = { itemTitled("A"), itemTitled("B") };
    apply();
    EXPECT_EQ(items[0].attributedTitle->hint, "⌃⎋");
    EXPECT_EQ(items[1].attributedTitle->hint, "⇧⌘F12");
    EXPECT_EQ(items[0].attributedTitle->hintTab, items[1].attributedTitle->hintTab);
    EXPECT_EQ(items[0].attributedTitle->hintTab, 10 + 24 + 90);
}

TEST_F(HotkeyHints, SayWhyAShortcutIsNotInUse)
{
    entries = { withHotkey("A", { Trigger::character("P") }), withHotkey("B", { Trigger::character("Q") }) };
    entries[0].hotkeyDoubt = NameDoubt::amongDownloads;
    items = { itemTitled("A"), itemTitled("B") };
    apply();
    EXPECT_TRUE(items[0].attributedTitle->hintIsItalic);
    EXPECT_FALSE(items[0].attributedTitle->italic);
    EXPECT_EQ(items[0].toolTip,
        "The shortcut is not in use, as the file lies among the downloads. To use it, move the file to another folder, or put it into the Items folder.");
    EXPECT_FALSE(items[1].attributedTitle->hintIsItalic);
    EXPECT_EQ(items[1].toolTip, "");
}

TEST_F(HotkeyHints, LeaveEverythingUntouchedWhereThereAreNone)
{
    auto separator = separatorEntry();
    separator.hotkey = KeyEquivalentSpec { Trigger::character("E") };
    entries = { entryTitled("A"), separator };
    items = { itemTitled("A"), MenuEntry::separator() };
    apply();
    EXPECT_FALSE(items[0].attributedTitle);
    EXPECT_FALSE(items[1].attributedTitle);
}

TEST_F(HotkeyHints, KeepAnItalicTitleAndMeasureIt)
{
    entries = { withHotkey("Pane", { Trigger::character("P") }) };
    items = { MenuBuilder::makeUnavailableItem("Pane", "why") };
    apply();
    EXPECT_EQ(items[0].attributedTitle, (AttributedTitle { .text = "Pane", .italic = true, .hint = "⌘P", .hintTab = 40 + 24 + 40 }));
}

TEST_F(HotkeyHints, PassOverEmptyTitlesAndItemsWithoutAnEntry)
{
    entries = { withHotkey("", { Trigger::character("P") }), withHotkey("B", { Trigger::character("Q") }) };
    items = { itemTitled(""), itemTitled("B"), itemTitled("more than entries") };
    apply();
    EXPECT_FALSE(items[0].attributedTitle);
    EXPECT_TRUE(items[1].attributedTitle);
    EXPECT_FALSE(items[2].attributedTitle);
    EXPECT_EQ(items[1].attributedTitle->hintTab, 170 + 24 + 40) << "yet their titles are measured";
}

} // namespace
} // namespace zv
