#pragma once

#include "app/shell/DoctorCheck.h"
#include "platform/HotkeyRegistrar.h"

namespace zv {

/// Whether shortcuts work while other programs have the keyboard.
[[nodiscard]] DoctorCheck hotkeyCheck(HotkeySupport support);

} // namespace zv
