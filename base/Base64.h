#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// RFC 4648 base64 with padding, in one line.
[[nodiscard]] std::string toBase64(std::span<std::byte const> bytes);
/// Empty when the text has a character outside the alphabet or a wrong length.
[[nodiscard]] std::optional<std::vector<std::byte>> fromBase64(std::string_view text);

} // namespace zv
