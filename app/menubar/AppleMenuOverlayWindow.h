#pragma once

#include "app/menubar/AppleMenuOverlayView.h"
#include "app/menubar/OverlayPlace.h"
#include "base/Lifetime.h"
#include "platform/menubar/OverlayPanels.h"

#include <functional>
#include <memory>

namespace zv {

/// The nearly invisible panel over the left end of one menu bar.
class AppleMenuOverlayWindow {
public:
    AppleMenuOverlayWindow(OverlayPanels& panels, Preferences const& preferences, OverlayPlace const& place);

    void setFilesDropped(std::function<void(std::vector<Url>)> dropped) { m_view.filesDropped = std::move(dropped); }
    /// Called with the screen point at which the menu opens. May destroy this window.
    std::function<void(Point)> action;

    [[nodiscard]] OverlayPlace place() const { return { m_panel->frame(), m_menuPoint }; }
    void setPlace(OverlayPlace const& place)
    {
        m_menuPoint = place.menu;
        m_panel->setFrame(place.frame);
    }
    void show() { m_panel->show(); }
    void hide() { m_panel->hide(); }
    void redraw() { m_panel->redraw(); }

private:
    void pressed() const;

    AppleMenuOverlayView m_view;
    std::unique_ptr<OverlayPanel> m_panel;
    Point m_menuPoint;
    Lifetime m_lifetime;
};

} // namespace zv
