#pragma once

#include "platform/linux/apps/ApplicationIndex.h"
#include "platform/lists/RunningApplications.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// A window's own statement of its application; any field may be missing.
struct ClientWindow {
    std::uint32_t window = 0;
    std::string windowClass; ///< the two parts of WM_CLASS
    std::string windowInstance;
    std::string gtkApplicationId;
    std::string title;
    std::uint32_t pid = 0; ///< 0 when unknown
    std::string program; ///< path of the process's program; empty when unknown
};

/// The application of a window, by its application entry if found. Pure. Any thread.
[[nodiscard]] RunningApplication applicationOf(ClientWindow const& window, ApplicationIndex const& index);

/// The application id in a user unit's name, such as "app-gnome-firefox\x2desr-1234.scope";
/// nothing for other names: https://systemd.io/DESKTOP_ENVIRONMENTS, "XDG standardization for
/// applications".
[[nodiscard]] std::optional<std::string> applicationIdOfUnit(std::string_view unitName);
/// The applications of running units that a menu shows, without this program. Pure. Any thread.
[[nodiscard]] std::vector<RunningApplication> applicationsOfUnits(std::vector<std::string> const& unitNames, ApplicationIndex const& index);

/// The path of the program that a process runs; empty without permission to read it.
[[nodiscard]] std::string programOfProcess(std::uint32_t pid);

} // namespace zv
