#include "app/model/KeyEquivalentSpec.h"

#include "app/model/HashCombiner.h"
#include "app/model/NameTable.h"
#include "app/model/RecordReader.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <array>

namespace zv {

namespace {

struct NamedKey {
    std::string_view name;
    std::uint16_t keyCode;
};

constexpr std::array<NamedKey, 16> namedKeys { { { "f1", 122 }, { "f2", 120 }, { "f3", 99 }, { "f4", 118 }, { "f5", 96 }, { "f6", 97 }, { "f7", 98 },
    { "f8", 100 }, { "f9", 101 }, { "f10", 109 }, { "f11", 103 }, { "f12", 111 }, { "f13", 105 }, { "f14", 107 }, { "f15", 113 }, { "esc", 53 } } };

NameTable const& namedKeyTable()
{
    static NameTable const table = [] {
        std::array<std::string_view, namedKeys.size()> names;
        std::transform(namedKeys.begin(), namedKeys.end(), names.begin(), [](NamedKey const& key) { return key.name; });
        return NameTable(names);
    }();
    return table;
}

using Flag = bool KeyEquivalentSpec::*;

struct FlagKey {
    std::string_view key;
    std::string_view olderKey;
    Flag flag;
};

constexpr std::array<FlagKey, 4> flagKeys { { { "shift", "KeyModifierShift", &KeyEquivalentSpec::shift },
    { "option", "KeyModifierOption", &KeyEquivalentSpec::option }, { "control", "KeyModifierControl", &KeyEquivalentSpec::control },
    { "noCommand", "KeyModifierNoCommand", &KeyEquivalentSpec::noCommand } } };

std::string_view keyFor(KeyEquivalentSpec::Trigger::Kind kind) { return kind == KeyEquivalentSpec::Trigger::Kind::character ? "character" : "named"; }

Result<KeyEquivalentSpec::Trigger, ReadFailure> readTrigger(PropertyList const& value)
{
    RecordReader record(value);
    auto const character = record.optionalString("character");
    if (character && singleGrapheme(*character))
        return KeyEquivalentSpec::Trigger::character(*character);
    auto const name = record.requiredString("named");
    if (!record.ok())
        return Failure { *record.failure() };
    return KeyEquivalentSpec::Trigger::named(name);
}

std::optional<KeyEquivalentSpec::Trigger> olderTrigger(std::string const& key)
{
    if (singleGrapheme(key))
        return KeyEquivalentSpec::Trigger::upperCasedCharacter(key);
    if (keyCodeOfNamedKey(key))
        return KeyEquivalentSpec::Trigger::named(key);
    return std::nullopt;
}

} // namespace

std::optional<std::uint16_t> keyCodeOfNamedKey(std::string_view name)
{
    auto const position = namedKeyTable().find(name);
    return position ? std::optional(namedKeys[*position].keyCode) : std::nullopt;
}

std::optional<std::string_view> namedKeyWithCode(std::uint16_t keyCode)
{
    auto const found = std::find_if(namedKeys.begin(), namedKeys.end(), [&](NamedKey const& key) { return key.keyCode == keyCode; });
    return found == namedKeys.end() ? std::nullopt : std::optional(found->name);
}

KeyEquivalentSpec::Trigger KeyEquivalentSpec::Trigger::upperCasedCharacter(std::string_view grapheme)
{
    auto const upper = upperCased(grapheme);
    return character(singleGrapheme(upper) ? std::string_view(upper) : grapheme);
}

std::string KeyEquivalentSpec::description() const { return modifierGlyphs() + keyText(); }

std::string KeyEquivalentSpec::modifierGlyphs() const
{
    std::string glyphs;
    glyphs += control ? "⌃" : "";
    glyphs += option ? "⌥" : "";
    glyphs += shift ? "⇧" : "";
    glyphs += noCommand ? "" : "⌘";
    return glyphs;
}

std::string KeyEquivalentSpec::keyText() const
{
    bool const isEscape = trigger.kind == Trigger::Kind::named && lowerCased(trigger.text) == "esc";
    return isEscape ? "⎋" : upperCased(trigger.text);
}

PropertyListDictionary KeyEquivalentSpec::toPropertyList() const
{
    PropertyListDictionary record;
    record.reserve(1 + flagKeys.size());
    PropertyListDictionary triggerRecord;
    triggerRecord.append(keyFor(trigger.kind), trigger.text);
    record.append("trigger", std::move(triggerRecord));
    for (auto const& [key, olderKey, flag] : flagKeys)
        record.append(key, this->*flag);
    return record;
}

Result<KeyEquivalentSpec, ReadFailure> KeyEquivalentSpec::fromPropertyList(PropertyList const& value)
{
    RecordReader record(value);
    KeyEquivalentSpec spec;
    auto const* triggerRecord = record.requiredDictionary("trigger") ? record.optionalValue("trigger") : nullptr;
    if (triggerRecord) {
        auto trigger = readTrigger(*triggerRecord);
        if (trigger)
            spec.trigger = std::move(trigger).value();
        else
            record.fail("trigger", trigger.error());
    }
    for (auto const& [key, olderKey, flag] : flagKeys)
        spec.*flag = record.requiredBoolean(key);
    if (!record.ok())
        return Failure { *record.failure() };
    return spec;
}

std::optional<KeyEquivalentSpec> KeyEquivalentSpec::fromOlderDictionary(PropertyListDictionary const& dictionary)
{
    auto const* key = dictionary.string("Key");
    auto trigger = key ? olderTrigger(*key) : std::nullopt;
    if (!trigger)
        return std::nullopt;
    KeyEquivalentSpec spec { std::move(*trigger) };
    // Presence counts: a stored false still sets the flag.
    for (auto const& [newKey, olderKey, flag] : flagKeys)
        spec.*flag = dictionary.contains(olderKey);
    return spec;
}

std::size_t hashValue(KeyEquivalentSpec const& spec)
{
    HashCombiner hash;
    hash.addHash(static_cast<std::size_t>(spec.trigger.kind)).add(spec.trigger.text);
    hash.add(spec.shift).add(spec.option).add(spec.control).add(spec.noCommand);
    return hash.result();
}

} // namespace zv
