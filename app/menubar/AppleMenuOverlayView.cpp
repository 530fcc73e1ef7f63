#include "app/menubar/AppleMenuOverlayView.h"

#include "app/menu/RainbowAppleLogo.h"

namespace zv {

void AppleMenuOverlayView::draw(Canvas* canvas, double height)
{
    if (!m_preferences.replacesAppleMenu() || !m_preferences.drawsRainbowAppleLogo())
        return;
    RainbowAppleLogo::drawRainbowLogo(canvas, height - 1); // the point by which it is taller than the menu bar
}

void AppleMenuOverlayView::press()
{
    auto const running = action; // outlives the view that it may destroy
    if (running)
        running();
}

} // namespace zv
