#pragma once

#include "platform/program/Environment.h"

namespace zv {

/// Sets the order of names to the environment's LC_COLLATE; until then it is the root's order.
/// Called once, before the first comparison.
void useCollationOf(Environment const& environment);

} // namespace zv
