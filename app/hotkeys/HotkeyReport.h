#pragma once

#include "app/hotkeys/HotkeyCenter.h"

#include <string>

namespace zv {

/// Registrations by id, then conflicts, as JSON:
/// {"registrations":[{"id":1,"shortcut":"⌥⌘E","item":UUID}|{…,"file":PATH}],"conflicts":[{"shortcut":…,"item"|"file":…}],
///  "unavailable":[{"shortcut":…,"item"|"file":…,"reason":"notOnLayout"|"keptBySystem"}],"support":"everywhere"|"askingTheUser"|"none"}
/// and "bindings":[{"file":…,"line":…}] where there are lines for the desktop's own configuration.
/// Replaces invalid UTF-8 in paths. A null center gives an empty report.
[[nodiscard]] std::string hotkeyReport(HotkeyCenter const* center);

} // namespace zv
