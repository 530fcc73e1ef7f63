#undef QT_NO_CAST_FROM_ASCII // plain literals keep the tables readable

#include "platform/linux/menu/ShortcutText.h"

#include "app/menu/Menu.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(ShortcutText, WritesKeysAsThisDesktopDoes)
{
    using enum ModifierMask;
    struct Row {
        std::string key;
        ModifierMask mask;
        QString text;
    };
    Row const rows[] = {
        { "e", control | option | shift | command, "Ctrl+Alt+Shift+Super+E" },
        { ",", command, "Super+," },
        { "\xEF\x9C\x84", none, "F1" }, // U+F704
        { "\xEF\x9C\x92", shift, "Shift+F15" }, // U+F712
        { "\x1b", option, "Alt+Esc" },
        { " ", control, "Ctrl+Space" },
        { "ß", command, "Super+SS" },
        { "", command, "" },
    };
    for (auto const& row : rows) {
        MenuEntry entry;
        entry.keyEquivalent = row.key;
        entry.keyEquivalentModifierMask = row.mask;
        EXPECT_EQ(shortcutKeysOf(entry).text(), row.text) << row.text.toStdString();
    }
}

TEST(ShortcutText, ReadsTheGlyphsOfAHint)
{
    struct Row {
        std::string glyphs;
        QString text;
        QStringList bus;
    };
    Row const rows[] = {
        { "⌃⌥⇧⌘E", "Ctrl+Alt+Shift+Super+E", { "Control", "Alt", "Shift", "Super", "E" } }, { "⌃⌥F12", "Ctrl+Alt+F12", { "Control", "Alt", "F12" } },
        { "⌘⎋", "Super+Esc", { "Super", "Esc" } }, { "⌘", "⌘", { "⌘" } }, // the last character is the key
    };
    for (auto const& row : rows) {
        EXPECT_EQ(shortcutKeysOfGlyphs(row.glyphs).text(), row.text) << row.glyphs;
        EXPECT_EQ(shortcutKeysOfGlyphs(row.glyphs).busNames(), row.bus) << row.glyphs;
    }
    EXPECT_TRUE(shortcutKeysOfGlyphs("").isEmpty());
}

} // namespace
} // namespace zv
