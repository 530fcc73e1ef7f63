#pragma once

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <xcb/xcb.h>

namespace zv::desktop {

/// A bare panel of another program, to be moved.
class DockWindow {
public:
    DockWindow(int x, int y, int width, int height)
        : m_connection(xcb_connect(nullptr, nullptr))
        , m_window(xcb_generate_id(m_connection))
    {
        auto const* screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
        std::uint32_t const gray = 0xd0d0d0;
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, screen->root, static_cast<std::int16_t>(x), static_cast<std::int16_t>(y),
            static_cast<std::uint16_t>(width), static_cast<std::uint16_t>(height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL,
            &gray);
        xcb_atom_t const dock = atom("_NET_WM_WINDOW_TYPE_DOCK");
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, atom("_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM, 32, 1, &dock);
        std::uint32_t const positionHint[18] = { 1 | 4, static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y) };
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS, 32, 18, positionHint);
        xcb_map_window(m_connection, m_window);
        xcb_flush(m_connection);
    }
    ~DockWindow() { xcb_disconnect(m_connection); }
    DockWindow(DockWindow const&) = delete;
    DockWindow& operator=(DockWindow const&) = delete;

    void moveTo(int x, int y)
    {
        std::uint32_t const place[] = { static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y) };
        xcb_configure_window(m_connection, m_window, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, place);
        xcb_flush(m_connection);
    }

private:
    [[nodiscard]] xcb_atom_t atom(char const* name) const
    {
        auto* reply = xcb_intern_atom_reply(m_connection, xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(std::strlen(name)), name), nullptr);
        auto const found = reply ? reply->atom : xcb_atom_t { XCB_ATOM_NONE };
        std::free(reply);
        return found;
    }

    xcb_connection_t* m_connection;
    xcb_window_t m_window;
};

} // namespace zv::desktop
