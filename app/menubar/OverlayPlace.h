#pragma once

#include "platform/desk/Geometry.h"

#include <vector>

namespace zv {

/// The overlay's frame on a menu bar, and the point at which its menu opens.
struct OverlayPlace {
    static constexpr double width = 44;
    /// Points beyond a lying bar's upper edge: lets a click on the screen's edge count.
    static constexpr double extraHeight = 1;
    /// The menu's distance from the bar.
    static constexpr double menuGap = 6;

    Rect frame;
    Point menu;
    friend bool operator==(OverlayPlace const&, OverlayPlace const&) = default;

    /// At the bar's left end, or at the upper one where the bar stands at a side of its screen. The menu opens away from
    /// that edge; what would reach beyond the screen, the system moves.
    [[nodiscard]] static OverlayPlace on(Rect const& bar, std::vector<Rect> const& screens);
};

} // namespace zv
