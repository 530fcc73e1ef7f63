#pragma once

#include "base/Result.h"

#include <cstddef>
#include <span>

namespace zv {

/// Checks a binary document's table of objects before the parser sees it. The parser follows
/// nesting on the stack and unfolds shared objects, so a document that is too deep, too large when
/// unfolded, circular or unreadable is refused here. Succeeds when it may be parsed.
[[nodiscard]] Result<void> scanBinaryPropertyList(std::span<std::byte const> bytes);

} // namespace zv
