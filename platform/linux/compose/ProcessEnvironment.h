#pragma once

#include "platform/program/Environment.h"

namespace zv {

/// The current environment of the process. Read only here, and passed down.
[[nodiscard]] Environment processEnvironment();

} // namespace zv
