#pragma once

#include "tests/desktop/PrivateX.h"

namespace zv::desktop {

/// A bare panel of another program, to be moved.
class DockWindow : public XClient {
public:
    DockWindow(int x, int y, int width, int height)
        : m_window(xcb_generate_id(xcb()))
    {
        std::uint32_t const gray = 0xd0d0d0;
        xcb_create_window(xcb(), XCB_COPY_FROM_PARENT, m_window, root(), static_cast<std::int16_t>(x), static_cast<std::int16_t>(y),
            static_cast<std::uint16_t>(width), static_cast<std::uint16_t>(height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL,
            &gray);
        xcb_atom_t const dock = atom("_NET_WM_WINDOW_TYPE_DOCK");
        xcb_change_property(xcb(), XCB_PROP_MODE_REPLACE, m_window, atom("_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM, 32, 1, &dock);
        std::uint32_t const positionHint[18] = { 1 | 4, static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y) };
        xcb_change_property(xcb(), XCB_PROP_MODE_REPLACE, m_window, XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS, 32, 18, positionHint);
        xcb_map_window(xcb(), m_window);
        xcb_flush(xcb());
    }

    void moveTo(int x, int y)
    {
        std::uint32_t const place[] = { static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y) };
        xcb_configure_window(xcb(), m_window, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, place);
        xcb_flush(xcb());
    }

private:
    xcb_window_t m_window;
};

} // namespace zv::desktop
