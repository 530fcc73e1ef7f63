#pragma once

#include "platform/SystemKind.h"

#include <string>
#include <string_view>

namespace zv {

/// A shortcut's text as the system writes it: "⌥⌘E", or "Alt+Super+E".
[[nodiscard]] std::string shownShortcut(std::string_view glyphs, SystemKind system);

} // namespace zv
