#include "app/menu/TextColor.h"

#include "platform/text/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <string>

namespace zv {

namespace {

constexpr double leastContrast = 4.5;
constexpr int steps = 32; // from a colour to black or white

struct NamedColor {
    std::string_view name;
    Rgb color;
};

/// The names that scripts use, of https://www.w3.org/TR/css-color-4, "Named Colors".
constexpr NamedColor names[] = {
    { "aqua", 0x00ffff },
    { "black", 0x000000 },
    { "blue", 0x0000ff },
    { "brown", 0xa52a2a },
    { "cyan", 0x00ffff },
    { "darkgray", 0xa9a9a9 },
    { "fuchsia", 0xff00ff },
    { "gold", 0xffd700 },
    { "gray", 0x808080 },
    { "green", 0x008000 },
    { "grey", 0x808080 },
    { "indigo", 0x4b0082 },
    { "lightgray", 0xd3d3d3 },
    { "lime", 0x00ff00 },
    { "magenta", 0xff00ff },
    { "maroon", 0x800000 },
    { "navy", 0x000080 },
    { "olive", 0x808000 },
    { "orange", 0xffa500 },
    { "pink", 0xffc0cb },
    { "purple", 0x800080 },
    { "red", 0xff0000 },
    { "silver", 0xc0c0c0 },
    { "teal", 0x008080 },
    { "violet", 0xee82ee },
    { "white", 0xffffff },
    { "yellow", 0xffff00 },
};

std::optional<Rgb> parseDigits(std::string_view digits)
{
    std::string six;
    for (char const c : digits.substr(0, digits.size() == 3 ? 3 : 6))
        six.append(digits.size() == 3 ? 2 : 1, c);
    bool const isColor = digits.size() == 3 || digits.size() == 6 || digits.size() == 8;
    Rgb color = 0;
    auto const [end, error] = std::from_chars(six.data(), six.data() + six.size(), color, 16);
    return isColor && error == std::errc() && end == six.data() + six.size() ? std::optional(color) : std::nullopt;
}

std::optional<Rgb> parseOne(std::string_view text)
{
    if (text.starts_with('#'))
        return parseDigits(text.substr(1));
    auto const* named = std::find_if(std::begin(names), std::end(names), [text](auto const& each) { return each.name == text; });
    return named == std::end(names) ? std::nullopt : std::optional(named->color);
}

std::array<double, 3> partsOf(Rgb color) { return { double((color >> 16) & 0xff), double((color >> 8) & 0xff), double(color & 0xff) }; }

/// https://www.w3.org/TR/WCAG21/#dfn-relative-luminance
double luminanceOf(Rgb color)
{
    auto const linear = [](double part) {
        auto const share = part / 255;
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    auto const [red, green, blue] = partsOf(color);
    return 0.2126 * linear(red) + 0.7152 * linear(green) + 0.0722 * linear(blue);
}

Rgb mixed(Rgb from, Rgb to, double share)
{
    auto const a = partsOf(from);
    auto const b = partsOf(to);
    Rgb result = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        result = (result << 8) | static_cast<Rgb>(std::lround(a.at(i) + (b.at(i) - a.at(i)) * share));
    return result;
}

} // namespace

std::optional<TextColor> parseTextColor(std::string_view text)
{
    auto const lower = lowerCased(withValidUtf8(text));
    auto const comma = std::min(lower.find(','), lower.size());
    auto const onLight = parseOne(trimmed(std::string_view(lower).substr(0, comma)));
    auto const onDark = comma == lower.size() ? onLight : parseOne(trimmed(std::string_view(lower).substr(comma + 1)));
    return onLight && onDark ? std::optional(TextColor { *onLight, *onDark }) : std::nullopt;
}

double contrastOf(Rgb a, Rgb b)
{
    auto const [darker, lighter] = std::minmax({ luminanceOf(a), luminanceOf(b) });
    return (lighter + 0.05) / (darker + 0.05);
}

Rgb readableOn(Rgb ground, TextColor const& color)
{
    bool const isDark = contrastOf(ground, 0xffffff) > contrastOf(ground, 0x000000);
    auto const wanted = isDark ? color.onDark : color.onLight;
    auto shown = wanted;
    for (int step = 1; contrastOf(shown, ground) < leastContrast && step <= steps; ++step)
        shown = mixed(wanted, isDark ? 0xffffff : 0x000000, double(step) / steps);
    return shown;
}

} // namespace zv
