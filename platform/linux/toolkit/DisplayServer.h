#pragma once

#include "platform/program/Environment.h"

#include <functional>

struct xcb_connection_t;

namespace zv {

/// The session's display server. A Wayland session may well have an X server, but the panels are
/// not its windows, and grabbed keys are not reported while other programs have the keyboard.
enum class SessionKind { x11, wayland };
[[nodiscard]] SessionKind sessionKindOf(Environment const& environment);

/// The platform for the toolkit, as in QT_QPA_PLATFORM: Wayland where it answers and the toolkit
/// has its plugin; else X11; else none, where only the menu on the bus serves, in a Wayland
/// session without plugin and X server. The environment's own choice comes first, as long as it
/// answers. Empty where no display answers. `onX` is called with the connection on which an X server answered.
[[nodiscard]] std::string displayServerFor(Environment const& environment, std::function<void(xcb_connection_t*)> const& onX = {});

/// Whether the toolkit's Wayland plugin is installed.
[[nodiscard]] bool hasWaylandPlugin();
/// Whether the environment names a Wayland display that answers.
[[nodiscard]] bool doesWaylandAnswer(Environment const& environment);

} // namespace zv
