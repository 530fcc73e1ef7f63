#pragma once

#include <QPoint>
#include <QSize>

class QScreen;

namespace zv {

class WaylandGlobals;

/// The size of the screen's part that no panel claims: that of an unseen surface which keeps
/// clear of them. The compositor tells it within a millisecond, but not where it lies.
[[nodiscard]] QSize freeSizeOf(WaylandGlobals const& globals, QScreen& screen);

/// The nearest place that lies on no panel, whichever of the edges it has.
[[nodiscard]] QPoint besidePanelsOf(QScreen const& screen, QSize free, QPoint point);

} // namespace zv
