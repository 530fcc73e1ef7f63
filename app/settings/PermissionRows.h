#pragma once

#include "app/settings/SettingsPage.h"
#include "platform/Permissions.h"

#include <functional>
#include <string>
#include <string_view>

namespace zv {

struct PermissionText {
    std::string name; ///< "Automation"
    std::string state; ///< "not allowed"
    std::string reason; ///< what it is for, a sentence
};
[[nodiscard]] PermissionText permissionText(Permission permission, PermissionState state);

/// Each permission with its state, what it is for, and a button that shows where it is
/// given. `openPane` gets the identifier of a page of the system's settings.
[[nodiscard]] SettingsSection permissionSection(Permissions const& permissions, std::function<void(std::string_view)> const& openPane);

} // namespace zv
