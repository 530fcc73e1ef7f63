#include "app/menubar/AppleMenuOverlayWindow.h"

namespace zv {

namespace {

constexpr OverlayPanelStyle kStyle {
    .level = AppleMenuOverlayWindow::level,
    .collectionBehavior = AppleMenuOverlayWindow::collectionBehavior,
    .background = { 0, 0, 0, AppleMenuOverlayWindow::backgroundAlpha },
};

} // namespace

AppleMenuOverlayWindow::AppleMenuOverlayWindow(OverlayPanels& panels, Preferences const& preferences, Rect const& frame)
    : m_view(preferences)
    , m_panel(panels.create(frame, kStyle, m_view))
{
    m_view.action = m_lifetime.guard([this] { pressed(); });
}

void AppleMenuOverlayWindow::pressed() const
{
    auto const running = action; // outlives the window that it may destroy
    auto const place = frame();
    if (running)
        running({ place.minX(), place.minY() - menuGap });
}

} // namespace zv
