#pragma once

#include "platform/linux/session/DesktopAccess.h"
#include "platform/program/DesktopFindings.h"
#include "platform/session/ScriptRunner.h"

namespace zv {

/// Locks the screen by whoever does that here. Blocks.
[[nodiscard]] ScriptOutcome lockScreen(DesktopAccess const& access, std::chrono::milliseconds timeout);
/// Who would do it. Blocks.
[[nodiscard]] DesktopFindings::ScreenLock screenLockOf(DesktopAccess const& access, std::chrono::milliseconds timeout);

} // namespace zv
