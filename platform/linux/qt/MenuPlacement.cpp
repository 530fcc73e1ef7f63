#include "platform/linux/qt/MenuPlacement.h"

#include <QGuiApplication>
#include <QScreen>

namespace zv {

namespace {

QRect pixelsOf(QScreen const& screen)
{
    auto const geometry = screen.geometry();
    return { geometry.topLeft(), geometry.size() * screen.devicePixelRatio() };
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

QPoint toolkitPoint(QPoint pixel)
{
    auto const* screen = screenWithPixel(pixel);
    if (!screen)
        return pixel;
    auto const origin = screen->geometry().topLeft();
    return origin + (pixel - origin) / screen->devicePixelRatio();
}

QPoint menuPositionFor(QPoint pixel)
{
    auto const* screen = screenWithPixel(pixel);
    auto const point = toolkitPoint(pixel);
    if (!screen)
        return point;
    auto const free = screen->availableGeometry();
    return { std::clamp(point.x(), free.left(), free.right() + 1), std::clamp(point.y(), free.top(), free.bottom() + 1) };
}

} // namespace zv
