#pragma once

#include <string>
#include <string_view>

namespace zv {

/// A name from outside as it can safely be shown on one line: what is not UTF-8 becomes
/// U+FFFD, control characters become their pictures (a line break "␊"), and the characters
/// that turn the direction of what follows become U+FFFD, so that no name can pose as
/// another. Marks that right-to-left scripts need stay.
[[nodiscard]] std::string displayText(std::string_view name);

} // namespace zv
