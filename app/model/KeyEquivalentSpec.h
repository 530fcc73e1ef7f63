#pragma once

#include "app/model/ReadFailure.h"
#include "base/PropertyList.h"
#include "base/Result.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zv {

/// The virtual key code (kVK_… of HIToolbox/Events.h) of a named key ("f1" to "f15", "esc"), found in any case.
[[nodiscard]] std::optional<std::uint16_t> keyCodeOfNamedKey(std::string_view name);
/// The lower-case name of the key with this virtual key code.
[[nodiscard]] std::optional<std::string_view> namedKeyWithCode(std::uint16_t keyCode);

/// A keyboard shortcut: a key and its modifiers. Command is included unless `noCommand`, the flag
/// of the stored format.
struct KeyEquivalentSpec {
    struct Trigger {
        enum class Kind : std::uint8_t { character, named };
        Kind kind = Kind::character;
        std::string text; ///< one character (grapheme), or the name as it was written

        [[nodiscard]] static Trigger character(std::string_view grapheme) { return { Kind::character, std::string(grapheme) }; }
        /// Upper-cases the character, as stored shortcuts are; leaves it if upper case would be
        /// several characters.
        [[nodiscard]] static Trigger upperCasedCharacter(std::string_view grapheme);
        [[nodiscard]] static Trigger named(std::string_view name) { return { Kind::named, std::string(name) }; }
        friend bool operator==(Trigger const&, Trigger const&) = default;
    };

    Trigger trigger;
    bool shift = false;
    bool option = false;
    bool control = false;
    bool noCommand = false;

    /// Glyph text in the fixed order ⌃⌥⇧⌘, then the key: "⇧⌘E", "⌃⌥F12", "⎋".
    [[nodiscard]] std::string description() const;
    /// Only the modifiers' glyphs, in that order.
    [[nodiscard]] std::string modifierGlyphs() const;
    /// The key's part of description().
    [[nodiscard]] std::string keyText() const;

    /// The keyed form: "trigger", "shift", "option", "control", "noCommand".
    [[nodiscard]] PropertyListDictionary toPropertyList() const;
    /// The failure's key refers to this record; its index path is empty.
    [[nodiscard]] static Result<KeyEquivalentSpec, ReadFailure> fromPropertyList(PropertyList const& value);
    /// Reads the older form: "Key" and the four "KeyModifier…" keys, which count when present,
    /// whatever their value.
    [[nodiscard]] static std::optional<KeyEquivalentSpec> fromOlderDictionary(PropertyListDictionary const& dictionary);

    friend bool operator==(KeyEquivalentSpec const&, KeyEquivalentSpec const&) = default;
};

[[nodiscard]] std::size_t hashValue(KeyEquivalentSpec const& spec);

} // namespace zv

template <> struct std::hash<zv::KeyEquivalentSpec> {
    std::size_t operator()(zv::KeyEquivalentSpec const& spec) const noexcept { return zv::hashValue(spec); }
};
