#include "platform/linux/overlay/X11WorkspaceEvents.h"

namespace zv {

X11WorkspaceEvents::X11WorkspaceEvents(X11Connection& x)
    : m_x(x)
    , m_events(x.onEvent([this](auto const& event) { handle(event); }))
{
}

void X11WorkspaceEvents::handle(xcb_generic_event_t const& event) const
{
    if ((event.response_type & 0x7f) != XCB_PROPERTY_NOTIFY)
        return;
    auto const& change = reinterpret_cast<xcb_property_notify_event_t const&>(event);
    if (change.window != m_x.root())
        return;
    if (change.atom == m_x.atom(XAtom::netCurrentDesktop) && onActiveSpaceChanged)
        onActiveSpaceChanged();
    if (change.atom == m_x.atom(XAtom::netActiveWindow) && onApplicationActivated)
        onApplicationActivated();
}

} // namespace zv
