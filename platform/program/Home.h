#pragma once

#include "base/Url.h"
#include "platform/lists/InstalledApplications.h"
#include "platform/program/DesktopExtension.h"
#include "platform/program/DesktopKey.h"
#include "platform/program/Installation.h"
#include "platform/program/LoginService.h"
#include "platform/program/Permissions.h"
#include "platform/program/UpdateEngine.h"

#include <functional>
#include <string>
#include <vector>

namespace zv {

/// The places of the program and of its files, all absolute.
struct Places {
    Url bundle; ///< of the started program
    Environment environment; ///< at its start
    std::string home; ///< the user's home folder
    std::vector<Url> userFolders {}; ///< the desktop, documents, downloads and pictures, wherever the user has them
    Url itemsFolder;
    Url backupsFolder;
    Url chosenFile; ///< what was chosen last; its folder is for the user alone
};

/// The seams of the program's own installation and updates.
struct Home {
    Installation& installation;
    LoginService& loginService;
    UpdateEngineFactory makeUpdateEngine;
    InstalledApplications installedApplications; ///< for the palette of the settings; empty where it names none
    Permissions const* permissions; ///< null where the system asks for none
    DesktopExtension* extension; ///< null where no desktop has one
    DesktopKey* desktopKey; ///< likewise
    /// Lets other programs have files added from here on; empty where they always can.
    std::function<void()> provideServices;
    std::function<std::string()> diagnostics; ///< for a bug report, without personal paths
};

} // namespace zv
