#pragma once

#include "platform/program/Installation.h"
#include "platform/program/LoginService.h"
#include "platform/program/Permissions.h"

#include <optional>
#include <string>
#include <vector>

namespace zv {

/// Findings of the running program alone: the system counts a command started in a terminal
/// as the terminal's own doing, and answers it by the terminal's permissions.
struct MacProgramFindings {
    PermissionState automation = PermissionState::notAsked;
    PermissionState accessibility = PermissionState::notAsked;
    std::vector<std::string> refusedShortcuts; ///< glyph texts, such as "⌥⌘E"
};

/// The findings on a Mac. The front end looks; their meaning for the user is said elsewhere.
struct MacFindings {
    RelocationSource place = RelocationSource::none;
    bool isQuarantined = false; ///< still taken for a download
    LoginService::Status openAtLogin = LoginService::Status::notRegistered;
    bool hasUpdateFramework = false;
    bool hasMenuBarFunctions = false; ///< that tell whether a menu bar is hidden
    std::optional<MacProgramFindings> running {}; ///< absent when the program does not run
};

} // namespace zv
