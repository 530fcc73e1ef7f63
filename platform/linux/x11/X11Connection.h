#pragma once

#include <QObject>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <memory>
#include <vector>
#include <xcb/xcb.h>

class QSocketNotifier;

namespace zv {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
/// What an xcb call returned; null after an error.
template <class T> using XReply = std::unique_ptr<T, FreeReply>;

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

/// A connection of our own to the X server of $DISPLAY: what the overlay asks and hears
/// never waits behind the toolkit's events. Main thread only.
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
    [[nodiscard]] xcb_atom_t atom(XAtom name) const { return m_atoms[static_cast<std::size_t>(name)]; }
    void flush() const { xcb_flush(m_connection); }

    /// Every event, errors left out. A handler may destroy any subscription.
    [[nodiscard]] Token onEvent(EventHandler handler);
    /// After all events that had arrived were handled.
    [[nodiscard]] Token afterEvents(BatchHandler handler);

    /// Handles what has arrived, without waiting.
    void dispatch();

private:
    enum class From { queue, socket };

    X11Connection(xcb_connection_t* connection, xcb_screen_t* screen);
    void internAtoms();
    void selectRootEvents() const;
    void dispatch(From source);
    void stop();

    xcb_connection_t* m_connection;
    xcb_screen_t* m_screen;
    std::array<xcb_atom_t, static_cast<std::size_t>(XAtom::count)> m_atoms {};
    std::vector<std::weak_ptr<EventHandler>> m_eventHandlers;
    std::vector<std::weak_ptr<BatchHandler>> m_batchHandlers;
    QSocketNotifier* m_notifier = nullptr;
};

/// A property's value as 32-bit words; empty when absent or of another format.
[[nodiscard]] std::vector<std::uint32_t> wordsOf(xcb_get_property_reply_t const* reply);
[[nodiscard]] xcb_get_property_cookie_t requestWords(X11Connection const& x, xcb_window_t window, XAtom property, std::uint32_t limit = 64);

} // namespace zv
