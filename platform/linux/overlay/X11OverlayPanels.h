#pragma once

#include "platform/linux/overlay/X11LogoWindow.h"
#include "platform/linux/overlay/X11MenuBars.h"
#include "platform/menubar/OverlayPanels.h"

namespace zv {

/// Panels as child windows of the desktop's own panel: they move, hide and are covered with it,
/// and for it the pointer over them never leaves. One window takes the clicks and shows nothing;
/// a second one shows the logo where the content draws one.
class X11OverlayPanels : public OverlayPanels {
public:
    X11OverlayPanels(X11Connection& x, X11Screens const& screens, X11MenuBars const& menuBars);

    std::unique_ptr<OverlayPanel> create(Rect const& frame, OverlayPanelContent& content) override;

private:
    X11Connection& m_x;
    X11Screens const& m_screens;
    X11MenuBars const& m_menuBars;
    PanelCorners m_corners;
};

} // namespace zv
