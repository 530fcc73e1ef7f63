#pragma once

#include "base/Translation.h"
#include "platform/program/RunningProgram.h"

namespace zv {

/// The commands' messages when the running program cannot be reached or fails.
[[nodiscard]] RunningProgram::Texts runningProgramTexts();

/// Where the program cannot show a menu: it does not stay unseen then, and in the way of a start that can.
inline constexpr Sentence noDisplayText = mark("There is no display to show a menu on. Start it in a graphical session.");

/// Where there is a display, but nothing to draw on it with.
inline constexpr Sentence noWindowText = mark("no window can be shown in this Wayland session without the package qt6-wayland.");

} // namespace zv
