#pragma once

#include <cstdint>
#include <optional>

namespace zv {

class X11Connection;

/// XKB on a connection: https://www.x.org/releases/current/doc/kbproto/xkbproto.html
struct XkbExtension {
    std::int32_t deviceID = -1; ///< of the core keyboard
    std::uint8_t event = 0; ///< the response type of all XKB events

    /// Asks for the events of the layout, and for a held key to repeat its press alone; nothing
    /// where the server has no XKB.
    [[nodiscard]] static std::optional<XkbExtension> setUp(X11Connection const& x);
};

} // namespace zv
