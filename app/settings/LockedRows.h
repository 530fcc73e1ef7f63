#pragma once

#include "app/settings/SettingsPage.h"

#include <functional>
#include <string_view>
#include <vector>

namespace zv {

/// Disables the rows whose setting an administrator has fixed, each with a note that says so.
void markLockedRows(std::vector<SettingsSection>& sections, std::function<bool(std::string_view key)> const& isLocked);

} // namespace zv
