#pragma once

#include "platform/menubar/HotkeyRegistrar.h"
#include "platform/menubar/KeyboardLayoutSource.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// The line by which the desktop's own configuration has the shell's command run at the chord. `desktopNames` are the
/// session's (XDG_CURRENT_DESKTOP). Nothing for desktops whose notation is unknown, and for what it cannot say.
[[nodiscard]] std::optional<KeyBindingLine> bindingLineFor(
    std::string_view desktopNames, KeyChord chord, std::string const& command, std::vector<KeyTexts> const& layers);

} // namespace zv
