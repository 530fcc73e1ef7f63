#pragma once

#include "platform/desk/Geometry.h"

#include <memory>

namespace zv {

/// A colour in sRGB, each component from 0 to 1.
struct Color {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;
    friend bool operator==(Color const&, Color const&) = default;
};

/// A shape to clip to, opaque but to the canvas that made it.
class Mask {
public:
    virtual ~Mask() = default;
};

/// The drawing surface of a view, while the view is asked to draw. The origin is the view's
/// bottom left corner, y grows upwards. Main thread only.
class Canvas {
public:
    virtual ~Canvas() = default;
    /// The logo that stands at the left end of the system's menu bar; null when there is none.
    [[nodiscard]] virtual std::shared_ptr<Mask const> logoMask() = 0;

    virtual void saveState() = 0;
    virtual void restoreState() = 0;
    virtual void clipToMask(Mask const& mask, Rect const& rect) = 0;
    virtual void setFillColor(Color const& color) = 0;
    /// Fills with the canvas's own compositing, source over unless it says otherwise.
    virtual void fill(Rect const& rect) = 0;
};

} // namespace zv
