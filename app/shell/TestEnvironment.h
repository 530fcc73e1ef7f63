#pragma once

#include "platform/program/Installation.h"

namespace zv {

/// True inside a test runner: the program then asks nothing and counts no launch.
[[nodiscard]] bool isRunningUnderTests(Environment const& environment);

} // namespace zv
