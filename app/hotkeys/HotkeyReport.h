#pragma once

#include "app/hotkeys/HotkeyCenter.h"

#include <string>

namespace zv {

/// Registrations by id, then conflicts, as JSON:
/// {"registrations":[{"id":1,"shortcut":"⌥⌘E","item":UUID}|{…,"file":PATH}],"conflicts":[{"shortcut":…,"item"|"file":…}]}
/// A path that is not UTF-8 has replacement characters. Without a center there is nothing yet to report.
[[nodiscard]] std::string hotkeyReport(HotkeyCenter const* center);

} // namespace zv
