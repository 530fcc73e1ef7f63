#include "app/menubar/AppleMenuOverlayView.h"

#include "app/menu/RainbowAppleLogo.h"

namespace zv {

void AppleMenuOverlayView::draw(Canvas* canvas, double height)
{
    if (!m_preferences.replacesAppleMenu() || !m_preferences.drawsRainbowAppleLogo())
        return;
    RainbowAppleLogo::drawRainbowLogo(canvas, height - 1); // without the point beyond the menu bar
}

void AppleMenuOverlayView::press()
{
    auto const running = action; // a copy, as it may destroy the view
    if (running)
        running();
}

void AppleMenuOverlayView::drop(std::vector<Url> files)
{
    if (filesDropped)
        filesDropped(std::move(files));
}

} // namespace zv
