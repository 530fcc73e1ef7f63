#include "app/settings/RecorderRules.h"

#include "base/Translation.h"
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
    Sentence use;
};

constexpr std::array linuxShortcuts { KnownShortcut { "⌃A", mark("Select All") }, KnownShortcut { "⌃C", markc("menu bar", "Copy") },
    KnownShortcut { "⌃F", markc("menu bar", "Find") }, KnownShortcut { "⌃N", markc("menu bar", "New") }, KnownShortcut { "⌃O", markc("menu bar", "Open") },
    KnownShortcut { "⌃P", markc("menu bar", "Print") }, KnownShortcut { "⌃Q", markc("menu bar", "Quit") }, KnownShortcut { "⌃S", markc("menu bar", "Save") },
    KnownShortcut { "⌃T", markc("menu bar", "New Tab") }, KnownShortcut { "⌃V", mark("Paste") }, KnownShortcut { "⌃W", markc("menu bar", "Close") },
    KnownShortcut { "⌃X", mark("Cut") }, KnownShortcut { "⌃Z", mark("Undo") }, KnownShortcut { "⌥F4", markc("menu bar", "Close Window") },
    KnownShortcut { "⌥F2", markc("menu bar", "Run") }, KnownShortcut { "F1", markc("menu bar", "Help") }, KnownShortcut { "F5", markc("menu bar", "Reload") },
    KnownShortcut { "F11", markc("menu bar", "Full Screen") }, KnownShortcut { "⎋", mark("Cancel") } };

constexpr std::array macShortcuts { KnownShortcut { "⌘A", mark("Select All") }, KnownShortcut { "⌘C", markc("menu bar", "Copy") },
    KnownShortcut { "⌘F", markc("menu bar", "Find") }, KnownShortcut { "⌘H", markc("menu bar", "Hide") }, KnownShortcut { "⌘M", mark("Minimize") },
    KnownShortcut { "⌘N", markc("menu bar", "New") }, KnownShortcut { "⌘O", markc("menu bar", "Open") }, KnownShortcut { "⌘P", markc("menu bar", "Print") },
    KnownShortcut { "⌘Q", markc("menu bar", "Quit") }, KnownShortcut { "⌘S", markc("menu bar", "Save") }, KnownShortcut { "⌘T", markc("menu bar", "New Tab") },
    KnownShortcut { "⌘V", mark("Paste") }, KnownShortcut { "⌘W", markc("menu bar", "Close") }, KnownShortcut { "⌘X", mark("Cut") },
    KnownShortcut { "⌘Z", mark("Undo") }, KnownShortcut { "⌘,", markc("menu bar", "Settings") }, KnownShortcut { "⌥⌘⎋", mark("Force Quit") },
    KnownShortcut { "⎋", mark("Cancel") } };

Sentence knownUse(std::string const& shortcut, SystemKind system)
{
    auto const known = system == SystemKind::macOS ? std::span<KnownShortcut const>(macShortcuts) : std::span<KnownShortcut const>(linuxShortcuts);
    auto const found = std::find_if(known.begin(), known.end(), [&](auto const& each) { return each.shortcut == shortcut; });
    return found == known.end() ? Sentence() : found->use;
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
    // TRANSLATORS: %1 is a command that many programs have, in quotation marks; a key combination calls it there
    auto const intro = use.isEmpty() ? std::string() : tr("This is %1 elsewhere.", quoted(tr(use)));
    bool const isPlain = spec.noCommand && !spec.control && !spec.option;
    if (isPlain)
        return inSequence(intro, tr("It will be taken from every program, also while you type."));
    return use.isEmpty() ? std::string() : inSequence(intro, tr("It will be taken from every program."));
}

} // namespace zv
