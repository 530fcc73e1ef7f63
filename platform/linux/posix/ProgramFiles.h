#pragma once

#include "platform/linux/posix/XdgDirectories.h"

#include <string>

/// Where the program keeps what is the user's.
namespace zv {

[[nodiscard]] inline std::string settingsFile(XdgDirectories const& directories) { return directories.config + "/zanthe-vell/org.zanthevell.ZantheVell.plist"; }
[[nodiscard]] inline std::string itemsFolder(XdgDirectories const& directories) { return directories.data + "/zanthe-vell/Zanthe Vell Items"; }
[[nodiscard]] inline std::string backupsFolder(XdgDirectories const& directories) { return directories.data + "/zanthe-vell/Backups"; }
/// The applications that were started from a menu.
[[nodiscard]] inline std::string launchLogFile(XdgDirectories const& directories) { return directories.state + "/zanthe-vell/launches"; }

} // namespace zv
