#pragma once

#include "platform/desk/Canvas.h"
#include "platform/desk/Geometry.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace zv {

/// What a panel is to be, in the terms of the system that has all of them; the others do
/// what comes nearest. It never takes the focus, has no title bar and no shadow, cannot be
/// moved by hand and is not animated.
struct OverlayPanelStyle {
    int level = 0;
    std::uint32_t collectionBehavior = 0;
    Color background;
};

enum class AccessibilityRole { menuBarItem };

/// What a panel shows and what happens on it. It outlives its panel.
class OverlayPanelContent {
public:
    virtual ~OverlayPanelContent() = default;
    virtual void draw(Canvas* canvas, double height) = 0;
    virtual void mouseDown() = 0;
    virtual void rightMouseDown() = 0;
    /// Whether a click counts while the program is inactive.
    [[nodiscard]] virtual bool acceptsFirstMouse() const = 0;

    [[nodiscard]] virtual AccessibilityRole accessibilityRole() const = 0;
    [[nodiscard]] virtual std::string_view accessibilityLabel() const = 0;
    /// True when the press was carried out.
    virtual bool accessibilityPerformPress() = 0;
};

/// A small window over a menu bar. It is made hidden; destroying it takes it off the screen.
class OverlayPanel {
public:
    virtual ~OverlayPanel() = default;
    [[nodiscard]] virtual Rect frame() const = 0;
    virtual void setFrameAndDisplay(Rect const& frame) = 0;
    /// Shows it in front, whether or not the program is active.
    virtual void orderFrontRegardless() = 0;
    virtual void orderOut() = 0;
    /// Has it drawn anew.
    virtual void setNeedsDisplay() = 0;
};

/// Makes panels. Main thread only.
class OverlayPanels {
public:
    virtual ~OverlayPanels() = default;
    [[nodiscard]] virtual std::unique_ptr<OverlayPanel> create(Rect const& frame, OverlayPanelStyle const& style, OverlayPanelContent& content) = 0;
};

} // namespace zv
