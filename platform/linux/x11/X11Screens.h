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

struct XMonitor {
    XRect rect;
    double scale = 1; ///< pixels a point
};

/// Converts between the X server's pixels and the program's points. As in the toolkit, each monitor is scaled about its
/// own upper left corner, which keeps its place in pixels.
struct XScreenSpace {
    std::vector<XMonitor> monitors; ///< the primary one first; never empty

    [[nodiscard]] Rect toScreen(XRect const& rect) const;
    [[nodiscard]] Point toScreen(int x, int y) const;
    [[nodiscard]] XRect fromScreen(Rect const& rect) const;
    /// The scale of the monitor on which the rectangle begins.
    [[nodiscard]] double scaleAt(XRect const& rect) const;
};

/// The monitors of RandR, the primary one first.
class X11Screens : public Screens {
public:
    explicit X11Screens(X11Connection& x);

    std::vector<Rect> frames() const override;
    [[nodiscard]] std::vector<XRect> const& monitors() const { return m_monitors; }
    [[nodiscard]] XScreenSpace space() const;

private:
    void handle(xcb_generic_event_t const& event);
    void refresh();
    [[nodiscard]] std::vector<XRect> readMonitors() const;

    X11Connection& m_x;
    std::uint8_t m_firstRandrEvent = 0;
    bool m_isStale = false;
    std::vector<XRect> m_monitors;
    X11Connection::Token m_events;
    X11Connection::Token m_batch;
};

} // namespace zv
