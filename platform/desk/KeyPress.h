#pragma once

#include "platform/desk/ModifierKeys.h"

#include <cstdint>
#include <string>

namespace zv {

/// A key pressed in a window of ours.
struct KeyPress {
    std::uint16_t keyCode = 0; ///< virtual key code of the model; one above keyCodeCount where the key's place is unknown
    std::string charactersIgnoringModifiers; ///< what the key types without modifiers
    ModifierMask modifiers = ModifierMask::none;
};

} // namespace zv
