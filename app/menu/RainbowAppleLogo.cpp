#include "app/menu/RainbowAppleLogo.h"

#include <cstddef>

namespace zv::RainbowAppleLogo {

namespace {

constexpr double kLogoX = 21.0;
constexpr double kLogoWidth = 12.5;
constexpr double kLogoHeight = 15.5;
constexpr double kOpticalLift = 1.25;
/// The bands overlap the logo beneath, so that none of it shines through at the rim.
constexpr double kOverlap = 0.35;

constexpr Color fromBytes(int red, int green, int blue) { return { red / 255.0, green / 255.0, blue / 255.0, 1.0 }; }

/// Both edges are measured from the logo's top, so that neighbours share theirs exactly.
Rect bandRect(Rect const& logo, std::size_t band)
{
    double const top = logo.maxY() - RainbowAppleLogo::bandBoundaries[band] * logo.height;
    double const bottom = logo.maxY() - RainbowAppleLogo::bandBoundaries[band + 1] * logo.height;
    return { logo.x, bottom, logo.width, top - bottom };
}

} // namespace

std::array<Color, 6> const bandColors {
    fromBytes(94, 189, 62), // green
    fromBytes(255, 185, 0), // yellow
    fromBytes(247, 130, 0), // orange
    fromBytes(226, 56, 56), // red
    fromBytes(151, 57, 153), // purple
    fromBytes(0, 156, 223), // blue
};

// The rows 0, 189.25, 256, 322.75, 389.5, 456.3 and 523 of a drawing 523 units high.
std::array<double, 7> const bandBoundaries {
    0.0,
    0.3618546845124283,
    0.4894837476099427,
    0.6171128107074569,
    0.7447418738049714,
    0.8724665391969408,
    1.0,
};

Rect logoRect(double viewHeight)
{
    Rect const logo { kLogoX, (viewHeight - kLogoHeight) * 0.5 + kOpticalLift, kLogoWidth, kLogoHeight };
    return logo.grownBy(kOverlap);
}

void drawRainbowLogo(Canvas* canvas, double viewHeight)
{
    if (!canvas)
        return;
    auto const mask = canvas->logoMask();
    if (!mask)
        return;
    auto const logo = logoRect(viewHeight);
    if (logo.isEmpty())
        return;

    canvas->saveState();
    canvas->clipToMask(*mask, logo);
    for (std::size_t band = 0; band < bandColors.size(); ++band) {
        canvas->setFillColor(bandColors[band]);
        canvas->fill(bandRect(logo, band));
    }
    canvas->restoreState();
}

} // namespace zv::RainbowAppleLogo
