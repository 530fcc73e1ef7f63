#pragma once

#include <string>
#include <string_view>

namespace zv {

/// Makes a name from outside safe to show on one line: invalid UTF-8 becomes U+FFFD, control
/// characters become their pictures (a line break "␊"), and characters that change the text's
/// direction become U+FFFD, so that no name can pose as another. Marks that right-to-left scripts
/// need stay.
[[nodiscard]] std::string displayText(std::string_view name);

} // namespace zv
