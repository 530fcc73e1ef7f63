#pragma once

#include "platform/desk/Geometry.h"

#include <QPoint>
#include <QRect>

#include <functional>
#include <optional>

namespace zv {

/// Converts the core's coordinates, in points from the primary screen's lower left corner, to the
/// screens' own pixels. Nothing without a screen.
[[nodiscard]] std::optional<QPoint> pixelOf(Point point);

/// Converts the screens' own pixels to the toolkit's coordinates, which are scaled within each
/// screen.
[[nodiscard]] QPoint toolkitPoint(QPoint pixel);

/// The screen at a point of the toolkit, without the room of its panels; `freeAreaOf` tells that of a monitor in pixels.
/// Empty beside all screens.
[[nodiscard]] QRect freeAreaAt(QPoint point, std::function<QRect(QRect const&)> const& freeAreaOf);

/// The place for a menu requested at a point of the toolkit: beside the panel when the point lies
/// on one, so that the panel stays visible.
[[nodiscard]] QPoint besidePanels(QPoint point, QRect const& free);

} // namespace zv
