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
/// _NET_WM_STRUT and _NET_WM_STRUT_PARTIAL: https://specifications.freedesktop.org/wm-spec, "Application Window Properties"
constexpr std::size_t kTopStrut = 2; ///< left, right, top, bottom
constexpr std::size_t kBottomStrut = 3;

bool hasAtom(std::vector<std::uint32_t> const& atoms, xcb_atom_t wanted) { return std::find(atoms.begin(), atoms.end(), wanted) != atoms.end(); }

template <class Reply, class Cookie>
XReply<Reply> wait(Reply* (*function)(xcb_connection_t*, Cookie, xcb_generic_error_t**), X11Connection const& x, Cookie cookie)
{
    return XReply<Reply>(function(x.get(), cookie, nullptr));
}

std::vector<std::uint32_t> waitWords(X11Connection const& x, xcb_get_property_cookie_t cookie) { return wordsOf(wait(xcb_get_property_reply, x, cookie)); }

int wordAt(std::vector<std::uint32_t> const& words, std::size_t index) { return index < words.size() ? static_cast<int>(words[index]) : 0; }

bool liesAlongTop(XRect const& dock, int strut, XRect const& monitor)
{
    int const centre = dock.x + dock.width / 2;
    int const lowest = monitor.y + (strut > 0 ? monitor.height / 3 : kFloatingGap);
    return centre >= monitor.x && centre < monitor.right() && dock.bottom() > monitor.y && dock.y <= lowest && dock.y > monitor.y - dock.height;
}

XRect upsideDown(XRect const& rect) { return { rect.x, -rect.bottom(), rect.width, rect.height }; }

/// Of a monitor with panels at both edges, the upper one has the corner.
void dropBarsBelowOthers(std::vector<XMenuBar>& bars, std::vector<XRect> const& monitors)
{
    auto const hasBarAbove = [&](XMenuBar const& bar) {
        return std::any_of(monitors.begin(), monitors.end(), [&](XRect const& monitor) {
            auto const isHere = [&](XRect const& rect) {
                auto const shared = rect.intersected(monitor);
                return shared.width > 0 && shared.height > 0;
            };
            auto const isTopBarHere = [&](XMenuBar const& other) { return other.edge == BarEdge::top && isHere(other.rect); };
            return isHere(bar.rect) && std::any_of(bars.begin(), bars.end(), isTopBarHere);
        });
    };
    std::vector<XMenuBar> kept;
    std::copy_if(bars.begin(), bars.end(), std::back_inserter(kept), [&](auto const& bar) { return bar.edge == BarEdge::top || !hasBarAbove(bar); });
    bars = std::move(kept);
}

} // namespace

/// The current state of a managed window.
struct X11MenuBars::Client {
    xcb_window_t window = XCB_NONE;
    bool isDock = false;
    bool isViewable = false;
    bool isFullScreen = false;
    BarStruts struts;
    XRect rect;
};

std::optional<BarEdge> barEdge(XRect const& dock, BarStruts const& struts, std::vector<XRect> const& monitors)
{
    if (dock.height <= kTallestTriggerStrip || dock.width <= dock.height)
        return std::nullopt;
    auto const isOn = [&](XRect const& monitor) { return liesAlongTop(dock, struts.top, monitor); };
    auto const isUnder = [&](XRect const& monitor) { return liesAlongTop(upsideDown(dock), struts.bottom, upsideDown(monitor)); };
    if (std::any_of(monitors.begin(), monitors.end(), isOn))
        return BarEdge::top;
    return std::any_of(monitors.begin(), monitors.end(), isUnder) ? std::optional(BarEdge::bottom) : std::nullopt;
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
    for (auto client = clients.begin(); client != clients.end(); ++client) {
        if (!client->isDock)
            continue;
        listenTo(client->window);
        auto const edge = barEdge(client->rect, client->struts, m_screens.monitors());
        if (!edge)
            continue;
        bool const isCovered = std::any_of(client + 1, clients.end(),
            [&](Client const& above) { return above.isFullScreen && above.isViewable && above.rect.intersected(client->rect) == client->rect; });
        bars.push_back({ client->window, client->rect, client->isViewable && !isCovered, *edge });
    }
    dropBarsBelowOthers(bars, m_screens.monitors());
    // The stacking order changes with every click, so the bars are sorted by window.
    std::sort(bars.begin(), bars.end(), [](auto const& a, auto const& b) { return a.window < b.window; });
    return bars;
}

void X11MenuBars::listenTo(xcb_window_t dock)
{
    if (!m_docks.insert(dock).second)
        return;
    std::uint32_t const mask = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
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
        xcb_get_property_cookie_t type, state, strut;
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
            xcb_get_window_attributes(m_x.get(), window),
            xcb_get_geometry(m_x.get(), window),
            xcb_translate_coordinates(m_x.get(), window, m_x.root(), 0, 0),
        });
    }

    std::vector<Client> states;
    for (std::size_t i = 0; i < clients.size(); ++i) {
        auto const types = waitWords(m_x, requests[i].type);
        auto const state = waitWords(m_x, requests[i].state);
        auto const strut = waitWords(m_x, requests[i].strut);
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
        client.struts = { wordAt(strut, kTopStrut), wordAt(strut, kBottomStrut) };
        client.rect = { place->dst_x, place->dst_y, geometry->width, geometry->height };
        states.push_back(client);
    }
    return states;
}

} // namespace zv
