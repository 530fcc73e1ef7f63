#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace zv {

/// A feed whose last line is a comment with the signature of all that stands before it:
/// "<!-- edSignature: BASE64 -->". So it vouches for each item's version, name, size and package.
struct SignedFeed {
    std::span<std::byte const> content; ///< a part of the bytes read
    std::vector<std::byte> signature;

    /// Nothing without such a line at the very end.
    [[nodiscard]] static std::optional<SignedFeed> read(std::span<std::byte const> bytes);
};

} // namespace zv
