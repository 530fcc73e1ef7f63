#pragma once

#include <cstdint>
#include <mutex>
#include <string>

struct wl_surface;
struct xdg_activation_token_v1;

namespace zv {

class WaylandGlobals;

/// The compositor's tokens, by which what the user chose in a menu may come to the front (xdg-activation).
class ActivationTokens {
public:
    explicit ActivationTokens(WaylandGlobals const& globals)
        : m_globals(globals)
    {
    }

    /// Gets one while the surface has the keyboard, by the serial of what was done in it. Main thread; waits for the
    /// answer, a millisecond.
    void renew(wl_surface* surface, std::uint32_t serial);
    /// The last one, which is good for one launch; empty when there is none. Any thread.
    [[nodiscard]] std::string take();

private:
    static void done(void* self, xdg_activation_token_v1* request, char const* token);

    WaylandGlobals const& m_globals;
    std::mutex m_mutex; ///< guards the token
    std::string m_token;
};

} // namespace zv
