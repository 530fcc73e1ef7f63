#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

class QSocketNotifier;

namespace zv {

/// A connection of our own to the X server, with XKB on it. What hotkeys and layout have to
/// say to the server stays apart from the toolkit's connection, whose event queue is its own
/// business. Main thread only.
class XkbConnection {
public:
    using Handler = std::function<void(xcb_generic_event_t const&)>;

    /// Connects to the display of the environment; null where there is none, or none with XKB.
    [[nodiscard]] static std::unique_ptr<XkbConnection> open();
    [[nodiscard]] static bool isThere();
    ~XkbConnection();
    XkbConnection(XkbConnection const&) = delete;
    XkbConnection& operator=(XkbConnection const&) = delete;

    [[nodiscard]] xcb_connection_t* xcb() const { return m_connection.get(); }
    [[nodiscard]] xcb_window_t root() const { return m_root; }
    /// Of the core keyboard.
    [[nodiscard]] std::int32_t deviceID() const { return m_deviceID; }
    /// The response type of all XKB events.
    [[nodiscard]] std::uint8_t xkbEvent() const { return m_xkbEvent; }

    /// Called with every event, for as long as the connection lives.
    void addHandler(Handler handler) { m_handlers.push_back(std::move(handler)); }
    /// Handles what has arrived so far.
    void dispatch();
    /// After waiting for a reply: events that came along with it do not make the socket
    /// readable, so they are handled in the next turn of the loop.
    void dispatchSoon();

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    explicit XkbConnection(xcb_connection_t* connection);
    [[nodiscard]] bool setUp(int screenNumber);
    void useDetectableAutoRepeat() const;
    void selectEvents() const;

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    xcb_window_t m_root = 0;
    std::int32_t m_deviceID = -1;
    std::uint8_t m_xkbEvent = 0;
    std::vector<Handler> m_handlers;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace zv
