#include "platform/linux/wayland/FreeArea.h"

#include "platform/linux/wayland/LayerSurface.h"
#include "platform/linux/wayland/WaylandGlobals.h"

#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace zv {

namespace {

/// More than that is no panel at one edge, but several, or a window that claims its place.
constexpr int thickestPanel = 96;

int beside(int place, int start, int length, int claimed)
{
    int const margin = claimed > 0 && claimed <= thickestPanel ? claimed : 0;
    return std::clamp(place, start + margin, start + length - margin);
}

} // namespace

QSize freeSizeOf(WaylandGlobals const& globals, QScreen& screen)
{
    QWindow window;
    window.setFlags(Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    window.setGeometry(screen.geometry());
    LayerSurface const probe(globals, window, { .layer = LayerSurface::Layer::background, .zone = 0, .purpose = "zanthe-vell-probe" });
    return probe.isConfigured() ? window.size() : screen.size();
}

QPoint besidePanelsOf(QScreen const& screen, QSize free, QPoint point)
{
    auto const whole = screen.geometry();
    return { beside(point.x(), whole.x(), whole.width(), whole.width() - free.width()),
        beside(point.y(), whole.y(), whole.height(), whole.height() - free.height()) };
}

} // namespace zv
