#pragma once

#include <string>
#include <string_view>

namespace zv {

/// The path quoted for the Exec key of an application entry: in double quotes, with the four
/// special characters escaped, and each backslash doubled once more for the key file:
/// https://specifications.freedesktop.org/desktop-entry-spec, "The Exec key".
[[nodiscard]] std::string quotedForExec(std::string_view path);

} // namespace zv
