#pragma once

#include "app/doctor/DoctorCheck.h"
#include "platform/menubar/HotkeyRegistrar.h"
#include "platform/program/DesktopKey.h"

#include <optional>

namespace zv {

/// Checks whether shortcuts work while other programs have the keyboard. Where they do not, what opens the menu by a
/// key is said: a line of the desktop's own configuration, or a key of its settings.
[[nodiscard]] DoctorCheck hotkeyCheck(HotkeySupport support, std::optional<KeyBindingLine> const& showing = {}, DesktopKey::State const& key = {});

} // namespace zv
