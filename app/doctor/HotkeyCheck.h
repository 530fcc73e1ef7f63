#pragma once

#include "app/doctor/DoctorCheck.h"
#include "platform/menubar/HotkeyRegistrar.h"

#include <string_view>

namespace zv {

/// Checks whether shortcuts work while other programs have the keyboard. Where they do not, a
/// line for the desktop's own key bindings is shown, by the session's names for the desktop.
[[nodiscard]] DoctorCheck hotkeyCheck(HotkeySupport support, std::string_view desktopNames = {});

} // namespace zv
