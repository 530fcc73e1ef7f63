#pragma once

#include "platform/linux/posix/SettingsKeys.h"
#include "platform/linux/session/DesktopAccess.h"
#include "platform/session/ScriptRunner.h"

#include <chrono>

namespace zv {

/// Changes the running dock: its hiding, its edge, its magnification. Blocks.
[[nodiscard]] ScriptOutcome changeDock(ScriptPurpose purpose, DesktopAccess const& access, SettingsStore const& store, std::chrono::milliseconds timeout);

} // namespace zv
