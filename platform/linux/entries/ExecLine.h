#pragma once

#include <string>
#include <string_view>

namespace zv {

/// A path as the Exec key of an application entry wants it: in double quotes, with the four
/// special characters escaped, and each backslash doubled once more by the key file:
/// https://specifications.freedesktop.org/desktop-entry-spec, "The Exec key".
[[nodiscard]] std::string quotedForExec(std::string_view path);

} // namespace zv
