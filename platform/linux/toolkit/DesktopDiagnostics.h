#pragma once

#include "platform/program/Environment.h"

namespace zv {

/// Facts about this desktop for bug reports, a line each, without personal paths.
[[nodiscard]] std::string desktopDiagnostics(Environment const& environment, bool hasTray);

} // namespace zv
