#include "app/model/KeyEquivalentSpec.h"

#include <gtest/gtest.h>

namespace zv {

namespace {

using Trigger = KeyEquivalentSpec::Trigger;

KeyEquivalentSpec spec(Trigger trigger, std::string_view modifiers)
{
    auto const has = [&](char letter) { return modifiers.find(letter) != std::string_view::npos; };
    return { std::move(trigger), has('s'), has('o'), has('c'), !has('m') };
}

PropertyListDictionary record(PropertyList trigger)
{
    return { { "trigger", std::move(trigger) }, { "shift", true }, { "option", false }, { "control", false }, { "noCommand", false } };
}

} // namespace

TEST(KeyEquivalentSpec, ShowsModifiersInTheirFixedOrderThenTheKey)
{
    struct Row {
        KeyEquivalentSpec spec;
        std::string shown;
    };
    Row const rows[] = {
        { spec(Trigger::character("E"), "sm"), "⇧⌘E" },
        { spec(Trigger::character("e"), "scom"), "⌃⌥⇧⌘E" },
        { spec(Trigger::named("F12"), "co"), "⌃⌥F12" },
        { spec(Trigger::named("f5"), ""), "F5" },
        { spec(Trigger::named("esc"), ""), "⎋" },
        { spec(Trigger::named("ESC"), "m"), "⌘⎋" },
        { spec(Trigger::character("ß"), "m"), "⌘SS" },
        { spec(Trigger::character("é"), "m"), "⌘É" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(row.spec.description(), row.shown);
}

TEST(KeyEquivalentSpec, NamedKeysHaveTheirVirtualKeyCodesInAnyCase)
{
    std::uint16_t const codes[] = { 122, 120, 99, 118, 96, 97, 98, 100, 101, 109, 103, 111, 105, 107, 113 };
    for (int i = 1; i <= 15; ++i) {
        EXPECT_EQ(keyCodeOfNamedKey("f" + std::to_string(i)), codes[i - 1]);
        EXPECT_EQ(keyCodeOfNamedKey("F" + std::to_string(i)), codes[i - 1]);
        EXPECT_EQ(namedKeyWithCode(codes[i - 1]), "f" + std::to_string(i));
    }
    EXPECT_EQ(keyCodeOfNamedKey("Esc"), 53);
    for (auto const* name : { "f0", "f16", "home", "", "f" })
        EXPECT_FALSE(keyCodeOfNamedKey(name)) << name;
    EXPECT_FALSE(namedKeyWithCode(0));
}

TEST(KeyEquivalentSpec, TheOlderFormCountsModifiersByTheirPresence)
{
    struct Row {
        PropertyListDictionary dictionary;
        std::string shown, why;
    };
    Row const rows[] = {
        { { { "Key", "e" }, { "KeyModifierShift", true } }, "⇧⌘E", "a character is upper-cased, Command is implied" },
        { { { "Key", "e" }, { "KeyModifierShift", false } }, "⇧⌘E", "a stored false still counts" },
        { { { "Key", "e" }, { "KeyModifierOption", "" }, { "KeyModifierControl", 0 } }, "⌃⌥⌘E", "whatever the value's type" },
        { { { "Key", "F5" } }, "⌘F5", "the name is looked up in lower case" },
        { { { "Key", "esc" }, { "KeyModifierNoCommand", true } }, "⎋", "a bare key" },
        { { { "Key", "ß" } }, "⌘SS", "whose upper case is two characters" },
        { { { "Key", "Home" }, { "KeyModifierShift", true } }, "", "not a key we know" },
        { { { "Key", "" }, { "KeyModifierShift", true } }, "", "empty" },
        { { { "Key", 5 } }, "", "no text" },
        { { { "KeyModifierShift", true } }, "", "no key" },
    };
    for (auto const& row : rows) {
        auto const read = KeyEquivalentSpec::fromOlderDictionary(row.dictionary);
        EXPECT_EQ(read ? read->description() : "", row.shown) << row.why;
    }
    EXPECT_EQ(KeyEquivalentSpec::fromOlderDictionary({ { "Key", "F5" } })->trigger, Trigger::named("F5")) << "the name stays as it was written";
    EXPECT_EQ(KeyEquivalentSpec::fromOlderDictionary({ { "Key", "ß" } })->trigger, Trigger::character("ß")) << "a trigger is one character";
}

TEST(KeyEquivalentSpec, TheKeyedFormIsReadBackAndHasItsKeysInOrder)
{
    auto const original = spec(Trigger::named("f5"), "so");
    auto const written = original.toPropertyList();
    std::vector<std::string> keys;
    for (auto const& [key, value] : written)
        keys.push_back(key);
    EXPECT_EQ(keys, (std::vector<std::string> { "trigger", "shift", "option", "control", "noCommand" }));
    EXPECT_EQ(*written.find("trigger"), (PropertyListDictionary { { "named", "f5" } }));
    EXPECT_EQ(KeyEquivalentSpec::fromPropertyList(written).value(), original);
}

TEST(KeyEquivalentSpec, ReadsATriggerByItsCharacterElseByItsName)
{
    struct Row {
        PropertyListDictionary trigger;
        std::optional<Trigger> read;
        std::string failingKey;
    };
    Row const rows[] = {
        { { { "character", "E" } }, Trigger::character("E"), "" },
        { { { "character", "👩‍👩‍👧" } }, Trigger::character("👩‍👩‍👧"), "" },
        { { { "character", "E" }, { "named", "f1" } }, Trigger::character("E"), "" },
        { { { "character", "EE" }, { "named", "f1" } }, Trigger::named("f1"), "" },
        { { { "named", "anything" } }, Trigger::named("anything"), "" },
        { { { "character", "EE" } }, std::nullopt, "trigger.named" },
        { { { "character", "" } }, std::nullopt, "trigger.named" },
        { { { "character", 7 }, { "named", "f1" } }, std::nullopt, "trigger.character" },
        { { { "named", true } }, std::nullopt, "trigger.named" },
        { {}, std::nullopt, "trigger.named" },
    };
    for (auto const& row : rows) {
        auto const read = KeyEquivalentSpec::fromPropertyList(record(row.trigger));
        ASSERT_EQ(read.ok(), row.read.has_value()) << row.failingKey;
        EXPECT_EQ(read ? "" : read.error().key, row.failingKey);
        EXPECT_EQ(read ? std::optional(read->trigger) : std::nullopt, row.read);
    }
}

TEST(KeyEquivalentSpec, EveryFlagIsRequiredAndABoolean)
{
    for (auto const* key : { "trigger", "shift", "option", "control", "noCommand" }) {
        auto incomplete = record(PropertyListDictionary { { "character", "E" } });
        incomplete.remove(key);
        EXPECT_EQ(KeyEquivalentSpec::fromPropertyList(incomplete).error().key, key);
        incomplete.set(key, 1);
        EXPECT_EQ(KeyEquivalentSpec::fromPropertyList(incomplete).error().key, key) << "an integer is no boolean";
    }
    EXPECT_EQ(KeyEquivalentSpec::fromPropertyList("E").error().reason, "is a string where a dictionary is expected");
}

TEST(KeyEquivalentSpec, NamesAreComparedExactly)
{
    EXPECT_NE(spec(Trigger::named("F5"), ""), spec(Trigger::named("f5"), ""));
    EXPECT_NE(spec(Trigger::named("e"), ""), spec(Trigger::character("e"), ""));
    EXPECT_NE(hashValue(spec(Trigger::named("e"), "")), hashValue(spec(Trigger::character("e"), "")));
    EXPECT_NE(hashValue(spec(Trigger::named("e"), "s")), hashValue(spec(Trigger::named("e"), "o")));
}

} // namespace zv
