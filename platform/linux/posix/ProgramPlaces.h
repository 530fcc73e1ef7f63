#pragma once

#include "platform/linux/posix/XdgDirectories.h"

namespace zv {

/// The places of the user's data and of the program's own files. All are absolute paths; none
/// need exist.
struct ProgramPlaces {
    XdgDirectories user;
    std::string settingsFile;
    std::vector<std::string> givenSettings; ///< files that administrators may make for all users, in order of preference
    std::string itemsFolder;
    std::string backupsFolder;
    std::string chosenFile; ///< what was chosen last
    std::string launchLog; ///< log of the applications started from a menu
    std::string downloadsFolder;
    std::string instanceLock; ///< the file that the running program holds locked
    /// ZANTHE_VELL_RESOURCES, for trials of texts, menus or feeds; empty when unset.
    std::string givenResources;
    /// The resources beside a built program, and "share/zanthe-vell" of the installed one.
    std::vector<std::string> ownResources;
    std::vector<std::string> catalogues; ///< folders of translations, likewise

    [[nodiscard]] static ProgramPlaces of(Environment const& environment);
    /// The resource folders in search order.
    [[nodiscard]] std::vector<std::string> resourceFolders() const;
};

} // namespace zv
