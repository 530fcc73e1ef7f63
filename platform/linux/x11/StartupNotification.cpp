#include "platform/linux/x11/StartupNotification.h"

#include "platform/linux/x11/XReply.h"

#include <algorithm>
#include <atomic>
#include <memory>
#include <unistd.h>

namespace zv {

namespace {

constexpr std::size_t bytesInMessage = 20;

struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};

/// A value in quotes, with what would end it escaped.
std::string quoted(std::string const& text)
{
    std::string value = "\"";
    for (char const c : text) {
        if (c == '"' || c == '\\')
            value += '\\';
        value += c;
    }
    return value + '"';
}

/// The server's time, from the notice of a change that changes nothing.
xcb_timestamp_t serverTime(xcb_connection_t* connection, xcb_window_t window)
{
    xcb_change_property(connection, XCB_PROP_MODE_APPEND, window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8, 0, nullptr);
    xcb_flush(connection);
    while (XReply<xcb_generic_event_t> const event { xcb_wait_for_event(connection) }) {
        if ((event->response_type & 0x7F) == XCB_PROPERTY_NOTIFY)
            return reinterpret_cast<xcb_property_notify_event_t const*>(event.get())->time;
    }
    return XCB_CURRENT_TIME;
}

/// Sends the text, which ends with a null character, in pieces.
void broadcast(xcb_connection_t* connection, xcb_window_t root, xcb_window_t window, std::string const& text)
{
    auto const names = internAtoms<2>(connection, { "_NET_STARTUP_INFO_BEGIN", "_NET_STARTUP_INFO" });
    for (std::size_t offset = 0; offset <= text.size(); offset += bytesInMessage) {
        xcb_client_message_event_t event {};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 8;
        event.window = window;
        event.type = names[offset == 0 ? 0 : 1];
        std::copy_n(text.data() + offset, std::min(bytesInMessage, text.size() - offset), event.data.data8);
        xcb_send_event(connection, 0, root, XCB_EVENT_MASK_PROPERTY_CHANGE, reinterpret_cast<char const*>(&event));
    }
}

} // namespace

std::string startupMessage(std::string const& id, std::string const& applicationName)
{
    return "new: ID=" + quoted(id) + " NAME=" + quoted(applicationName) + " SCREEN=0";
}

std::string beginStartup(std::string const& applicationName)
{
    static std::atomic<int> count = 0;
    std::unique_ptr<xcb_connection_t, Disconnect> const connection(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(connection.get()) != 0)
        return {};
    auto const* const screen = xcb_setup_roots_iterator(xcb_get_setup(connection.get())).data;
    auto const window = xcb_generate_id(connection.get());
    std::uint32_t const values[] = { 1, XCB_EVENT_MASK_PROPERTY_CHANGE };
    xcb_create_window(connection.get(), XCB_COPY_FROM_PARENT, window, screen->root, -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT,
        XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    auto const time = serverTime(connection.get(), window);
    auto const id = "zanthe-vell-" + std::to_string(::getpid()) + "-" + std::to_string(++count) + "_TIME" + std::to_string(time);
    broadcast(connection.get(), screen->root, window, startupMessage(id, applicationName));
    xcb_flush(connection.get());
    return id;
}

} // namespace zv
