#include "platform/linux/x11/X11Connection.h"

#include <QAbstractEventDispatcher>
#include <QSocketNotifier>

#include <algorithm>

namespace zv {

namespace {

/// Extended Window Manager Hints, "Root Window Properties (and Related Messages)" and
/// "Application Window Properties": https://specifications.freedesktop.org/wm-spec
constexpr std::array<char const*, static_cast<std::size_t>(XAtom::count)> kAtomNames {
    "_NET_CLIENT_LIST",
    "_NET_CLIENT_LIST_STACKING",
    "_NET_ACTIVE_WINDOW",
    "_NET_CURRENT_DESKTOP",
    "_NET_WM_WINDOW_TYPE",
    "_NET_WM_WINDOW_TYPE_DOCK",
    "_NET_WM_STATE",
    "_NET_WM_STATE_FULLSCREEN",
    "_NET_WM_STRUT_PARTIAL",
    "_NET_WM_STRUT",
    "_NET_SUPPORTING_WM_CHECK",
};

template <class Handler> X11Connection::Token subscribe(std::vector<std::weak_ptr<Handler>>& handlers, Handler handler)
{
    std::erase_if(handlers, [](auto const& held) { return held.expired(); });
    auto token = std::make_shared<Handler>(std::move(handler));
    handlers.push_back(token);
    return token;
}

/// Calls a copy of the list: handlers come and go during the calls.
template <class Handler, class... Arguments> void call(std::vector<std::weak_ptr<Handler>> const& handlers, Arguments const&... arguments)
{
    auto const present = handlers;
    for (auto const& held : present) {
        if (auto const handler = held.lock())
            (*handler)(arguments...);
    }
}

xcb_screen_t* screenOf(xcb_connection_t* connection, int number)
{
    auto iterator = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; number > 0 && iterator.rem > 1; --number)
        xcb_screen_next(&iterator);
    return iterator.data;
}

} // namespace

std::unique_ptr<X11Connection> X11Connection::open()
{
    int number = 0;
    auto* connection = xcb_connect(nullptr, &number);
    if (xcb_connection_has_error(connection)) {
        xcb_disconnect(connection);
        return nullptr;
    }
    return std::unique_ptr<X11Connection>(new X11Connection(connection, screenOf(connection, number)));
}

X11Connection::X11Connection(xcb_connection_t* connection, xcb_screen_t* screen)
    : m_connection(connection)
    , m_screen(screen)
{
    m_notifier = new QSocketNotifier(xcb_get_file_descriptor(connection), QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] { dispatch(From::socket); });
    // Waiting for a reply may have read events too, which the socket does not signal again.
    if (auto* dispatcher = QAbstractEventDispatcher::instance())
        connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, [this] { dispatch(From::queue); });
}

X11Connection::~X11Connection()
{
    delete m_notifier; // destroyed before its descriptor is closed
    xcb_disconnect(m_connection);
}

xcb_atom_t X11Connection::atom(XAtom name) const
{
    if (!m_atoms)
        m_atoms = internAtoms(m_connection, kAtomNames);
    return (*m_atoms)[static_cast<std::size_t>(name)];
}

void X11Connection::watchRoot() const
{
    std::uint32_t const mask = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection, root(), XCB_CW_EVENT_MASK, &mask);
    flush();
}

X11Connection::Token X11Connection::onEvent(EventHandler handler) { return subscribe(m_eventHandlers, std::move(handler)); }

X11Connection::Token X11Connection::afterEvents(BatchHandler handler) { return subscribe(m_batchHandlers, std::move(handler)); }

void X11Connection::dispatch() { dispatch(From::socket); }

void X11Connection::dispatch(From source)
{
    bool any = false;
    auto const next = source == From::socket ? xcb_poll_for_event : xcb_poll_for_queued_event;
    while (XReply<xcb_generic_event_t> const event { next(m_connection) }) {
        any = true;
        if (event->response_type != 0)
            call(m_eventHandlers, *event);
    }
    if (any)
        call(m_batchHandlers);
    if (xcb_connection_has_error(m_connection))
        stop();
}

/// Stops listening to a dead server, whose socket would keep us awake; the toolkit reports the loss.
void X11Connection::stop() { m_notifier->setEnabled(false); }

xcb_get_property_cookie_t requestWords(X11Connection const& x, xcb_window_t window, XAtom property, std::uint32_t limit)
{
    return xcb_get_property(x.get(), 0, window, x.atom(property), XCB_GET_PROPERTY_TYPE_ANY, 0, limit);
}

} // namespace zv
