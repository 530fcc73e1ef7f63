#pragma once

#include "app/doctor/DoctorCheck.h"
#include "platform/menubar/HotkeyRegistrar.h"

namespace zv {

/// Checks whether shortcuts work while other programs have the keyboard.
[[nodiscard]] DoctorCheck hotkeyCheck(HotkeySupport support);

} // namespace zv
