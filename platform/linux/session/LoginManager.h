#pragma once

#include "platform/linux/bus/BusConnection.h"

namespace zv {

/// The machine's login service: https://www.freedesktop.org/software/systemd/man/latest/org.freedesktop.login1.html
constexpr BusObject loginManager { "org.freedesktop.login1", "/org/freedesktop/login1", "org.freedesktop.login1.Manager" };

} // namespace zv
