#pragma once

#include "platform/linux/x11/XReply.h"

#include <QObject>

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QSocketNotifier;

namespace zv {

enum class XAtom {
    netClientList,
    netClientListStacking,
    netActiveWindow,
    netCurrentDesktop,
    netWmWindowType,
    netWmWindowTypeDock,
    netWmState,
    netWmStateFullscreen,
    netWmStrutPartial,
    netWmStrut,
    netSupportingWmCheck,
    count,
};

/// Our own connection to the X server of $DISPLAY: its requests and events never wait behind the
/// toolkit's. Main thread only.
class X11Connection : public QObject {
public:
    using EventHandler = std::function<void(xcb_generic_event_t const&)>;
    using BatchHandler = std::function<void()>;
    /// Ends the subscription on destruction.
    using Token = std::shared_ptr<void>;

    /// Null without an X server.
    [[nodiscard]] static std::unique_ptr<X11Connection> open();
    ~X11Connection() override;

    [[nodiscard]] xcb_connection_t* get() const { return m_connection; }
    [[nodiscard]] xcb_window_t root() const { return m_screen->root; }
    [[nodiscard]] xcb_screen_t const& screen() const { return *m_screen; }
    [[nodiscard]] xcb_atom_t atom(XAtom name) const;
    void flush() const { xcb_flush(m_connection); }

    /// Selects the root window's events: property changes, and children coming and going.
    void watchRoot() const;
    /// Subscribes to all events, errors excluded. A handler may destroy any subscription.
    [[nodiscard]] Token onEvent(EventHandler handler);
    /// Called after all arrived events were handled.
    [[nodiscard]] Token afterEvents(BatchHandler handler);

    /// Handles arrived events, without waiting.
    void dispatch();

private:
    enum class From { queue, socket };

    X11Connection(xcb_connection_t* connection, xcb_screen_t* screen);
    void dispatch(From source);
    void stop();

    xcb_connection_t* m_connection;
    xcb_screen_t* m_screen;
    mutable std::optional<std::array<xcb_atom_t, static_cast<std::size_t>(XAtom::count)>> m_atoms; ///< interned at the first use
    std::vector<std::weak_ptr<EventHandler>> m_eventHandlers;
    std::vector<std::weak_ptr<BatchHandler>> m_batchHandlers;
    QSocketNotifier* m_notifier = nullptr;
};

[[nodiscard]] xcb_get_property_cookie_t requestWords(X11Connection const& x, xcb_window_t window, XAtom property, std::uint32_t limit = 64);

} // namespace zv
