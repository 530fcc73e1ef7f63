#pragma once

#include <cstdint>
#include <optional>

namespace zv {

class X11Connection;

/// XKB on a connection: https://www.x.org/releases/current/doc/kbproto/xkbproto.html
struct XkbExtension {
    std::int32_t deviceID = -1; ///< the core keyboard's
    std::uint8_t event = 0; ///< response type of all XKB events

    /// Requests the layout's events, and press-only repeats of held keys; nothing where the
    /// server lacks XKB.
    [[nodiscard]] static std::optional<XkbExtension> setUp(X11Connection const& x);
};

} // namespace zv
