#pragma once

#include "platform/linux/x11/X11Connection.h"
#include "platform/menubar/Screens.h"

#include <vector>

namespace zv {

/// A rectangle in the X server's pixels; the origin is the root window's top left corner.
struct XRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    [[nodiscard]] int right() const { return x + width; }
    [[nodiscard]] int bottom() const { return y + height; }
    [[nodiscard]] bool contains(XRect const& other) const { return other.x >= x && other.y >= y && other.right() <= right() && other.bottom() <= bottom(); }
    [[nodiscard]] XRect intersected(XRect const& other) const;
    friend bool operator==(XRect const&, XRect const&) = default;
};

/// Converts between the X server's pixels and the program's points.
struct XScreenSpace {
    XRect primary;
    double scale = 1; ///< pixels a point

    [[nodiscard]] Rect toScreen(XRect const& rect) const;
    [[nodiscard]] Point toScreen(int x, int y) const;
    [[nodiscard]] XRect fromScreen(Rect const& rect) const;
};

/// The monitors of RandR, the primary one first.
class X11Screens : public Screens {
public:
    /// `scale` is the number of pixels a point.
    X11Screens(X11Connection& x, double scale);

    std::vector<Rect> frames() const override;
    [[nodiscard]] std::vector<XRect> const& monitors() const { return m_monitors; }
    [[nodiscard]] XScreenSpace space() const;

private:
    void handle(xcb_generic_event_t const& event);
    void refresh();
    [[nodiscard]] std::vector<XRect> readMonitors() const;

    X11Connection& m_x;
    double m_scale;
    std::uint8_t m_firstRandrEvent = 0;
    bool m_isStale = false;
    std::vector<XRect> m_monitors;
    X11Connection::Token m_events;
    X11Connection::Token m_batch;
};

} // namespace zv
