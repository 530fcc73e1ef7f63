#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace zv {

/// One key in the model's numbering of keys, which goes by the place on the keyboard.
struct VirtualKey {
    std::uint16_t code;
    char const* xkbName; ///< the name XKB has for the same place
    std::string_view usText; ///< what it types without modifiers on a US layout; empty for none
};

/// In ascending order of code.
[[nodiscard]] std::span<VirtualKey const> virtualKeys();

} // namespace zv
