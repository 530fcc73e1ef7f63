#pragma once

#include <QStringList>

#include <cstdint>
#include <string>
#include <vector>

struct xcb_connection_t;

namespace zv {

/// The value of a key in a file of "key = value" lines, such as gtk-3.0/settings.ini.
[[nodiscard]] std::string iniValue(std::string const& path, char const* group, char const* key);

/// The places of a desktop's settings.
struct DesktopSettings {
    xcb_connection_t* connection = nullptr; ///< to the X server that publishes settings; null without one
    std::vector<std::string> configFolders; ///< the user's own first
    std::vector<std::string> desktops; ///< as the session names itself: "ubuntu", "GNOME"

    [[nodiscard]] bool isOf(char const* desktop) const;
    /// The value in the first folder whose file has one.
    [[nodiscard]] std::string stored(char const* file, char const* group, char const* key) const;
    /// KDE's own, whose session keeps what its look brings along in a folder of defaults.
    [[nodiscard]] std::string kdeValue(char const* group, char const* key) const;
    /// LXQt's own.
    [[nodiscard]] std::string lxqtValue(char const* group, char const* key) const;
};

/// The theme that the desktop publishes or has stored, else a usual one; empty when none is installed in the folders.
[[nodiscard]] QString desktopIconTheme(DesktopSettings const& settings, QStringList const& folders);

/// Whose theme counts where both name one that is installed.
enum class IconThemeOf { desktop, toolkit };
/// The variant of a theme for dark menus, where the folders have one and that is asked for; else the theme.
[[nodiscard]] QString iconThemeFor(QString const& theme, QStringList const& folders, bool isOnDark);
/// Makes Qt use the icon theme. Called after the application was made.
void adoptDesktopIconTheme(DesktopSettings const& settings, IconThemeOf preferred, bool isOnDark);

/// The settings that the desktop publishes to X11 programs, for xSetting(); empty where nothing does.
[[nodiscard]] std::string publishedSettings(xcb_connection_t* connection);
/// The window that they are a property of; none where nothing publishes any.
[[nodiscard]] std::uint32_t publisherOfSettings(xcb_connection_t* connection);
/// A text of the desktop's interface settings; empty without it.
[[nodiscard]] std::string storedInGSettings(char const* key);

} // namespace zv
