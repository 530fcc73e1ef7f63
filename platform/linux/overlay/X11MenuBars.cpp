#include "platform/linux/overlay/X11MenuBars.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace zv {

namespace {

/// The maximum height of the strip that a hidden bar leaves to be woken by the pointer.
constexpr int kTallestTriggerStrip = 9;
/// The maximum gap between the edge and a floating bar without a strut.
constexpr int kFloatingGap = 12;
/// A bar at a side without a strut is at least this long: not what only shows something there.
constexpr double kLongestGadget = 0.9; // of the side

bool hasAtom(std::vector<std::uint32_t> const& atoms, xcb_atom_t wanted) { return std::find(atoms.begin(), atoms.end(), wanted) != atoms.end(); }

template <class Reply, class Cookie>
XReply<Reply> wait(Reply* (*function)(xcb_connection_t*, Cookie, xcb_generic_error_t**), X11Connection const& x, Cookie cookie)
{
    return XReply<Reply>(function(x.get(), cookie, nullptr));
}

std::vector<std::uint32_t> waitWords(X11Connection const& x, xcb_get_property_cookie_t cookie) { return wordsOf(wait(xcb_get_property_reply, x, cookie)); }

/// The rectangle as it lies where that edge is turned to the top.
XRect turned(XRect const& rect, BarEdge edge)
{
    switch (edge) {
    case BarEdge::bottom:
        return { rect.x, -rect.bottom(), rect.width, rect.height };
    case BarEdge::left:
        return { rect.y, rect.x, rect.height, rect.width };
    case BarEdge::right:
        return { rect.y, -rect.right(), rect.height, rect.width };
    case BarEdge::top:
        break;
    }
    return rect;
}

bool liesAlongTop(XRect const& dock, bool hasStrut, XRect const& monitor)
{
    int const centre = dock.x + dock.width / 2;
    int const lowest = monitor.y + (hasStrut ? monitor.height / 3 : kFloatingGap);
    return centre >= monitor.x && centre < monitor.right() && dock.bottom() > monitor.y && dock.y <= lowest && dock.y > monitor.y - dock.height;
}

bool liesAlong(BarEdge edge, XRect const& dock, std::span<ReservedEdge const> reserved, XRect const& monitor)
{
    bool const hasStrut = std::ranges::any_of(reserved, [edge](auto const& claim) { return claim.edge == edge; });
    auto const bar = turned(dock, edge), screen = turned(monitor, edge);
    bool const isAtSide = edge == BarEdge::left || edge == BarEdge::right;
    bool const isLong = !isAtSide || hasStrut || bar.width >= kLongestGadget * screen.width;
    return isLong && liesAlongTop(bar, hasStrut, screen);
}

/// Of a monitor with panels along several edges, the best has the corner.
void dropBarsBesideBetterOnes(std::vector<XMenuBar>& bars, std::vector<XRect> const& monitors)
{
    auto const hasBetter = [&](XMenuBar const& bar) {
        return std::any_of(monitors.begin(), monitors.end(), [&](XRect const& monitor) {
            auto const isHere = [&](XRect const& rect) {
                auto const shared = rect.intersected(monitor);
                return shared.width > 0 && shared.height > 0;
            };
            auto const isBetterHere = [&](XMenuBar const& other) { return other.edge < bar.edge && isHere(other.rect); };
            return isHere(bar.rect) && std::any_of(bars.begin(), bars.end(), isBetterHere);
        });
    };
    std::vector<XMenuBar> kept;
    std::copy_if(bars.begin(), bars.end(), std::back_inserter(kept), [&](auto const& bar) { return !hasBetter(bar); });
    bars = std::move(kept);
}

XRect boundsOf(std::vector<XRect> const& monitors)
{
    int right = 0, bottom = 0;
    for (auto const& monitor : monitors) {
        right = std::max(right, monitor.right());
        bottom = std::max(bottom, monitor.bottom());
    }
    return { 0, 0, right, bottom };
}

} // namespace

/// The current state of a managed window.
struct X11MenuBars::Client {
    xcb_window_t window = XCB_NONE;
    bool isDock = false;
    bool isViewable = false;
    bool isFullScreen = false;
    std::vector<ReservedEdge> reserved;
    XRect rect;
};

std::optional<BarEdge> barEdge(XRect const& dock, std::span<ReservedEdge const> reserved, std::vector<XRect> const& monitors)
{
    bool const stands = dock.height > dock.width;
    if (std::min(dock.width, dock.height) <= kTallestTriggerStrip || dock.width == dock.height)
        return std::nullopt;
    for (auto const edge : { stands ? BarEdge::left : BarEdge::top, stands ? BarEdge::right : BarEdge::bottom }) {
        if (std::ranges::any_of(monitors, [&](XRect const& monitor) { return liesAlong(edge, dock, reserved, monitor); }))
            return edge;
    }
    return std::nullopt;
}

X11MenuBars::X11MenuBars(X11Connection& x, X11Screens const& screens)
    : m_x(x)
    , m_screens(screens)
    , m_events(x.onEvent([this](auto const& event) { handle(event); }))
    , m_batch(x.afterEvents([this] { refresh(); }))
{
    refresh();
}

std::vector<MenuBar> X11MenuBars::onScreen() const
{
    std::vector<MenuBar> shown;
    for (auto const& bar : m_bars) {
        if (bar.isOnscreen)
            shown.push_back({ m_screens.space().toScreen(bar.rect), bar.window });
    }
    return shown;
}

std::optional<Rect> X11MenuBars::frame(MenuBarID id) const
{
    auto const bar = std::find_if(m_bars.begin(), m_bars.end(), [id](auto const& known) { return known.window == id; });
    return bar != m_bars.end() && bar->isOnscreen ? std::optional(m_screens.space().toScreen(bar->rect)) : std::nullopt;
}

void X11MenuBars::handle(xcb_generic_event_t const& event)
{
    switch (event.response_type & 0x7f) {
    case XCB_PROPERTY_NOTIFY: {
        auto const& change = reinterpret_cast<xcb_property_notify_event_t const&>(event);
        auto const isOneOf = [&](auto... names) { return ((change.atom == m_x.atom(names)) || ...); };
        m_isStale = m_isStale
            || isOneOf(XAtom::netClientList, XAtom::netClientListStacking, XAtom::netActiveWindow, XAtom::netCurrentDesktop, XAtom::netWmStrutPartial,
                XAtom::netWmStrut);
        return;
    }
    case XCB_CONFIGURE_NOTIFY:
        m_isStale = m_isStale || concernsBars(reinterpret_cast<xcb_configure_notify_event_t const&>(event));
        return;
    case XCB_MAP_NOTIFY:
    case XCB_UNMAP_NOTIFY:
    case XCB_REPARENT_NOTIFY:
    case XCB_DESTROY_NOTIFY: // alike in what is read here
        m_isStale = m_isStale || concernsBars(reinterpret_cast<xcb_map_notify_event_t const&>(event));
        if ((event.response_type & 0x7f) == XCB_DESTROY_NOTIFY)
            m_docks.erase(reinterpret_cast<xcb_destroy_notify_event_t const&>(event).window);
        return;
    default:
        return;
    }
}

/// Whether the window is, or touches, a bar: a dragged window sends a hundred of these a second.
bool X11MenuBars::concernsBars(xcb_configure_notify_event_t const& event) const
{
    if (event.window == m_x.root())
        return true;
    if (event.event != m_x.root())
        return m_docks.contains(event.window);
    XRect const rect { event.x, event.y, event.width, event.height };
    return std::any_of(m_bars.begin(), m_bars.end(), [&](XMenuBar const& bar) {
        bool const isItsFrame = rect.width == bar.rect.width && rect.height == bar.rect.height;
        return isItsFrame || rect.contains(bar.rect) || !bar.isOnscreen;
    });
}

/// Whether the window may be a bar: menus and tooltips are unmanaged, and a panel's own children do not matter.
bool X11MenuBars::concernsBars(xcb_map_notify_event_t const& event) const
{
    bool const isTransient = (event.response_type & 0x7f) == XCB_MAP_NOTIFY && event.override_redirect;
    return m_docks.contains(event.window) || (event.event == m_x.root() && !isTransient);
}

void X11MenuBars::refresh()
{
    if (!m_isStale && m_monitors == m_screens.monitors())
        return;
    m_monitors = m_screens.monitors();
    std::vector<XMenuBar> bars;
    do {
        m_isStale = false;
        bars = readBars();
    } while (m_isStale); // a new dock may have changed before we selected its events
    if (bars == m_bars)
        return;
    m_bars = std::move(bars);
    if (auto const changed = onChanged)
        changed();
}

std::vector<XMenuBar> X11MenuBars::readBars()
{
    auto const clients = readStates(readClients());
    std::vector<XMenuBar> bars;
    m_reserved.clear();
    for (auto client = clients.begin(); client != clients.end(); ++client) {
        if (!client->isDock)
            continue;
        listenTo(client->window);
        m_reserved.insert(m_reserved.end(), client->reserved.begin(), client->reserved.end());
        auto const edge = barEdge(client->rect, client->reserved, m_screens.monitors());
        if (!edge)
            continue;
        bool const isCovered = std::any_of(client + 1, clients.end(),
            [&](Client const& above) { return above.isFullScreen && above.isViewable && above.rect.intersected(client->rect) == client->rect; });
        bool const isOnscreen = client->isViewable && !isCovered;
        bars.push_back({ client->window, client->rect, isOnscreen, *edge, !client->reserved.empty() });
        if (isOnscreen && client->reserved.empty())
            m_reserved.push_back({ *edge, client->rect });
    }
    dropBarsBesideBetterOnes(bars, m_screens.monitors());
    // The stacking order changes with every click, so the bars are sorted by window.
    std::sort(bars.begin(), bars.end(), [](auto const& a, auto const& b) { return a.window < b.window; });
    return bars;
}

void X11MenuBars::listenTo(xcb_window_t dock)
{
    if (!m_docks.insert(dock).second)
        return;
    std::uint32_t const crossings = XCB_EVENT_MASK_ENTER_WINDOW | XCB_EVENT_MASK_LEAVE_WINDOW; // for the overlay's panels
    std::uint32_t const mask = crossings | XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_x.get(), dock, XCB_CW_EVENT_MASK, &mask);
    m_isStale = true;
}

/// Clients from the bottom up; without a window manager, the root's children.
std::vector<xcb_window_t> X11MenuBars::readClients() const
{
    auto const stacking = requestWords(m_x, m_x.root(), XAtom::netClientListStacking, 4096);
    auto const mapping = requestWords(m_x, m_x.root(), XAtom::netClientList, 4096);
    auto const tree = xcb_query_tree(m_x.get(), m_x.root());
    auto clients = waitWords(m_x, stacking);
    auto const unordered = waitWords(m_x, mapping);
    auto const children = wait(xcb_query_tree_reply, m_x, tree);
    if (clients.empty())
        clients = unordered;
    if (clients.empty() && children) {
        auto const* first = xcb_query_tree_children(children.get());
        clients.assign(first, first + xcb_query_tree_children_length(children.get()));
    }
    return clients;
}

/// Reads all states in one round trip. Windows that are gone by then are left out.
std::vector<X11MenuBars::Client> X11MenuBars::readStates(std::vector<xcb_window_t> const& clients) const
{
    struct Request {
        xcb_get_property_cookie_t type, state, partialStrut, strut;
        xcb_get_window_attributes_cookie_t attributes;
        xcb_get_geometry_cookie_t geometry;
        xcb_translate_coordinates_cookie_t place;
    };
    std::vector<Request> requests;
    requests.reserve(clients.size());
    for (auto const window : clients) {
        requests.push_back({
            requestWords(m_x, window, XAtom::netWmWindowType),
            requestWords(m_x, window, XAtom::netWmState),
            requestWords(m_x, window, XAtom::netWmStrutPartial),
            requestWords(m_x, window, XAtom::netWmStrut),
            xcb_get_window_attributes(m_x.get(), window),
            xcb_get_geometry(m_x.get(), window),
            xcb_translate_coordinates(m_x.get(), window, m_x.root(), 0, 0),
        });
    }

    auto const desktop = boundsOf(m_screens.monitors());
    std::vector<Client> states;
    for (std::size_t i = 0; i < clients.size(); ++i) {
        auto const types = waitWords(m_x, requests[i].type);
        auto const state = waitWords(m_x, requests[i].state);
        auto const partialStrut = waitWords(m_x, requests[i].partialStrut), strut = waitWords(m_x, requests[i].strut);
        auto const attributes = wait(xcb_get_window_attributes_reply, m_x, requests[i].attributes);
        auto const geometry = wait(xcb_get_geometry_reply, m_x, requests[i].geometry);
        auto const place = wait(xcb_translate_coordinates_reply, m_x, requests[i].place);
        if (!attributes || !geometry || !place)
            continue;
        Client client;
        client.window = clients[i];
        client.isDock = hasAtom(types, m_x.atom(XAtom::netWmWindowTypeDock));
        client.isViewable = attributes->map_state == XCB_MAP_STATE_VIEWABLE;
        client.isFullScreen = hasAtom(state, m_x.atom(XAtom::netWmStateFullscreen));
        client.reserved = reservedEdges(partialStrut.empty() ? strut : partialStrut, desktop);
        client.rect = { place->dst_x, place->dst_y, geometry->width, geometry->height };
        states.push_back(client);
    }
    return states;
}

} // namespace zv
