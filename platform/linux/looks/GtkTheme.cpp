#include "platform/linux/looks/GtkTheme.h"

#include "platform/linux/looks/ThemeSheet.h"
#include "platform/linux/posix/GObjects.h"
#include "platform/linux/posix/WholeFiles.h"

#include <algorithm>

namespace zv {

namespace {

using Selectors = std::vector<std::string>;

constexpr std::size_t largestSheet = std::size_t { 2 } << 20;
constexpr auto resourceAddress = "resource://";

Selectors const& menuSelectors()
{
    static Selectors const selectors { "menu", ".menu" };
    return selectors;
}

/// The selectors of an entry, in one state (":hover").
Selectors entrySelectors(std::string const& state) { return { "menuitem" + state, "menu menuitem" + state, ".menu menuitem" + state }; }

// The colours of the themes within the toolkit, as its own style sheets name them.
struct OwnTheme {
    char const *name, *background, *text, *base, *selection, *selectedText, *menu;
};
constexpr OwnTheme ownThemes[] = {
    { "Adwaita", "#f6f5f4", "#2e3436", "#ffffff", "#3584e4", "#ffffff", "#ffffff" },
    { "Adwaita-dark", "#353535", "#eeeeec", "#2d2d2d", "#15539e", "#ffffff", "#2f2f2f" },
    { "HighContrast", "#fdfdfc", "#272c2e", "#ffffff", "#0f3b71", "#ffffff", "#ffffff" },
    { "HighContrastInverse", "#000000", "#ffffff", "#000000", "#0f3b71", "#ffffff", "#000000" },
};

std::string ownSheet(OwnTheme const& theme)
{
    auto const define = [](std::string const& name, char const* color) { return "@define-color theme_" + name + "_color " + color + ";"; };
    return define("bg", theme.background) + define("fg", theme.text) + define("base", theme.base) + define("text", theme.text)
        + define("selected_bg", theme.selection) + define("selected_fg", theme.selectedText) + "menu{background-color:" + theme.menu
        + "}menuitem{min-height:16px;padding:4px 6px}menuitem:hover{background-color:@theme_selected_bg_color;color:@theme_selected_fg_color}";
}

/// A text among the resources that a theme keeps in one file.
std::string textInResources(std::string const& file, std::string const& path)
{
    auto* const resources = g_resource_load(file.c_str(), nullptr);
    if (!resources)
        return {};
    auto* const bytes = g_resource_lookup_data(resources, path.c_str(), G_RESOURCE_LOOKUP_FLAGS_NONE, nullptr);
    gsize size = 0;
    auto const* const data = bytes ? static_cast<char const*>(g_bytes_get_data(bytes, &size)) : nullptr;
    std::string text = data ? std::string(data, size) : "";
    if (bytes)
        g_bytes_unref(bytes);
    g_resource_unref(resources);
    return text;
}

/// The sheet in a theme's folder, with what it imports from there.
ThemeSheet sheetIn(std::string const& folder, std::string const& name)
{
    auto const import = [&](std::string const& address) {
        if (address.starts_with(resourceAddress))
            return textInResources(folder + "/gtk.gresource", address.substr(std::string_view(resourceAddress).size()));
        return readTextFile(folder + "/" + address, largestSheet).value_or("");
    };
    return ThemeSheet(import(name), import);
}

/// The theme's sheet; nothing where no folder has it.
std::optional<ThemeSheet> sheetOf(std::string const& theme, bool isDark, std::vector<std::string> const& folders)
{
    auto const variant = isDark && !theme.ends_with("-dark") ? theme + "-dark" : theme;
    for (auto const& name : { variant, theme }) {
        for (auto const& each : folders) {
            auto const folder = each + "/" + name + "/gtk-3.0";
            bool const hasVariant = isDark && readTextFile(folder + "/gtk-dark.css", largestSheet);
            auto sheet = sheetIn(folder, hasVariant ? "gtk-dark.css" : "gtk.css");
            if (sheet.color("theme_bg_color"))
                return sheet;
        }
        auto const own = std::ranges::find(ownThemes, name, &OwnTheme::name);
        if (own != std::end(ownThemes))
            return ThemeSheet(ownSheet(*own), {});
    }
    return std::nullopt;
}

QColor over(QColor const& color, QColor const& background)
{
    auto const share = color.alphaF();
    auto const mix = [&](float a, float b) { return a * share + b * (1 - share); };
    return QColor::fromRgbF(mix(color.redF(), background.redF()), mix(color.greenF(), background.greenF()), mix(color.blueF(), background.blueF()));
}

QColor fainter(QColor const& text, QColor const& background)
{
    auto faint = text;
    faint.setAlphaF(0.5F);
    return over(faint, background);
}

/// The colours that the sheet names, each with the one that stands for it where it is missing.
QPalette windowPalette(ThemeSheet const& sheet)
{
    auto const named = [&](char const* name, QColor const& otherwise) { return sheet.color(name).value_or(otherwise); };
    auto const window = named("theme_bg_color", Qt::white);
    auto const windowText = named("theme_fg_color", Qt::black);
    auto const base = named("theme_base_color", window);
    auto const text = named("theme_text_color", windowText);
    QPalette palette(windowText, window, window.lighter(150), window.darker(150), window.darker(120), text, base);
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::Highlight, named("theme_selected_bg_color", palette.color(QPalette::Highlight)));
    palette.setColor(QPalette::HighlightedText, named("theme_selected_fg_color", Qt::white));
    palette.setColor(QPalette::AlternateBase, fainter(base, window));
    palette.setColor(QPalette::PlaceholderText, fainter(text, base));
    palette.setColor(QPalette::ToolTipBase, named("theme_tooltip_bg_color", window));
    palette.setColor(QPalette::ToolTipText, named("theme_tooltip_fg_color", windowText));
    palette.setColor(QPalette::Link, named("link_color", window.lightnessF() < 0.5F ? QColor(0x78, 0xae, 0xed) : QColor(0x1b, 0x6a, 0xcb)));
    for (auto const role : { QPalette::Text, QPalette::WindowText, QPalette::ButtonText })
        palette.setColor(QPalette::Disabled, role, fainter(windowText, window));
    return palette;
}

/// The property's colour in the rules for menus, a picture's before a plain one.
QColor backgroundOf(ThemeSheet const& sheet, Selectors const& selectors, QColor const& otherwise)
{
    for (auto const* property : { "background-image", "background-color", "background" }) {
        if (auto const color = sheet.color(selectors, property))
            return over(*color, otherwise);
    }
    return otherwise;
}

QPalette menuPalette(ThemeSheet const& sheet, QPalette palette)
{
    auto const background = backgroundOf(sheet, menuSelectors(), palette.color(QPalette::Window));
    auto const text = sheet.color(entrySelectors(""), "color").value_or(sheet.color(menuSelectors(), "color").value_or(palette.color(QPalette::WindowText)));
    auto const selection = backgroundOf(sheet, entrySelectors(":hover"), palette.color(QPalette::Highlight));
    for (auto const role : { QPalette::Window, QPalette::Base, QPalette::Button })
        palette.setColor(role, background);
    for (auto const role : { QPalette::Text, QPalette::WindowText, QPalette::ButtonText }) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, fainter(text, background));
    }
    palette.setColor(QPalette::Highlight, selection);
    palette.setColor(QPalette::HighlightedText, sheet.color(entrySelectors(":hover"), "color").value_or(palette.color(QPalette::HighlightedText)));
    return palette;
}

int firstOr(std::vector<int> const& lengths, int otherwise) { return lengths.empty() ? otherwise : lengths.front(); }

} // namespace

std::optional<ThemeLook> gtkThemeLook(std::string const& name, bool isDark, std::vector<std::string> const& folders)
{
    if (name.empty() || name.find('/') != std::string::npos)
        return std::nullopt;
    auto const sheet = sheetOf(name, isDark, folders);
    if (!sheet)
        return std::nullopt;
    auto const windows = windowPalette(*sheet);
    MenuRows const rows { .padding = firstOr(sheet->lengths(entrySelectors(""), "padding"), 4),
        .leastHeight = firstOr(sheet->lengths(entrySelectors(""), "min-height"), 16) };
    return ThemeLook { windows, menuPalette(*sheet, windows), rows };
}

} // namespace zv
