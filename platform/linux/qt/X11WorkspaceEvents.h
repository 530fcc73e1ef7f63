#pragma once

#include "platform/WorkspaceEvents.h"
#include "platform/linux/qt/X11Connection.h"

namespace zv {

/// What the window manager tells on the root window: another desktop, another active window.
class X11WorkspaceEvents : public WorkspaceEvents {
public:
    explicit X11WorkspaceEvents(X11Connection& x);

private:
    void handle(xcb_generic_event_t const& event) const;

    X11Connection& m_x;
    X11Connection::Token m_events;
};

} // namespace zv
