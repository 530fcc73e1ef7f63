#pragma once

#include "base/Result.h"

#include <cstddef>
#include <span>

namespace zv {

/// The maximum number of values in a document, each use of a shared one counted: every value
/// costs the parser a hundred bytes.
inline constexpr std::size_t maximumPropertyListValues = 2'000'000;

/// Checks a document before the parser sees it. The parser follows nesting on the stack, unfolds
/// shared objects and takes unreadable numbers for zero, so a document that is too deep, too
/// large when unfolded, circular or unreadable is refused here. Succeeds when it may be parsed.
[[nodiscard]] Result<void> scanXmlPropertyList(std::span<std::byte const> bytes);
[[nodiscard]] Result<void> scanBinaryPropertyList(std::span<std::byte const> bytes);

/// The sentence for containers nested deeper than allowed.
[[nodiscard]] std::string tooDeepMessage();

} // namespace zv
