#pragma once

#include "platform/program/Environment.h"

namespace zv {

/// The current environment of the process. Read only here, and passed down.
[[nodiscard]] Environment processEnvironment();

/// Sets a variable for a library of this program, unless the user did; what is launched does not get it. Before any
/// thread.
void setForThisProgramAlone(char const* name, char const* value);

} // namespace zv
