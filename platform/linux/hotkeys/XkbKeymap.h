#pragma once

#include "platform/menubar/KeyboardLayoutSource.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct xcb_connection_t;
struct xkb_keymap;

namespace zv {

/// The core protocol's bits of the modifiers on this keyboard; 0 for none.
struct ModifierBits {
    std::uint16_t command = 0; ///< Super
    std::uint16_t option = 0; ///< Alt
    std::uint16_t numLock = 0;
    std::uint16_t scrollLock = 0;
    friend bool operator==(ModifierBits const&, ModifierBits const&) = default;
};

/// The X key code of each virtual key code; 0 for none.
using XKeycodes = std::array<std::uint8_t, keyCodeCount>;

/// The keyboard's state at one moment.
class XkbKeymap {
public:
    /// Nothing when the server does not answer.
    [[nodiscard]] static std::optional<XkbKeymap> current(xcb_connection_t* connection, std::int32_t deviceID);
    /// Built from layout names such as "us,ru"; null for those of the environment.
    [[nodiscard]] static std::optional<XkbKeymap> named(char const* layouts);

    /// From its text (XKB_KEYMAP_FORMAT_TEXT_V1).
    [[nodiscard]] static std::optional<XkbKeymap> fromText(std::string const& text);

    /// The texts typed in `group`, then in the first group with the Latin alphabet, or without
    /// one on a US layout: shortcuts are Latin on a Russian keyboard too.
    [[nodiscard]] std::vector<KeyTexts> layers(std::uint32_t group) const;
    /// The text that the key types with Shift on the first layout; empty for none.
    [[nodiscard]] std::string shiftedText(std::uint16_t virtualCode) const;
    [[nodiscard]] XKeycodes const& keycodes() const { return m_keycodes; }
    [[nodiscard]] ModifierBits const& modifiers() const { return m_modifiers; }

private:
    struct Unref {
        void operator()(xkb_keymap* keymap) const;
    };

    explicit XkbKeymap(xkb_keymap* keymap);
    [[nodiscard]] XKeycodes readKeycodes() const;
    [[nodiscard]] ModifierBits readModifiers() const;
    [[nodiscard]] std::uint16_t modifiersOfKey(std::uint32_t symbol) const;
    [[nodiscard]] std::uint16_t realModifiers(char const* name, char const* usual) const;
    [[nodiscard]] KeyTexts textsOfGroup(std::uint32_t group) const;

    std::unique_ptr<xkb_keymap, Unref> m_keymap;
    XKeycodes m_keycodes {};
    ModifierBits m_modifiers;
};

} // namespace zv
