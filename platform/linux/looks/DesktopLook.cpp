#include "platform/linux/looks/DesktopLook.h"

#include "base/Split.h"
#include "platform/linux/icons/XSettings.h"

#include <QDir>

#include <algorithm>
#include <charconv>
#include <iterator>

namespace zv {

namespace {

constexpr int largestScale = 8;
constexpr auto kdeSettings = "/kdeglobals";
constexpr auto lxqtSettings = "/lxqt/lxqt.conf";
constexpr auto gtkSettings = "/gtk-3.0/settings.ini";

std::string firstOf(std::initializer_list<std::string> values)
{
    auto const found = std::ranges::find_if(values, [](auto const& value) { return !value.empty(); });
    return found == values.end() ? std::string() : *found;
}

std::optional<QFont> storedFont(std::string const& text)
{
    QFont font;
    auto const description = QString::fromStdString(text).remove(QLatin1Char('"'));
    return !description.isEmpty() && font.fromString(description) ? std::optional(font) : std::nullopt;
}

/// A colour as "61,174,233", or as "#3daee9".
QColor colorOf(std::string const& text)
{
    auto const parts = split(text, ',');
    int bytes[3] {};
    if (parts.size() < std::size(bytes))
        return QColor(QString::fromStdString(text));
    for (std::size_t i = 0; i < std::size(bytes); ++i)
        std::from_chars(parts[i].data(), parts[i].data() + parts[i].size(), bytes[i]);
    return { std::clamp(bytes[0], 0, 255), std::clamp(bytes[1], 0, 255), std::clamp(bytes[2], 0, 255) };
}

/// A palette's role, and where a desktop's settings have its colour.
struct RoleKey {
    QPalette::ColorRole role;
    char const *group, *key;
};
constexpr RoleKey kdeRoles[] = {
    { QPalette::Window, "Colors:Window", "BackgroundNormal" },
    { QPalette::WindowText, "Colors:Window", "ForegroundNormal" },
    { QPalette::Base, "Colors:View", "BackgroundNormal" },
    { QPalette::AlternateBase, "Colors:View", "BackgroundAlternate" },
    { QPalette::Text, "Colors:View", "ForegroundNormal" },
    { QPalette::PlaceholderText, "Colors:View", "ForegroundInactive" },
    { QPalette::Link, "Colors:View", "ForegroundLink" },
    { QPalette::Button, "Colors:Button", "BackgroundNormal" },
    { QPalette::ButtonText, "Colors:Button", "ForegroundNormal" },
    { QPalette::Highlight, "Colors:Selection", "BackgroundNormal" },
    { QPalette::HighlightedText, "Colors:Selection", "ForegroundNormal" },
    { QPalette::ToolTipBase, "Colors:Tooltip", "BackgroundNormal" },
    { QPalette::ToolTipText, "Colors:Tooltip", "ForegroundNormal" },
};
constexpr RoleKey lxqtRoles[] = {
    { QPalette::Window, "Palette", "window_color" },
    { QPalette::WindowText, "Palette", "window_text_color" },
    { QPalette::Base, "Palette", "base_color" },
    { QPalette::Text, "Palette", "text_color" },
    { QPalette::Highlight, "Palette", "highlight_color" },
    { QPalette::HighlightedText, "Palette", "highlighted_text_color" },
    { QPalette::Link, "Palette", "link_color" },
    { QPalette::ToolTipBase, "Palette", "tooltip_base_color" },
    { QPalette::ToolTipText, "Palette", "tooltip_text_color" },
};

/// The palette of stored colours; nothing without that of windows. Menus look like windows.
template <std::size_t N, class Value> std::optional<ThemeLook> storedLook(RoleKey const (&roles)[N], Value const& value)
{
    auto const color = [&](RoleKey const& each) { return colorOf(value(each.group, each.key)); };
    auto const window = color(roles[0]);
    if (!window.isValid())
        return std::nullopt;
    QPalette palette(window);
    for (auto const& each : roles) {
        if (auto const given = color(each); given.isValid())
            palette.setColor(each.role, given);
    }
    for (auto const role : { QPalette::Text, QPalette::WindowText, QPalette::ButtonText }) {
        auto faint = palette.color(QPalette::WindowText);
        faint.setAlphaF(0.5F);
        palette.setColor(QPalette::Disabled, role, faint);
    }
    ThemeLook look { palette, palette };
    look.menus.setColor(QPalette::Base, palette.color(QPalette::Window));
    look.menus.setColor(QPalette::Text, palette.color(QPalette::WindowText));
    return look;
}

DesktopLook kdeLook(LookSources const& sources)
{
    auto const kdeValue = [&](char const* group, char const* key) { return sources.settings.kdeValue(group, key); };
    DesktopLook look { storedFont(firstOf({ kdeValue("General", "font"), "Noto Sans,10,-1,5,50,0,0,0,0,0" })), storedLook(kdeRoles, kdeValue) };
    auto const scheme = firstOf({ kdeValue("General", "ColorScheme"), "BreezeLight" });
    for (auto const& folder : sources.dataFolders) {
        auto const file = folder + "/color-schemes/" + scheme + ".colors";
        if (!look.theme && scheme.find('/') == std::string::npos)
            look.theme = storedLook(kdeRoles, [&](char const* group, char const* key) { return iniValue(file, group, key); });
    }
    return look;
}

DesktopLook lxqtLook(LookSources const& sources)
{
    auto const lxqtValue = [&](char const* group, char const* key) { return sources.settings.lxqtValue(group, key); };
    return { storedFont(lxqtValue("Qt", "font")), storedLook(lxqtRoles, lxqtValue) };
}

std::vector<std::string> themeFolders(LookSources const& sources)
{
    std::vector<std::string> folders;
    for (auto const& folder : sources.dataFolders)
        folders.push_back(folder + "/themes");
    folders.push_back(QDir::homePath().toStdString() + "/.themes");
    return folders;
}

DesktopLook gtkLook(LookSources const& sources, bool isDark)
{
    auto const& settings = sources.settings;
    auto const published = settings.connection ? publishedSettings(settings.connection) : "";
    auto const gtkValue = [&](char const* key) { return settings.stored(gtkSettings, "Settings", key); };
    // https://www.freedesktop.org/wiki/Specifications/XSettingsRegistry
    auto const theme = firstOf({ xSetting(published, "Net/ThemeName"), gtkValue("gtk-theme-name"), storedInGSettings("gtk-theme") });
    auto const font = firstOf({ xSetting(published, "Gtk/FontName"), gtkValue("gtk-font-name"), storedInGSettings("font-name") });
    auto const wantsDark = gtkValue("gtk-application-prefer-dark-theme");
    return { fontDescribed(font), gtkThemeLook(theme, isDark || wantsDark == "1" || wantsDark == "true", themeFolders(sources)) };
}

bool isStyleWord(QString const& word)
{
    return QStringList { QStringLiteral("Bold"), QStringLiteral("Italic"), QStringLiteral("Oblique"), QStringLiteral("Medium"), QStringLiteral("Light"),
        QStringLiteral("Semi-Bold"), QStringLiteral("Regular"), QStringLiteral("Condensed"), QStringLiteral("Book") }
        .contains(word, Qt::CaseInsensitive);
}

} // namespace

std::string LookSources::settingsFile() const
{
    auto const own = settings.configFolders.empty() ? "" : settings.configFolders.front();
    return own + (settings.isOf("KDE") ? kdeSettings : settings.isOf("LXQt") ? lxqtSettings : gtkSettings);
}

DesktopLook readDesktopLook(LookSources const& sources, bool isDark)
{
    if (sources.settings.isOf("KDE"))
        return kdeLook(sources);
    return sources.settings.isOf("LXQt") ? lxqtLook(sources) : gtkLook(sources, isDark);
}

/// Desktops that publish the dots without the factor, too, have it among the dots.
int scaleBesideDots(std::string_view published)
{
    auto const factor = xSettingNumber(published, "Gdk/WindowScalingFactor").value_or(1);
    return xSettingNumber(published, "Gdk/UnscaledDPI") ? 1 : std::clamp(factor, 1, largestScale);
}

std::optional<QFont> fontDescribed(std::string_view description)
{
    auto words = QString::fromUtf8(description.data(), static_cast<qsizetype>(description.size())).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    bool isNumber = false;
    auto const size = words.isEmpty() ? 0 : words.takeLast().toDouble(&isNumber);
    if (!isNumber || !(size >= 1 && size <= 200))
        return std::nullopt;
    QStringList style;
    while (words.size() > 1 && isStyleWord(words.last()))
        style.prepend(words.takeLast());
    QFont font(words.join(QLatin1Char(' ')).remove(QLatin1Char(',')));
    font.setPointSizeF(size);
    font.setBold(style.contains(QStringLiteral("Bold"), Qt::CaseInsensitive));
    font.setItalic(style.contains(QStringLiteral("Italic"), Qt::CaseInsensitive) || style.contains(QStringLiteral("Oblique"), Qt::CaseInsensitive));
    return font;
}

} // namespace zv
