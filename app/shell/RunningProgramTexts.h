#pragma once

#include "platform/program/RunningProgram.h"

namespace zv {

/// What commands say where the running program cannot be asked, or did not do what was asked.
[[nodiscard]] RunningProgram::Texts runningProgramTexts();

} // namespace zv
