#pragma once

#include "platform/program/RunningProgram.h"

namespace zv {

/// The commands' messages when the running program cannot be reached or fails.
[[nodiscard]] RunningProgram::Texts runningProgramTexts();

} // namespace zv
