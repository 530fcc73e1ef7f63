#pragma once

#include <compare>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace zv {

using HotkeyID = std::uint32_t;

/// Modifier keys as the bits of a key combination: cmdKey, shiftKey, optionKey and controlKey of HIToolbox/Events.h.
enum KeyModifier : std::uint32_t {
    commandKey = 256,
    shiftKey = 512,
    optionKey = 2048,
    controlKey = 4096,
};

/// A key, by its virtual key code (kVK_… of HIToolbox/Events.h), with exactly these modifiers held.
struct KeyChord {
    std::uint16_t keyCode = 0;
    std::uint32_t modifiers = 0; ///< of KeyModifier

    friend auto operator<=>(KeyChord const&, KeyChord const&) = default;
};

/// How far combinations work while other programs have the keyboard.
enum class HotkeySupport {
    everywhere,
    askingTheUser, ///< through a service that lets the user confirm and change each combination
    none,
};

/// The menu's key where one is proposed, Command-M by its place, and what it has the shell do.
inline constexpr KeyChord chordOfShow { 46, commandKey };
inline constexpr char const* commandOfShow = "zanthe-vell show";

/// A line of the desktop's own configuration that runs a command at a combination.
struct KeyBindingLine {
    std::string file; ///< the one that the line goes into, as people write it: "~/.config/river/init"
    std::string line;
    friend bool operator==(KeyBindingLine const&, KeyBindingLine const&) = default;
};

/// Claims key combinations from the system, a whole pass at a time, so that no other
/// program slips in between and combinations already held cost nothing. Main thread only,
/// callbacks too.
class HotkeyRegistrar {
public:
    virtual ~HotkeyRegistrar() = default;

    /// Replaces all combinations held by these. One answer each, in order: false when another
    /// program or the system holds it, or when it stands earlier in the list. The claimed ones
    /// get the ids `firstID`, `firstID` + 1, … in order; a press under an older id is dropped.
    [[nodiscard]] virtual std::vector<bool> claimAll(HotkeyID firstID, std::span<KeyChord const> chords) = 0;
    virtual void releaseAll() = 0;
    [[nodiscard]] virtual HotkeySupport support() const = 0;
    /// Whether the system acts on the combination before any program sees it.
    [[nodiscard]] virtual bool isKeptBySystem(KeyChord) const { return false; }

    /// The line that runs the shell's command there, where nothing but the desktop's configuration gives
    /// combinations; nothing elsewhere, and where its notation is unknown or cannot say it.
    [[nodiscard]] virtual std::optional<KeyBindingLine> bindingLine(KeyChord, std::string const& /*command*/) const { return std::nullopt; }

    /// Called once a press, however long the key is held. Set by its one user.
    std::function<void(HotkeyID)> onPressed;
    /// Called when the combinations held differ from those claimed: claim all again.
    std::function<void()> onInvalidated;
};

} // namespace zv
