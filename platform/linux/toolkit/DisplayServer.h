#pragma once

#include "platform/program/Environment.h"

namespace zv {

/// The session's display server. A Wayland session may well have an X server, but the panels are
/// not its windows, and grabbed keys are not reported while other programs have the keyboard.
enum class SessionKind { x11, wayland };
[[nodiscard]] SessionKind sessionKindOf(Environment const& environment);

/// The platform for the toolkit, as in QT_QPA_PLATFORM: X11 whenever it answers, as a menu can be
/// placed only there; else Wayland; else none, where only the menu on the bus serves, in a Wayland
/// session without the toolkit's plugin. The environment's own choice comes first, as long as it
/// answers. Empty where no display answers.
[[nodiscard]] std::string displayServerFor(Environment const& environment);

/// True on X11, where a menu can be placed on the desktop. Elsewhere only the desktop places
/// menus, drawn from the bus.
[[nodiscard]] bool canPlaceWindows();
/// Whether the toolkit's Wayland plugin is installed.
[[nodiscard]] bool hasWaylandPlugin();
/// Whether the environment names a Wayland display that answers.
[[nodiscard]] bool doesWaylandAnswer(Environment const& environment);

} // namespace zv
