#pragma once

#include <string>

namespace zv {

/// Tells the desktop on $DISPLAY that an application starts, at the X server's present time, and gives the id that the
/// application ends the notification with; empty without an X server. Uses a connection of its own. Any thread.
[[nodiscard]] std::string beginStartup(std::string const& applicationName);

/// The message that begins it: https://specifications.freedesktop.org/startup-notification-spec
[[nodiscard]] std::string startupMessage(std::string const& id, std::string const& applicationName);

} // namespace zv
