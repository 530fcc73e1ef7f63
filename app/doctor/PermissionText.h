#pragma once

#include "platform/program/Permissions.h"

#include <string>

namespace zv {

struct PermissionText {
    std::string name; ///< "Automation"
    std::string state; ///< "not allowed"
    std::string sentence; ///< "It is not allowed."
    std::string reason; ///< its purpose, a sentence
};
[[nodiscard]] PermissionText permissionText(Permission permission, PermissionState state);

} // namespace zv
