#pragma once

#include "platform/time/Clock.h"

#include <string>

namespace zv {

/// Date and time of day as the user's language writes them, short. Each system has one file
/// of its own behind this. Any thread.
[[nodiscard]] std::string localizedDateAndTime(WallTime time);

} // namespace zv
