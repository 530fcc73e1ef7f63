#pragma once

#include "platform/program/Environment.h"

namespace zv {

/// The environment as it stands now. Read here alone, and handed down from here.
[[nodiscard]] Environment processEnvironment();

} // namespace zv
