#pragma once

#include <string>

namespace zv {

/// The kernel's text of that name ("hw.model"); empty without one.
std::string systemText(char const* name);

} // namespace zv
