#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// The text of a setting among those that a desktop publishes to X11 programs (the bytes of
/// _XSETTINGS_SETTINGS); empty when it is not among them, or they are damaged.
[[nodiscard]] std::string xSetting(std::string_view settings, std::string_view name);
/// The value of a key in a file of "key = value" lines, such as gtk-3.0/settings.ini.
[[nodiscard]] std::string iniValue(std::string const& path, char const* group, char const* key);

/// Makes Qt use the desktop's icon theme where its platform plugin knows of none: the one
/// that the desktop publishes or has stored, else one that is installed. Call it once,
/// after the application was made.
void adoptDesktopIconTheme();

} // namespace zv
