#include "app/menubar/AppleMenuOverlayWindow.h"

namespace zv {

AppleMenuOverlayWindow::AppleMenuOverlayWindow(OverlayPanels& panels, Preferences const& preferences, OverlayPlace const& place)
    : m_view(preferences)
    , m_panel(panels.create(place.frame, m_view))
    , m_menuPoint(place.menu)
{
    m_view.action = m_lifetime.guard([this] { pressed(); });
}

void AppleMenuOverlayWindow::pressed() const
{
    auto const running = action; // a copy, as it may destroy the window
    if (running)
        running(m_menuPoint);
}

} // namespace zv
