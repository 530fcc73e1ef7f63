#pragma once

#include "app/menubar/AppleMenuOverlayView.h"
#include "base/Lifetime.h"
#include "platform/menubar/OverlayPanels.h"

#include <functional>
#include <memory>

namespace zv {

/// The nearly invisible panel over the left end of one menu bar.
class AppleMenuOverlayWindow {
public:
    static constexpr int level = 25; ///< of status windows: one above the menu bar
    /// Joins all spaces (1), is stationary (16), is skipped when cycling (64), may stand beside a full-screen window (256).
    static constexpr std::uint32_t collectionBehavior = 1 | 16 | 64 | 256;
    /// Looks transparent and yet receives clicks.
    static constexpr double backgroundAlpha = 0.004;
    /// How far below its bottom edge the menu opens.
    static constexpr double menuGap = 6;

    AppleMenuOverlayWindow(OverlayPanels& panels, Preferences const& preferences, Rect const& frame);

    /// Gets the screen point at which the menu is to open. May destroy this window.
    std::function<void(Point)> action;

    [[nodiscard]] Rect frame() const { return m_panel->frame(); }
    void setFrameAndDisplay(Rect const& frame) { m_panel->setFrameAndDisplay(frame); }
    void orderFrontRegardless() { m_panel->orderFrontRegardless(); }
    void orderOut() { m_panel->orderOut(); }
    void setNeedsDisplay() { m_panel->setNeedsDisplay(); }

private:
    void pressed() const;

    AppleMenuOverlayView m_view;
    std::unique_ptr<OverlayPanel> m_panel;
    Lifetime m_lifetime;
};

} // namespace zv
