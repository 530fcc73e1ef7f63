#include "app/menu/MenuKeyEquivalent.h"

#include "base/Translation.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace zv {

namespace {

constexpr int lastFunctionKey = 15;
constexpr std::string_view escapeCharacter = "\x1B";

/// U+F703 plus the number, as NSF1FunctionKey of AppKit's NSEvent.h. In UTF-8 all share their first two bytes.
std::string functionKeyCharacter(int number) { return { '\xEF', '\x9C', static_cast<char>(0x83 + number) }; }

std::optional<int> numberOfFunctionKey(std::string_view character)
{
    for (int number = 1; number <= lastFunctionKey; ++number) {
        if (functionKeyCharacter(number) == character)
            return number;
    }
    return std::nullopt;
}

bool hasShortcut(MenuEntry const& entry, std::string const& key, ModifierMask modifiers)
{
    if (!entry.enabled || !entry.target || entry.submenu)
        return false;
    if (!entry.keyEquivalent.empty())
        return entry.keyEquivalent == key && entry.keyEquivalentModifierMask == modifiers;
    if (!entry.attributedTitle || entry.attributedTitle->hint.empty())
        return false;
    MenuEntry hinted;
    hinted.keyEquivalent = key;
    hinted.keyEquivalentModifierMask = modifiers;
    return keyEquivalentText(hinted) == entry.attributedTitle->hint;
}

std::optional<int> parseDecimal(std::string_view text)
{
    int number = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

ModifierMask modifierMask(KeyEquivalentSpec const& spec)
{
    auto mask = spec.noCommand ? ModifierMask::none : ModifierMask::command;
    if (spec.shift)
        mask |= ModifierMask::shift;
    if (spec.option)
        mask |= ModifierMask::option;
    if (spec.control)
        mask |= ModifierMask::control;
    return mask;
}

std::optional<std::string> keyCharacter(KeyEquivalentSpec::Trigger const& trigger)
{
    if (trigger.kind == KeyEquivalentSpec::Trigger::Kind::named)
        return keyEquivalentCharacter(trigger.text);
    return lowerCased(trigger.text);
}

std::string keyText(std::string_view character)
{
    if (character == escapeCharacter)
        return "⎋";
    if (auto const number = numberOfFunctionKey(character))
        return "F" + std::to_string(*number);
    return upperCased(character);
}

} // namespace

std::optional<std::string> keyEquivalentCharacter(std::string_view name)
{
    auto const lowered = lowerCased(name);
    if (lowered == "esc")
        return std::string(escapeCharacter);
    if (!lowered.starts_with('f'))
        return std::nullopt;
    auto const number = parseDecimal(std::string_view(lowered).substr(1));
    if (!number || *number < 1 || *number > lastFunctionKey)
        return std::nullopt;
    return functionKeyCharacter(*number);
}

void applyKeyEquivalent(KeyEquivalentSpec const& spec, MenuEntry& entry)
{
    auto character = keyCharacter(spec.trigger);
    if (!character)
        return;
    entry.keyEquivalent = std::move(*character);
    entry.keyEquivalentModifierMask = modifierMask(spec);
}

MenuEntry const* entryWithShortcut(Menu const& menu, std::span<std::string const> keys, ModifierMask modifiers)
{
    for (auto const& entry : menu.entries) {
        if (std::any_of(keys.begin(), keys.end(), [&](std::string const& key) { return hasShortcut(entry, key, modifiers); }))
            return &entry;
        bool const isSearched = entry.submenu && (entry.submenu->delegate.expired() || entry.submenu->isOpen());
        if (auto const* within = isSearched ? entryWithShortcut(*entry.submenu, keys, modifiers) : nullptr)
            return within;
    }
    return nullptr;
}

std::string keyEquivalentText(MenuEntry const& entry)
{
    static constexpr std::pair<ModifierMask, std::string_view> glyphs[] = {
        { ModifierMask::control, "⌃" },
        { ModifierMask::option, "⌥" },
        { ModifierMask::shift, "⇧" },
        { ModifierMask::command, "⌘" },
    };
    if (entry.keyEquivalent.empty())
        return {};
    std::string text;
    for (auto const& [modifier, glyph] : glyphs) {
        if (contains(entry.keyEquivalentModifierMask, modifier))
            text += glyph;
    }
    return text + keyText(entry.keyEquivalent);
}

} // namespace zv
