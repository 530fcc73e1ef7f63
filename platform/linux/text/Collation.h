#pragma once

#include "platform/program/Environment.h"

namespace zv {

/// Names are put in order as the environment's LC_COLLATE says; the root's order until then.
/// Called once, before the first comparison.
void useCollationOf(Environment const& environment);

} // namespace zv
