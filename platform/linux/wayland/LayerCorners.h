#pragma once

#include "platform/menubar/OverlayPanels.h"

#include <QPoint>

#include <memory>
#include <vector>

namespace zv {

class LayerCorner;
class WaylandGlobals;

/// Corners as parts of the desktop, above the panels, whose windows are out of reach there.
class LayerCorners : public OverlayPanels {
public:
    /// The globals outlive it, and have a layer shell.
    explicit LayerCorners(WaylandGlobals const& globals)
        : m_globals(globals)
    {
    }
    [[nodiscard]] std::unique_ptr<OverlayPanel> create(Rect const& frame, OverlayPanelContent& content) override;
    /// Presses the corner at that point of the toolkit, if any.
    void pressAt(QPoint point);

private:
    friend LayerCorner;

    WaylandGlobals const& m_globals;
    std::vector<LayerCorner*> m_corners; ///< all that are there
};

} // namespace zv
