#pragma once

#include "base/Url.h"
#include "platform/desk/Canvas.h"
#include "platform/desk/Geometry.h"

#include <memory>
#include <string_view>
#include <vector>

namespace zv {

/// The picture of a panel and the effect of a press on it. Outlives its panel.
class OverlayPanelContent {
public:
    virtual ~OverlayPanelContent() = default;
    virtual void draw(Canvas* canvas, double height) = 0;
    /// Called when any button is pressed on the panel, also while the program is inactive, or
    /// an assistive program presses it: there it is an item of the menu bar.
    virtual void press() = 0;
    /// Called when files are dropped on the panel, where the system tells of them.
    virtual void drop(std::vector<Url> files) = 0;
    [[nodiscard]] virtual std::string_view accessibilityLabel() const = 0;
};

/// A small window above a menu bar, wherever that is shown. It looks transparent where
/// nothing is drawn, but takes clicks there too; it never takes the focus, has no title bar
/// and no shadow, cannot be moved by hand and is not animated. Made hidden; destroying it
/// takes it off the screen.
class OverlayPanel {
public:
    virtual ~OverlayPanel() = default;
    [[nodiscard]] virtual Rect frame() const = 0;
    virtual void setFrame(Rect const& frame) = 0;
    /// Shows it in front, whether or not the program is active.
    virtual void show() = 0;
    virtual void hide() = 0;
    /// Draws it anew.
    virtual void redraw() = 0;
};

/// Makes panels. Main thread only.
class OverlayPanels {
public:
    virtual ~OverlayPanels() = default;
    [[nodiscard]] virtual std::unique_ptr<OverlayPanel> create(Rect const& frame, OverlayPanelContent& content) = 0;
};

} // namespace zv
