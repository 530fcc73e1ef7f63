#include "platform/linux/menu/MenuPlacement.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace zv {

namespace {

/// The coordinates of X11 are pixels, those of Wayland are the toolkit's.
double scaleOf(double devicePixelRatio) { return QGuiApplication::platformName() == QLatin1String("xcb") ? devicePixelRatio : 1; }

QRect pixelsOf(QScreen const& screen)
{
    auto const geometry = screen.geometry();
    return { geometry.topLeft(), geometry.size() * scaleOf(screen.devicePixelRatio()) };
}

QScreen* screenWithPixel(QPoint pixel)
{
    for (auto* screen : QGuiApplication::screens()) {
        if (pixelsOf(*screen).contains(pixel))
            return screen;
    }
    return QGuiApplication::primaryScreen();
}

} // namespace

std::optional<QPoint> pixelOf(Point point)
{
    auto const* primary = QGuiApplication::primaryScreen();
    if (!primary)
        return std::nullopt;
    auto const whole = primary->geometry();
    QPointF const wanted(whole.left() + point.x, whole.top() + whole.height() - point.y);
    auto const* screen = QGuiApplication::screenAt(wanted.toPoint());
    auto const origin = (screen ? screen : primary)->geometry().topLeft();
    return origin + ((wanted - origin) * scaleOf((screen ? screen : primary)->devicePixelRatio())).toPoint();
}

QPoint toolkitPoint(QPoint pixel)
{
    auto const* screen = screenWithPixel(pixel);
    if (!screen)
        return pixel;
    auto const origin = screen->geometry().topLeft();
    return origin + (pixel - origin) / scaleOf(screen->devicePixelRatio());
}

QRect freeAreaAt(QPoint point, std::function<QRect(QRect const&)> const& freeAreaOf)
{
    auto const* screen = QGuiApplication::screenAt(point);
    if (!screen)
        return {};
    auto const free = freeAreaOf ? freeAreaOf(pixelsOf(*screen)) : pixelsOf(*screen);
    auto const scale = scaleOf(screen->devicePixelRatio());
    return QRect(toolkitPoint(free.topLeft()), (QSizeF(free.size()) / scale).toSize()) & screen->availableGeometry();
}

QPoint besidePanels(QPoint point, QRect const& free)
{
    if (free.isEmpty())
        return point;
    return { std::clamp(point.x(), free.left(), free.right() + 1), std::clamp(point.y(), free.top(), free.bottom() + 1) };
}

} // namespace zv
