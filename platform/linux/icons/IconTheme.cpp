#include "platform/linux/icons/IconTheme.h"

#include "base/Split.h"
#include "platform/linux/files/MountWatch.h"
#include "platform/linux/icons/XSettings.h"
#include "platform/linux/posix/GObjects.h"
#include "platform/linux/posix/WholeFiles.h"
#include "platform/linux/x11/XReply.h"
#include "platform/text/Text.h"

#include <QDir>
#include <QFileInfo>
#include <QIcon>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>
#include <vector>

namespace zv {

namespace {

// https://www.freedesktop.org/wiki/Specifications/XSettingsRegistry
constexpr auto iconThemeSetting = "Net/IconThemeName";
constexpr auto kdeFile = "/kdeglobals";
constexpr auto lxqtFile = "/lxqt/lxqt.conf";
constexpr char const* usualThemes[] = { "Adwaita", "breeze", "Papirus" };
constexpr std::uint32_t longestSettings = 1 << 14; // in units of four bytes

std::optional<xcb_atom_t> atomNamed(xcb_connection_t* connection, std::string const& name)
{
    auto const cookie = xcb_intern_atom(connection, 1, static_cast<std::uint16_t>(name.size()), name.c_str());
    XReply<xcb_intern_atom_reply_t> const reply(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply && reply->atom != XCB_ATOM_NONE ? std::optional(reply->atom) : std::nullopt;
}

/// A theme on a server that is away would hold up every menu.
QStringList localFolders(QStringList folders)
{
    MountWatch mounts;
    folders.removeIf([&](QString const& folder) { return mounts.isRemote(folder.toStdString()); });
    return folders;
}

bool isInstalled(QString const& theme, QStringList const& folders)
{
    if (theme.isEmpty() || theme.contains(QLatin1Char('/')))
        return false;
    return std::any_of(folders.begin(), folders.end(),
        [&](QString const& folder) { return QFileInfo(folder + QLatin1Char('/') + theme + QStringLiteral("/index.theme")).isFile(); });
}

} // namespace

std::uint32_t publisherOfSettings(xcb_connection_t* connection)
{
    auto const selection = atomNamed(connection, "_XSETTINGS_S0");
    if (!selection)
        return XCB_WINDOW_NONE;
    XReply<xcb_get_selection_owner_reply_t> const owner(xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, *selection), nullptr));
    return owner ? owner->owner : xcb_window_t { XCB_WINDOW_NONE };
}

std::string publishedSettings(xcb_connection_t* connection)
{
    auto const publisher = publisherOfSettings(connection);
    auto const property = publisher == XCB_WINDOW_NONE ? std::nullopt : atomNamed(connection, "_XSETTINGS_SETTINGS");
    if (!property)
        return {};
    auto const cookie = xcb_get_property(connection, 0, publisher, *property, *property, 0, longestSettings);
    return std::string(bytesOf(XProperty(xcb_get_property_reply(connection, cookie, nullptr))));
}

std::string storedInGSettings(char const* key)
{
    auto* const source = g_settings_schema_source_get_default();
    GObjectRef<GSettingsSchema> const schema(source ? g_settings_schema_source_lookup(source, "org.gnome.desktop.interface", TRUE) : nullptr);
    if (!schema || !g_settings_schema_has_key(schema.get(), key))
        return {};
    GObjectRef<GSettings> const settings(g_settings_new_full(schema.get(), nullptr, nullptr));
    return taken(g_settings_get_string(settings.get(), key));
}

// Not by GLib, which takes ten times as long for the thousands of lines of an icon theme.
std::string iniValue(std::string const& path, char const* group, char const* key)
{
    auto const header = '[' + std::string(group) + ']';
    auto const text = readTextFile(path).value_or("");
    bool isInGroup = false;
    std::string_view found;
    for (auto const line : split(text, '\n')) {
        auto const equals = std::min(line.find('='), line.size());
        if (line.starts_with('['))
            isInGroup = line.starts_with(header);
        else if (isInGroup && trimmed(line.substr(0, equals)) == key)
            found = trimmed(line.substr(std::min(equals + 1, line.size())));
    }
    return std::string(found);
}

bool DesktopSettings::isOf(char const* desktop) const { return std::ranges::find(desktops, desktop) != desktops.end(); }

std::string DesktopSettings::stored(char const* file, char const* group, char const* key) const
{
    for (auto const& folder : configFolders) {
        if (auto value = iniValue(folder + file, group, key); !value.empty())
            return value;
    }
    return {};
}

std::string DesktopSettings::kdeValue(char const* group, char const* key) const
{
    auto withDefaults = *this;
    if (!configFolders.empty())
        withDefaults.configFolders.insert(withDefaults.configFolders.begin() + 1, configFolders.front() + "/kdedefaults");
    return withDefaults.stored(kdeFile, group, key);
}

std::string DesktopSettings::lxqtValue(char const* group, char const* key) const { return stored(lxqtFile, group, key); }

/// GSettings have a value, their own, on every desktop.
QString desktopIconTheme(DesktopSettings const& settings, QStringList const& folders)
{
    auto const ofKde = settings.kdeValue("Icons", "Theme"), ofLxqt = settings.lxqtValue("General", "icon_theme");
    std::vector<std::string> candidates = { settings.connection ? xSetting(publishedSettings(settings.connection), iconThemeSetting) : "",
        settings.isOf("LXQt") ? ofLxqt : "", ofKde, settings.isOf("KDE") ? "breeze" : "", ofLxqt,
        settings.stored("/gtk-3.0/settings.ini", "Settings", "gtk-icon-theme-name"), storedInGSettings("icon-theme") };
    candidates.insert(candidates.end(), std::begin(usualThemes), std::end(usualThemes));
    for (auto const& candidate : candidates) {
        if (auto const theme = QString::fromStdString(candidate); isInstalled(theme, folders))
            return theme;
    }
    return {};
}

QString iconThemeFor(QString const& theme, QStringList const& folders, bool isOnDark)
{
    for (auto const& dark : { theme + QStringLiteral("-Dark"), theme + QStringLiteral("-dark") }) {
        if (isOnDark && isInstalled(dark, folders))
            return dark;
    }
    return theme;
}

void adoptDesktopIconTheme(DesktopSettings const& settings, IconThemeOf preferred, bool isOnDark)
{
    auto const folders = localFolders(QIcon::themeSearchPaths());
    if (folders != QIcon::themeSearchPaths())
        QIcon::setThemeSearchPaths(folders);
    auto const current = QIcon::themeName();
    if (preferred == IconThemeOf::toolkit && current != QLatin1String("hicolor") && isInstalled(current, folders))
        return;
    auto const theme = iconThemeFor(desktopIconTheme(settings, folders), folders, isOnDark);
    if (!theme.isEmpty() && theme != current)
        QIcon::setThemeName(theme);
}

} // namespace zv
