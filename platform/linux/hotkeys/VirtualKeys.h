#pragma once

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

} // namespace zv
