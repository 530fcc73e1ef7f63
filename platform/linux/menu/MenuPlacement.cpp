#include "platform/linux/menu/MenuPlacement.h"

#include <QGuiApplication>
#include <QScreen>

#include <cmath>

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
    auto const screen = pixelsOf(*primary);
    auto const pixels = [](double points) { return static_cast<int>(std::lround(points * scaleOf(qGuiApp->devicePixelRatio()))); };
    return QPoint(screen.left() + pixels(point.x), screen.top() + screen.height() - pixels(point.y));
}

QPoint toolkitPoint(QPoint pixel)
{
    auto const* screen = screenWithPixel(pixel);
    if (!screen)
        return pixel;
    auto const origin = screen->geometry().topLeft();
    return origin + (pixel - origin) / scaleOf(screen->devicePixelRatio());
}

QPoint besidePanels(QPoint point)
{
    auto const* screen = QGuiApplication::screenAt(point);
    if (!screen)
        return point;
    auto const free = screen->availableGeometry();
    return { std::clamp(point.x(), free.left(), free.right() + 1), std::clamp(point.y(), free.top(), free.bottom() + 1) };
}

} // namespace zv
