#include "platform/linux/wayland/ActivationTokens.h"

#include "platform/linux/wayland/WaylandGlobals.h"

#include <activation-client.h>
#include <utility>

namespace zv {

void ActivationTokens::renew(wl_surface* surface, std::uint32_t serial)
{
    (void)take();
    if (!m_globals.activation() || !surface)
        return;
    static xdg_activation_token_v1_listener const listener { done };
    auto* request = xdg_activation_v1_get_activation_token(m_globals.activation());
    xdg_activation_token_v1_add_listener(request, &listener, this);
    xdg_activation_token_v1_set_serial(request, serial, m_globals.seat());
    xdg_activation_token_v1_set_surface(request, surface);
    xdg_activation_token_v1_commit(request);
    (void)m_globals.roundTrip();
    xdg_activation_token_v1_destroy(request);
}

void ActivationTokens::done(void* self, xdg_activation_token_v1*, char const* token)
{
    auto& tokens = *static_cast<ActivationTokens*>(self);
    std::lock_guard const guard(tokens.m_mutex);
    tokens.m_token = token;
}

std::string ActivationTokens::take()
{
    std::lock_guard const guard(m_mutex);
    return std::exchange(m_token, {});
}

} // namespace zv
