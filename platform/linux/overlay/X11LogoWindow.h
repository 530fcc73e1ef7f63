#pragma once

#include "platform/linux/overlay/PanelCorner.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/menubar/OverlayPanels.h"

#include <QImage>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace zv {

/// The measured left end of a panel, by its window; a panel of another size has another picture.
struct KnownCorner {
    XRect panel;
    PanelCorner corner;
};
using PanelCorners = std::map<xcb_window_t, KnownCorner>;

/// Shows the logo within a panel's window, in place of the picture at its end and on the
/// panel's current background. Lets every click through.
class X11LogoWindow {
public:
    struct Geometry {
        XRect panel;
        double viewHeight = 0; ///< points
        double scale = 1; ///< pixels a point
        int reach = 0; ///< pixels of the panel's end that may be covered
        bool stands = false; ///< at a side: it is measured turned, its upper end to the left
        friend bool operator==(Geometry const&, Geometry const&) = default;
    };

    /// `known` keeps the panel's corner beyond this window's life.
    X11LogoWindow(X11Connection& x, xcb_window_t panel, Geometry const& geometry, OverlayPanelContent& content, PanelCorners& known);
    ~X11LogoWindow();
    X11LogoWindow(X11LogoWindow const&) = delete;
    X11LogoWindow& operator=(X11LogoWindow const&) = delete;

    /// None while there is nothing to show.
    [[nodiscard]] xcb_window_t window() const { return m_window; }
    /// The pixels of the panel's end that are ours: not those of a button beside the logo.
    [[nodiscard]] int width() const { return m_corner && m_corner->nextButton ? *m_corner->nextButton : m_geometry.reach; }
    /// Called when that may have changed.
    std::function<void()> onMeasured;
    /// Draws again, and shows or hides the window accordingly.
    void update();

private:
    using Rows = std::vector<std::uint32_t>;

    [[nodiscard]] std::optional<Rect> wantedLogo() const;
    void look();
    void doubt();
    [[nodiscard]] PanelCorner cornerIn(PanelPixels const& pixels) const;
    [[nodiscard]] bool hasSettled(PanelPixels const& pixels) const;
    void settle(PanelCorner const& corner);
    [[nodiscard]] XRect plateFor(PanelCorner const& corner) const;
    [[nodiscard]] double logoScale(PanelCorner const& corner) const;
    [[nodiscard]] QImage render() const;
    void show();
    void createWindow();
    void remove();

    void handle(xcb_generic_event_t const& event);
    void followBackground();
    [[nodiscard]] Rows readBackground() const;
    [[nodiscard]] XRect turned(XRect const& rect) const;
    [[nodiscard]] XRect turnedPanel() const { return turned(m_geometry.panel); }
    [[nodiscard]] PanelPixels readPixels(XRect const& rect) const;

    X11Connection& m_x;
    xcb_window_t m_panel;
    Geometry m_geometry;
    OverlayPanelContent& m_content;
    PanelCorners& m_known;

    xcb_window_t m_window = XCB_NONE;
    std::uint8_t m_depth = 0;
    std::uint32_t m_damage = XCB_NONE;
    std::uint8_t m_firstDamageEvent = 0;
    bool m_isDamaged = false;

    std::optional<PanelCorner> m_corner; ///< set once the panel has drawn itself
    PanelPixels m_lastLook;
    std::size_t m_looks = 0;
    std::optional<PanelCorner> m_doubted; ///< what was measured before the one doubt
    Rect m_logo; ///< its size in points
    XRect m_plate; ///< the covered area within the turned panel
    Rows m_background; ///< the plate's rows from the top
    QTimer m_lookAgain;
    X11Connection::Token m_events;
    X11Connection::Token m_batch;
};

} // namespace zv
