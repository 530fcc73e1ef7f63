#pragma once

#include "platform/desk/Canvas.h"

#include <array>

/// The logo at the left end of a menu bar, painted in six horizontal bands.
namespace zv::RainbowAppleLogo {

/// From the top down.
extern std::array<Color, 6> const bandColors;
/// Fractions of the logo's height, measured downward from its top; band i runs from boundary i to
/// boundary i + 1. The first band takes the leaf and the top of the fruit.
extern std::array<double, 7> const bandBoundaries;

/// The logo's place in a view of that height.
[[nodiscard]] Rect logoRect(double viewHeight);

/// Draws nothing without a canvas, or if it has no logo to clip to.
void drawRainbowLogo(Canvas* canvas, double viewHeight);

} // namespace zv::RainbowAppleLogo
