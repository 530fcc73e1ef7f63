#pragma once

#include "platform/linux/overlay/X11LogoWindow.h"
#include "platform/linux/overlay/X11MenuBars.h"
#include "platform/menubar/OverlayPanels.h"

#include <QPoint>

#include <functional>
#include <memory>
#include <vector>

namespace zv {

/// Panels as child windows of the desktop's own panel: they move, hide and are covered with it,
/// and for it the pointer over them never leaves. One window takes the clicks and shows nothing;
/// a second one shows the logo where the content draws one.
class X11OverlayPanels : public OverlayPanels {
public:
    X11OverlayPanels(X11Connection& x, X11Screens const& screens, X11MenuBars const& menuBars);

    /// False when the panel is elsewhere.
    using PressAt = std::function<bool(QPoint)>;

    std::unique_ptr<OverlayPanel> create(Rect const& frame, OverlayPanelContent& content) override;
    /// Presses the panel at that point of the toolkit, if any.
    void pressAt(QPoint point);

private:
    X11Connection& m_x;
    X11Screens const& m_screens;
    X11MenuBars const& m_menuBars;
    PanelCorners m_corners;
    std::vector<std::weak_ptr<PressAt>> m_presses; ///< of all panels
};

} // namespace zv
