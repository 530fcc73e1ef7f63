#pragma once

#include "platform/program/Installation.h"
#include "platform/program/LoginService.h"
#include "platform/program/Permissions.h"

#include <optional>
#include <string>
#include <vector>

namespace zv {

/// What only the running program knows: the system counts a command that a terminal started
/// as the terminal's own doing, and answers it what the terminal may do.
struct MacProgramFindings {
    PermissionState automation = PermissionState::notAsked;
    PermissionState accessibility = PermissionState::notAsked;
    std::vector<std::string> refusedShortcuts; ///< glyph texts, such as "⌥⌘E"
};

/// What was found on a Mac. The front end looks; what it means for the user is said elsewhere.
struct MacFindings {
    RelocationSource place = RelocationSource::none;
    bool isQuarantined = false; ///< the system still takes it for a download
    LoginService::Status openAtLogin = LoginService::Status::notRegistered;
    bool hasUpdateFramework = false;
    bool hasMenuBarFunctions = false; ///< those that tell whether a menu bar is hidden
    std::optional<MacProgramFindings> running {}; ///< nothing when it does not run
};

} // namespace zv
