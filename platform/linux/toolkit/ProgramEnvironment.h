#pragma once

#include "platform/program/Installation.h"

namespace zv {

/// The process's environment, taken once at start.
[[nodiscard]] Environment processEnvironment();

/// What bug reports want to know of this desktop, a line each, without personal paths.
[[nodiscard]] std::string desktopDiagnostics(bool hasTray);

} // namespace zv
