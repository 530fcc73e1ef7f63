#pragma once

#include "base/Url.h"
#include "platform/lists/InstalledApplications.h"
#include "platform/program/Installation.h"
#include "platform/program/LoginService.h"
#include "platform/program/Permissions.h"
#include "platform/program/UpdateEngine.h"

#include <functional>
#include <string>

namespace zv {

/// Where the program and what it keeps lie. All absolute.
struct Places {
    Url bundle; ///< what was started
    Environment environment; ///< that it was started with
    std::string home; ///< the user's home folder
    Url itemsFolder;
    Url backupsFolder;
};

/// The program as something that is installed.
struct Home {
    Installation& installation;
    LoginService& loginService;
    UpdateEngineFactory makeUpdateEngine;
    InstalledApplications installedApplications; ///< for the palette of the settings; empty where it names none
    Permissions const* permissions; ///< null where the system asks for none
    /// From here on other programs may have files added; empty where they always could, and
    /// were not listened to.
    std::function<void()> provideServices;
    std::function<std::string()> diagnostics; ///< for a bug report, without personal paths
};

} // namespace zv
