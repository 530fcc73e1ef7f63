#pragma once

#include <QStringList>

#include <cstdint>
#include <string>

struct xcb_connection_t;

namespace zv {

/// The value of a key in a file of "key = value" lines, such as gtk-3.0/settings.ini.
[[nodiscard]] std::string iniValue(std::string const& path, char const* group, char const* key);

/// The theme that the desktop publishes (on the X server, where there is one) or has stored, else
/// a usual one; empty when none is installed in the folders. `configFolder` is the user's.
[[nodiscard]] QString desktopIconTheme(xcb_connection_t* connection, QStringList const& folders, std::string const& configFolder);

/// Whose theme counts where both name one that is installed.
enum class IconThemeOf { desktop, toolkit };
/// The variant of a theme for dark menus, where the folders have one and that is asked for; else the theme.
[[nodiscard]] QString iconThemeFor(QString const& theme, QStringList const& folders, bool isOnDark);
/// Makes Qt use the icon theme. Called after the application was made.
void adoptDesktopIconTheme(std::string const& configFolder, xcb_connection_t* connection, IconThemeOf preferred, bool isOnDark);

/// The settings that the desktop publishes to X11 programs, for xSetting(); empty where nothing does.
[[nodiscard]] std::string publishedSettings(xcb_connection_t* connection);
/// The window that they are a property of; none where nothing publishes any.
[[nodiscard]] std::uint32_t publisherOfSettings(xcb_connection_t* connection);
/// A text of the desktop's interface settings; empty without it.
[[nodiscard]] std::string storedInGSettings(char const* key);

} // namespace zv
