#pragma once

#include <QPainterPath>
#include <QString>

#include <vector>

namespace zv {

/// Our emblem, a laurel wreath, in a box of 16 by 16 with its origin at the top left.
namespace laurel {

inline constexpr double boxSize = 16;

struct Leaf {
    QPointF base;
    QPointF tip;
    QPointF controls[4]; ///< base to tip, then back
};

/// Leaves from the bottom up, the right branch's first.
[[nodiscard]] std::vector<Leaf> leaves();
[[nodiscard]] QPainterPath path();
/// The same leaves as the "d" of an SVG path.
[[nodiscard]] QString svgPathData();

/// The whole text of the files in packaging/linux/icons.
[[nodiscard]] QString symbolicSvg();
[[nodiscard]] QString applicationSvg();

} // namespace laurel

} // namespace zv
