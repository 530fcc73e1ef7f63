#pragma once

#include "platform/program/RunningProgram.h"

#include <string_view>

namespace zv {

/// The commands' messages when the running program cannot be reached or fails.
[[nodiscard]] RunningProgram::Texts runningProgramTexts();

/// Where the program cannot show a menu: it does not stay unseen then, and in the way of a start that can.
constexpr std::string_view noDisplayText = "There is no display to show a menu on. Start it in a graphical session.";

/// Where there is a display, but nothing to draw on it with.
constexpr std::string_view noWindowText = "no window can be shown in this Wayland session without the package qt6-wayland.";

} // namespace zv
