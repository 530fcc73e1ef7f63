#pragma once

#include "platform/menubar/HotkeyRegistrar.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace zv {

/// A key in the model's numbering, which goes by the place on the keyboard.
struct VirtualKey {
    std::uint16_t code;
    char const* xkbName; ///< XKB's name of the same place
    std::string_view usText; ///< text typed without modifiers on a US layout; empty for none
};

/// All keys, in ascending order of code.
[[nodiscard]] std::span<VirtualKey const> virtualKeys();

/// Whether the combination, Control-Alt-F1 to F12, switches to another terminal wherever it is
/// pressed: XF86Switch_VT_1 … 12 of symbols/srvr_ctrl in xkeyboard-config.
[[nodiscard]] bool switchesTerminal(KeyChord chord);

} // namespace zv
