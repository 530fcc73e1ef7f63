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
    /// The menu's distance below the bottom edge.
    static constexpr double menuGap = 6;

    AppleMenuOverlayWindow(OverlayPanels& panels, Preferences const& preferences, Rect const& frame);

    void setFilesDropped(std::function<void(std::vector<Url>)> dropped) { m_view.filesDropped = std::move(dropped); }
    /// Called with the screen point at which the menu opens. May destroy this window.
    std::function<void(Point)> action;

    [[nodiscard]] Rect frame() const { return m_panel->frame(); }
    void setFrame(Rect const& frame) { m_panel->setFrame(frame); }
    void show() { m_panel->show(); }
    void hide() { m_panel->hide(); }
    void redraw() { m_panel->redraw(); }

private:
    void pressed() const;

    AppleMenuOverlayView m_view;
    std::unique_ptr<OverlayPanel> m_panel;
    Lifetime m_lifetime;
};

} // namespace zv
