#pragma once

#include "platform/SystemKind.h"

#include <string>
#include <string_view>

namespace zv {

/// A key's name as keyboards of the user's language have it: "Strg" for "Ctrl". Any other text comes back as it is.
[[nodiscard]] std::string shownKeyName(std::string_view english);

/// A shortcut's text as the system writes it: "⌥⌘E", or "Alt+Super+E" with the keys' names.
[[nodiscard]] std::string shownShortcut(std::string_view glyphs, SystemKind system);

} // namespace zv
