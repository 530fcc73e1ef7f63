#pragma once

#include "platform/ScriptRunner.h"
#include "platform/linux/DesktopAccess.h"

namespace zv {

/// Locks the screen by whoever does that here. Blocks.
[[nodiscard]] ScriptOutcome lockScreen(DesktopAccess const& access, std::chrono::milliseconds timeout);

} // namespace zv
