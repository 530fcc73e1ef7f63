#pragma once

#include "platform/linux/overlay/ReservedEdges.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Screens.h"
#include "platform/menubar/MenuBars.h"

#include <optional>
#include <set>
#include <vector>

namespace zv {

/// A panel along an edge of a screen that has none along a better one.
struct XMenuBar {
    xcb_window_t window = XCB_NONE;
    XRect rect;
    bool isOnscreen = false;
    BarEdge edge = BarEdge::top;
    bool claimsRoom = false; ///< unlike one that may hide
    friend bool operator==(XMenuBar const&, XMenuBar const&) = default;
};

/// The panels along the edges of the screens. They are read again only after an event that can have
/// changed them; other queries cost nothing.
class X11MenuBars : public MenuBars {
public:
    X11MenuBars(X11Connection& x, X11Screens const& screens);

    std::vector<MenuBar> onScreen() const override;
    std::optional<Rect> frame(MenuBarID id) const override;
    bool tellsEveryChange() const override { return true; }

    [[nodiscard]] std::vector<XMenuBar> const& bars() const { return m_bars; }
    /// The monitor without the room that panels claim at its edges, or take just now.
    [[nodiscard]] XRect freeAreaOf(XRect const& monitor) const { return freeArea(monitor, m_reserved); }

private:
    struct Client;

    void handle(xcb_generic_event_t const& event);
    [[nodiscard]] bool concernsBars(xcb_configure_notify_event_t const& event) const;
    [[nodiscard]] bool concernsBars(xcb_map_notify_event_t const& event) const;
    void refresh();
    [[nodiscard]] std::vector<XMenuBar> readBars();
    void listenTo(xcb_window_t dock);
    [[nodiscard]] std::vector<xcb_window_t> readClients() const;
    [[nodiscard]] std::vector<Client> readStates(std::vector<xcb_window_t> const& clients) const;

    X11Connection& m_x;
    X11Screens const& m_screens;
    std::set<xcb_window_t> m_docks; ///< docks whose events are selected
    std::vector<XRect> m_monitors; ///< monitors at the last reading
    std::vector<XMenuBar> m_bars;
    std::vector<ReservedEdge> m_reserved; ///< by all panels, with those that may hide and are shown
    bool m_isStale = true;
    X11Connection::Token m_events;
    X11Connection::Token m_batch;
};

/// The edge of a monitor along which the dock lies as a bar, at least partly visible. A strip of a
/// few pixels that waits for the pointer is none, nor is what only stands beside an edge.
[[nodiscard]] std::optional<BarEdge> barEdge(XRect const& dock, std::span<ReservedEdge const> reserved, std::vector<XRect> const& monitors);

} // namespace zv
