#pragma once

#include "platform/program/Environment.h"

namespace zv {

/// What bug reports want to know of this desktop, a line each, without personal paths.
[[nodiscard]] std::string desktopDiagnostics(Environment const& environment, bool hasTray);

} // namespace zv
