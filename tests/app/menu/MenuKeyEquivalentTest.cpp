#include "app/menu/MenuKeyEquivalent.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using Trigger = KeyEquivalentSpec::Trigger;

TEST(KeyEquivalent, NamedKeysHaveTheCharactersThatMenusUse)
{
    struct Row {
        std::string name;
        std::optional<std::string> character;
    };
    Row const rows[] = {
        { "esc", "\x1B" },
        { "ESC", "\x1B" },
        { "f1", "\uF704" },
        { "F9", "\uF70C" },
        { "f15", "\uF712" },
        { "f0", std::nullopt },
        { "f16", std::nullopt },
        { "f", std::nullopt },
        { "f1x", std::nullopt },
        { "f99999999999999999999", std::nullopt },
        { "left", std::nullopt },
        { "", std::nullopt },
    };
    for (auto const& row : rows)
        EXPECT_EQ(keyEquivalentCharacter(row.name), row.character) << row.name;
}

TEST(KeyEquivalent, MasksHoldExactlyTheModifiersOfTheShortcut)
{
    struct Row {
        KeyEquivalentSpec spec;
        std::string key;
        std::uint32_t mask;
        std::string text;
    };
    Row const rows[] = {
        { { Trigger::character("E") }, "e", 0x100000, "⌘E" },
        { { .trigger = Trigger::character("E"), .shift = true, .noCommand = true }, "e", 0x20000, "⇧E" },
        { { .trigger = Trigger::character("E"), .shift = true, .option = true, .control = true }, "e", 0x1E0000, "⌃⌥⇧⌘E" },
        { { .trigger = Trigger::character("Ä"), .noCommand = true }, "ä", 0, "Ä" },
        { { .trigger = Trigger::named("F5"), .noCommand = true }, "\uF708", 0, "F5" },
        { { .trigger = Trigger::named("esc"), .control = true, .noCommand = true }, "\x1B", 0x40000, "⌃⎋" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.text);
        MenuEntry entry;
        applyKeyEquivalent(row.spec, entry);
        EXPECT_EQ(entry.keyEquivalent, row.key);
        EXPECT_EQ(static_cast<std::uint32_t>(entry.keyEquivalentModifierMask), row.mask);
        EXPECT_EQ(keyEquivalentText(entry), row.text);
    }
}

TEST(KeyEquivalent, AKeyWithoutACharacterChangesNothing)
{
    MenuEntry entry;
    applyKeyEquivalent({ .trigger = Trigger::named("f16"), .shift = true }, entry);
    EXPECT_EQ(entry.keyEquivalent, "");
    EXPECT_EQ(entry.keyEquivalentModifierMask, ModifierMask::none);
    EXPECT_EQ(keyEquivalentText(entry), "");
}

} // namespace
} // namespace zv
