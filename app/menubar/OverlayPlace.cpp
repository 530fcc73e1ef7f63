#include "app/menubar/OverlayPlace.h"

#include <algorithm>
#include <cmath>

namespace zv {

namespace {

Point centreOf(Rect const& rect) { return { rect.x + rect.width / 2, rect.y + rect.height / 2 }; }

/// The screen that the bar is on, or slides onto.
Rect screenOf(Rect const& bar, std::vector<Rect> const& screens)
{
    auto const distance = [centre = centreOf(bar)](Rect const& screen) {
        return std::hypot(
            std::max({ screen.minX() - centre.x, 0.0, centre.x - screen.maxX() }), std::max({ screen.minY() - centre.y, 0.0, centre.y - screen.maxY() }));
    };
    auto const nearest = std::min_element(screens.begin(), screens.end(), [&](auto const& a, auto const& b) { return distance(a) < distance(b); });
    return nearest == screens.end() ? bar : *nearest;
}

} // namespace

OverlayPlace OverlayPlace::on(Rect const& bar, std::vector<Rect> const& screens)
{
    auto const middle = centreOf(screenOf(bar, screens));
    bool const stands = bar.height > bar.width;
    if (stands) {
        bool const isLeft = centreOf(bar).x <= middle.x;
        return { { bar.x, bar.maxY() - width, bar.width, width }, { isLeft ? bar.maxX() + menuGap : bar.minX() - menuGap, bar.maxY() } };
    }
    bool const isBelow = centreOf(bar).y < middle.y;
    Rect const frame { bar.x, bar.y, width, bar.height + extraHeight };
    return { frame, { frame.minX(), isBelow ? bar.maxY() + menuGap : frame.minY() - menuGap } };
}

} // namespace zv
