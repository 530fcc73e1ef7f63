#pragma once

#include "app/settings/SettingsPage.h"
#include "platform/program/Permissions.h"

#include <functional>
#include <string_view>

namespace zv {

/// A row for each permission: its state, its purpose, and a button that shows where to grant it.
/// `openPane` gets the identifier of a page of the system's settings.
[[nodiscard]] SettingsSection permissionSection(Permissions const& permissions, std::function<void(std::string_view)> const& openPane);

} // namespace zv
