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

/// A connection of our own to the X server of $DISPLAY: what is asked and heard over it never
/// waits behind the toolkit's events. Main thread only.
class X11Connection : public QObject {
public:
    using EventHandler = std::function<void(xcb_generic_event_t const&)>;
    using BatchHandler = std::function<void()>;
    /// Ends the subscription when it goes.
    using Token = std::shared_ptr<void>;

    /// Null without an X server.
    [[nodiscard]] static std::unique_ptr<X11Connection> open();
    ~X11Connection() override;

    [[nodiscard]] xcb_connection_t* get() const { return m_connection; }
    [[nodiscard]] xcb_window_t root() const { return m_screen->root; }
    [[nodiscard]] xcb_screen_t const& screen() const { return *m_screen; }
    [[nodiscard]] xcb_atom_t atom(XAtom name) const;
    void flush() const { xcb_flush(m_connection); }

    /// Asks for what the root window tells: its properties, and its children coming and going.
    void watchRoot() const;
    /// Every event, errors left out. A handler may destroy any subscription.
    [[nodiscard]] Token onEvent(EventHandler handler);
    /// After all events that had arrived were handled.
    [[nodiscard]] Token afterEvents(BatchHandler handler);

    /// Handles what has arrived, without waiting.
    void dispatch();

private:
    enum class From { queue, socket };

    X11Connection(xcb_connection_t* connection, xcb_screen_t* screen);
    void dispatch(From source);
    void stop();

    xcb_connection_t* m_connection;
    xcb_screen_t* m_screen;
    mutable std::optional<std::array<xcb_atom_t, static_cast<std::size_t>(XAtom::count)>> m_atoms; ///< once one is needed
    std::vector<std::weak_ptr<EventHandler>> m_eventHandlers;
    std::vector<std::weak_ptr<BatchHandler>> m_batchHandlers;
    QSocketNotifier* m_notifier = nullptr;
};

[[nodiscard]] xcb_get_property_cookie_t requestWords(X11Connection const& x, xcb_window_t window, XAtom property, std::uint32_t limit = 64);

} // namespace zv
