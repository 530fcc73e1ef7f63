#pragma once

#include "platform/desk/Geometry.h"

#include <QPoint>

#include <optional>

namespace zv {

/// From the core's coordinates, in points from the primary screen's lower left corner, to the
/// screens' own pixels. Nothing without a screen.
[[nodiscard]] std::optional<QPoint> pixelOf(Point point);

/// From the screens' own pixels to the toolkit's coordinates, which count scaled pixels
/// within each screen.
[[nodiscard]] QPoint toolkitPoint(QPoint pixel);

/// Where a menu belongs that was asked for at a point: beside the panel when the point lies
/// on one, so that the panel stays in sight.
[[nodiscard]] QPoint menuPositionFor(QPoint pixel);

} // namespace zv
