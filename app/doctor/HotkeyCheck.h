#pragma once

#include "app/doctor/DoctorCheck.h"
#include "platform/menubar/HotkeyRegistrar.h"

#include <optional>

namespace zv {

/// Checks whether shortcuts work while other programs have the keyboard. Where they do not, a
/// line of the desktop's own configuration is shown, if there is one that opens the menu.
[[nodiscard]] DoctorCheck hotkeyCheck(HotkeySupport support, std::optional<KeyBindingLine> const& showing = {});

} // namespace zv
