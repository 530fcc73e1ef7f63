#include "platform/linux/menu/DesktopMenuPlacer.h"

#include "platform/linux/menu/MenuPlacement.h"

#include <QCursor>
#include <QGuiApplication>

namespace zv {

MenuPlacer::Reach DesktopMenuPlacer::reach() const { return QGuiApplication::platformName() == QLatin1String("xcb") ? Reach::everywhere : Reach::nowhere; }

void DesktopMenuPlacer::find(std::optional<QPoint> pixel, Open open)
{
    auto const point = pixel ? toolkitPoint(*pixel) : QCursor::pos();
    open(pixel || QGuiApplication::screenAt(point) ? std::optional(besidePanels(point)) : std::nullopt);
}

/// Some panels say no place.
std::optional<QPoint> DesktopMenuPlacer::pixelOfClick(QPoint said) const { return said.isNull() ? QCursor::pos() : said; }

} // namespace zv
