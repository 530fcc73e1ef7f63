#include "platform/linux/menu/DesktopMenuPlacer.h"

#include "platform/linux/menu/MenuPlacement.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

namespace zv {

/// A menu closes when screens come, go or change, as it might be left where nobody sees it.
DesktopMenuPlacer::DesktopMenuPlacer(FreeAreaOf freeAreaOf)
    : m_freeAreaOf(std::move(freeAreaOf))
{
    auto const lost = [this] {
        if (onLost)
            onLost();
    };
    auto const follow = [this, lost](QScreen* screen) { connect(screen, &QScreen::geometryChanged, this, lost); };
    for (auto* screen : QGuiApplication::screens())
        follow(screen);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, follow);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, lost);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, lost);
}

MenuPlacer::Reach DesktopMenuPlacer::reach() const { return QGuiApplication::platformName() == QLatin1String("xcb") ? Reach::everywhere : Reach::nowhere; }

void DesktopMenuPlacer::find(std::optional<QPoint> pixel, Open open)
{
    auto const point = pixel ? toolkitPoint(*pixel) : QCursor::pos();
    open(pixel || QGuiApplication::screenAt(point) ? std::optional(besidePanels(point, freeAreaAt(point))) : std::nullopt);
}

/// Some panels say no place.
std::optional<QPoint> DesktopMenuPlacer::pixelOfClick(QPoint said) const { return said.isNull() ? QCursor::pos() : said; }

QRect DesktopMenuPlacer::freeAreaAt(QPoint point) const { return zv::freeAreaAt(point, m_freeAreaOf); }

} // namespace zv
