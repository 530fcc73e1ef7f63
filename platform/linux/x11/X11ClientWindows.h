#pragma once

#include "platform/linux/apps/ClientWindows.h"

#include <xcb/xcb.h>

#include <array>
#include <optional>
#include <vector>

namespace zv {

/// The windows that the window manager lists. Main thread only.
class X11ClientWindows : public ClientWindows {
public:
    /// The connection outlives this.
    X11ClientWindows(xcb_connection_t* connection, xcb_window_t root);

    /// Nothing without a window manager's list. Two round trips, however many windows.
    [[nodiscard]] List list() const;
    void withList(std::function<void(List)> done) override { done(list()); }
    void activate(xcb_window_t window) override;
    void close(xcb_window_t window) override;

private:
    enum Name {
        clientList,
        clientListStacking,
        activeWindow,
        closeWindow,
        windowType,
        windowState,
        skipTaskbar,
        pid,
        title,
        gtkApplicationId,
        utf8String,
        nameCount
    };
    static constexpr int typeCount = 8;

    void ask(xcb_window_t window, Name message, std::array<std::uint32_t, 2> data) const;
    [[nodiscard]] std::vector<xcb_window_t> managedWindows() const;
    [[nodiscard]] bool isOrdinary(std::vector<xcb_atom_t> const& types, std::vector<xcb_atom_t> const& states) const;

    xcb_connection_t* m_connection;
    xcb_window_t m_root;
    std::array<xcb_atom_t, nameCount> m_atoms {};
    std::array<xcb_atom_t, typeCount> m_foreignTypes {}; ///< docks, desktops, menus …
};

} // namespace zv
