#pragma once

#include "platform/linux/session/DesktopAccess.h"
#include "platform/program/DesktopFindings.h"
#include "platform/session/ScriptRunner.h"

namespace zv {

/// Locks the screen through the desktop's screen saver or a substitute. Blocks.
[[nodiscard]] ScriptOutcome lockScreen(DesktopAccess const& access, std::chrono::milliseconds timeout);
/// The screen lock that lockScreen() would use. Blocks.
[[nodiscard]] DesktopFindings::ScreenLock screenLockOf(DesktopAccess const& access, std::chrono::milliseconds timeout);

} // namespace zv
