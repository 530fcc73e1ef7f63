#pragma once

#include "platform/program/Environment.h"

namespace zv {

/// How the desktop shows windows. Within Wayland there may well be an X server, but neither are
/// the panels its windows, nor are keys grabbed there told while other programs have the keyboard.
enum class SessionKind { x11, wayland };
[[nodiscard]] SessionKind sessionKindOf(Environment const& environment);

/// What the toolkit is to talk to, as QT_QPA_PLATFORM says it: X11 whenever it answers, as only
/// there a menu can be put at a place; else Wayland; else nothing is shown and only the menu on
/// the bus serves. A choice made in the environment comes before all of them, as long as it answers.
[[nodiscard]] std::string displayServerFor(Environment const& environment);

/// True on X11: a menu can be put at a place of the desktop. Elsewhere only the desktop's
/// own menus, drawn from what the bus serves, can.
[[nodiscard]] bool canPlaceWindows();
/// Whether the toolkit could draw on Wayland by itself.
[[nodiscard]] bool hasWaylandPlugin();
/// Whether the environment names a Wayland display that somebody serves.
[[nodiscard]] bool doesWaylandAnswer(Environment const& environment);

} // namespace zv
