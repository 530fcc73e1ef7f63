#pragma once

#include "platform/linux/x11/X11Connection.h"
#include "platform/menubar/WorkspaceEvents.h"

namespace zv {

/// Changes of the desktop and of the active window, which the window manager announces on the root window.
class X11WorkspaceEvents : public WorkspaceEvents {
public:
    explicit X11WorkspaceEvents(X11Connection& x);

private:
    void handle(xcb_generic_event_t const& event) const;

    X11Connection& m_x;
    X11Connection::Token m_events;
};

} // namespace zv
