#include "app/model/KeyCombination.h"

#include "platform/menubar/HotkeyRegistrar.h"
#include "platform/text/Text.h"

namespace zv {

using Trigger = KeyEquivalentSpec::Trigger;

std::uint32_t modifiersOf(KeyEquivalentSpec const& spec)
{
    return (spec.noCommand ? 0U : std::uint32_t { commandKey }) | (spec.shift ? std::uint32_t { shiftKey } : 0U)
        | (spec.option ? std::uint32_t { optionKey } : 0U) | (spec.control ? std::uint32_t { controlKey } : 0U);
}

DesktopKey::Combination combinationOf(KeyEquivalentSpec const& spec)
{
    return { lowerCased(spec.trigger.text), spec.trigger.kind == Trigger::Kind::named, modifiersOf(spec) };
}

KeyEquivalentSpec specOf(DesktopKey::Combination const& combination)
{
    auto const has = [&](KeyModifier modifier) { return (combination.modifiers & modifier) != 0; };
    return { .trigger = combination.isNamed ? Trigger::named(combination.key) : Trigger::upperCasedCharacter(combination.key),
        .shift = has(shiftKey),
        .option = has(optionKey),
        .control = has(controlKey),
        .noCommand = !has(commandKey) };
}

} // namespace zv
