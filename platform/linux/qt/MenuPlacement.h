#pragma once

#include <QPoint>

namespace zv {

/// From the screens' own pixels to the toolkit's coordinates, which count scaled pixels
/// within each screen.
[[nodiscard]] QPoint toolkitPoint(QPoint pixel);

/// Where a menu belongs that was asked for at a point: beside the panel when the point lies
/// on one, so that the panel stays in sight.
[[nodiscard]] QPoint menuPositionFor(QPoint pixel);

} // namespace zv
