#include "platform/linux/settings/FaintText.h"

#include <algorithm>
#include <cmath>

namespace zv {

namespace {

constexpr double leastContrast = 6.5; // styles draw the pages of tabs lighter than the window

/// WCAG 2.1, relative luminance.
double luminanceOf(QColor const& color)
{
    auto const linear = [](double part) { return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

QColor mixed(QColor const& text, QColor const& background, float share)
{
    auto const part = [&](float a, float b) { return a * share + b * (1 - share); };
    return QColor::fromRgbF(part(text.redF(), background.redF()), part(text.greenF(), background.greenF()), part(text.blueF(), background.blueF()));
}

} // namespace

double contrastOf(QColor const& a, QColor const& b)
{
    auto const one = luminanceOf(a) + 0.05;
    auto const other = luminanceOf(b) + 0.05;
    return std::max(one, other) / std::min(one, other);
}

QColor faintText(QPalette const& palette)
{
    auto const text = palette.color(QPalette::WindowText);
    auto const window = palette.color(QPalette::Window);
    auto const base = palette.color(QPalette::Base);
    for (float share = 0.55F; share < 1; share += 0.05F) {
        auto const color = mixed(text, window, share);
        if (std::min(contrastOf(color, window), contrastOf(color, base)) >= leastContrast)
            return color;
    }
    return text;
}

} // namespace zv
