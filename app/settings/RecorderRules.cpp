#include "app/settings/RecorderRules.h"

#include "platform/text/Text.h"

#include <algorithm>
#include <array>
#include <span>

namespace zv {

namespace {

constexpr std::uint16_t escapeKeyCode = 53;

/// A shortcut that nearly every program has, or the desktop, and its use there.
struct KnownShortcut {
    std::string_view shortcut; ///< as glyphs
    std::string_view use;
};

constexpr std::array linuxShortcuts { KnownShortcut { "⌃A", "Select All" }, KnownShortcut { "⌃C", "Copy" }, KnownShortcut { "⌃F", "Find" },
    KnownShortcut { "⌃N", "New" }, KnownShortcut { "⌃O", "Open" }, KnownShortcut { "⌃P", "Print" }, KnownShortcut { "⌃Q", "Quit" },
    KnownShortcut { "⌃S", "Save" }, KnownShortcut { "⌃T", "New Tab" }, KnownShortcut { "⌃V", "Paste" }, KnownShortcut { "⌃W", "Close" },
    KnownShortcut { "⌃X", "Cut" }, KnownShortcut { "⌃Z", "Undo" }, KnownShortcut { "⌥F4", "Close Window" }, KnownShortcut { "⌥F2", "Run" },
    KnownShortcut { "F1", "Help" }, KnownShortcut { "F5", "Reload" }, KnownShortcut { "F11", "Full Screen" }, KnownShortcut { "⎋", "Cancel" } };

constexpr std::array macShortcuts { KnownShortcut { "⌘A", "Select All" }, KnownShortcut { "⌘C", "Copy" }, KnownShortcut { "⌘F", "Find" },
    KnownShortcut { "⌘H", "Hide" }, KnownShortcut { "⌘M", "Minimize" }, KnownShortcut { "⌘N", "New" }, KnownShortcut { "⌘O", "Open" },
    KnownShortcut { "⌘P", "Print" }, KnownShortcut { "⌘Q", "Quit" }, KnownShortcut { "⌘S", "Save" }, KnownShortcut { "⌘T", "New Tab" },
    KnownShortcut { "⌘V", "Paste" }, KnownShortcut { "⌘W", "Close" }, KnownShortcut { "⌘X", "Cut" }, KnownShortcut { "⌘Z", "Undo" },
    KnownShortcut { "⌘,", "Settings" }, KnownShortcut { "⌥⌘⎋", "Force Quit" }, KnownShortcut { "⎋", "Cancel" } };

std::string_view knownUse(std::string const& shortcut, SystemKind system)
{
    auto const known = system == SystemKind::macOS ? std::span<KnownShortcut const>(macShortcuts) : std::span<KnownShortcut const>(linuxShortcuts);
    auto const found = std::find_if(known.begin(), known.end(), [&](auto const& each) { return each.shortcut == shortcut; });
    return found == known.end() ? std::string_view() : found->use;
}

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

std::string shortcutWarning(KeyEquivalentSpec const& spec, SystemKind system)
{
    auto const use = knownUse(spec.description(), system);
    auto const intro = use.empty() ? std::string() : "This is “" + std::string(use) + "” elsewhere. ";
    bool const isPlain = spec.noCommand && !spec.control && !spec.option;
    if (isPlain)
        return intro + "It will be taken from every program, also while you type.";
    return use.empty() ? std::string() : intro + "It will be taken from every program.";
}

} // namespace zv
