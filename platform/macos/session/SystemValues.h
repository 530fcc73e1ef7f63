#pragma once

#include <string>

namespace zv {

/// A text that the kernel knows under that name ("hw.model"); empty when it knows none.
std::string systemText(char const* name);

} // namespace zv
