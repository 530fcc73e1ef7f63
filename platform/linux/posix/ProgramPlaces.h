#pragma once

#include "platform/linux/posix/XdgDirectories.h"

namespace zv {

/// Where the program keeps what is the user's, and where it finds what is its own. All are
/// absolute paths; none need exist.
struct ProgramPlaces {
    XdgDirectories user;
    std::string settingsFile;
    std::string itemsFolder;
    std::string backupsFolder;
    std::string launchLog; ///< of the applications that were started from a menu
    std::string downloadsFolder;
    /// Of ZANTHE_VELL_RESOURCES, for those who try out texts, menus or feeds; empty: none.
    std::string givenResources;
    /// Beside the program where it was built, and "share/zanthe-vell" of where it is installed.
    std::vector<std::string> ownResources;

    [[nodiscard]] static ProgramPlaces of(Environment const& environment);
    /// In the order in which they are looked through.
    [[nodiscard]] std::vector<std::string> resourceFolders() const;
};

} // namespace zv
