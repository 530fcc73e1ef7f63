#pragma once

#include "app/settings/SettingsPage.h"
#include "platform/program/Permissions.h"

#include <functional>
#include <string_view>

namespace zv {

/// Each permission with its state, what it is for, and a button that shows where it is
/// given. `openPane` gets the identifier of a page of the system's settings.
[[nodiscard]] SettingsSection permissionSection(Permissions const& permissions, std::function<void(std::string_view)> const& openPane);

} // namespace zv
