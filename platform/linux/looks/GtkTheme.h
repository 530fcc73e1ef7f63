#pragma once

#include "platform/linux/menu/MenuStyle.h"

#include <QPalette>

#include <optional>
#include <string>
#include <vector>

namespace zv {

/// The look that a theme gives to windows and menus.
struct ThemeLook {
    QPalette windows;
    QPalette menus;
    std::optional<MenuRows> rows {}; ///< nothing leaves them to the toolkit's style
};

/// The look of a theme for GTK 3, by the name that a desktop publishes, from the folders "themes"; those that the
/// toolkit brings along are known. Nothing for a theme that is not there, or names no colours.
[[nodiscard]] std::optional<ThemeLook> gtkThemeLook(std::string const& name, bool isDark, std::vector<std::string> const& folders);

} // namespace zv
