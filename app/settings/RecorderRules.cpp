#include "app/settings/RecorderRules.h"

#include "platform/text/Text.h"

namespace zv {

namespace {

constexpr std::uint16_t escapeKeyCode = 53;

std::optional<KeyEquivalentSpec::Trigger> triggerFor(KeyPress const& press)
{
    if (auto const name = namedKeyWithCode(press.keyCode))
        return KeyEquivalentSpec::Trigger::named(*name);
    auto const character = singleGrapheme(press.charactersIgnoringModifiers);
    if (!character || !isLetterNumberPunctuationOrSymbol(*character))
        return std::nullopt;
    // A sharp s stays: in upper case it is two letters, a trigger is one.
    auto const upper = upperCased(*character);
    return KeyEquivalentSpec::Trigger::character(singleGrapheme(upper) ? std::string_view(upper) : *character);
}

} // namespace

RecorderOutcome recorderOutcome(KeyPress const& press)
{
    if (press.keyCode == escapeKeyCode && press.modifiers == ModifierMask::none)
        return { RecorderOutcome::Kind::cancelled, std::nullopt };
    auto const trigger = triggerFor(press);
    if (!trigger)
        return {};
    KeyEquivalentSpec spec;
    spec.trigger = *trigger;
    spec.shift = contains(press.modifiers, ModifierMask::shift);
    spec.option = contains(press.modifiers, ModifierMask::option);
    spec.control = contains(press.modifiers, ModifierMask::control);
    spec.noCommand = !contains(press.modifiers, ModifierMask::command);
    return { RecorderOutcome::Kind::captured, spec };
}

} // namespace zv
