#pragma once

#include "platform/program/Installation.h"

namespace zv {

/// The program runs inside a test runner: it then asks nothing and counts no launch.
[[nodiscard]] bool isRunningUnderTests(Environment const& environment);

} // namespace zv
