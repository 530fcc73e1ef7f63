#include "app/menubar/AppleMenuOverlayWindow.h"

namespace zv {

AppleMenuOverlayWindow::AppleMenuOverlayWindow(OverlayPanels& panels, Preferences const& preferences, Rect const& frame)
    : m_view(preferences)
    , m_panel(panels.create(frame, m_view))
{
    m_view.action = m_lifetime.guard([this] { pressed(); });
}

void AppleMenuOverlayWindow::pressed() const
{
    auto const running = action; // a copy, as it may destroy the window
    auto const place = frame();
    if (running)
        running({ place.minX(), place.minY() - menuGap });
}

} // namespace zv
