#pragma once

#include <QStringList>

#include <string>

struct xcb_connection_t;

namespace zv {

/// The value of a key in a file of "key = value" lines, such as gtk-3.0/settings.ini.
[[nodiscard]] std::string iniValue(std::string const& path, char const* group, char const* key);

/// The theme that the desktop publishes (on the X server, where there is one) or has stored, else
/// a usual one; empty when none is installed in the folders. `configFolder` is the user's.
[[nodiscard]] QString desktopIconTheme(xcb_connection_t* connection, QStringList const& folders, std::string const& configFolder);

/// Makes Qt use the desktop's icon theme where its platform plugin knows none: called once, after
/// the application was made.
void adoptDesktopIconTheme(std::string const& configFolder);

} // namespace zv
