#include "platform/linux/wayland/LayerSurface.h"

#include "platform/linux/wayland/WaylandGlobals.h"

#include <QScreen>
#include <QWindow>

#include <layer-shell-client.h>
#include <wayland-client.h>

namespace zv {

namespace {

void apply(LayerSurface::Role const& role, zwlr_layer_surface_v1* surface)
{
    zwlr_layer_surface_v1_set_size(surface, static_cast<std::uint32_t>(role.size.width()), static_cast<std::uint32_t>(role.size.height()));
    zwlr_layer_surface_v1_set_anchor(surface, role.edges);
    zwlr_layer_surface_v1_set_exclusive_zone(surface, role.zone);
    zwlr_layer_surface_v1_set_margin(surface, role.top, 0, 0, 0);
    zwlr_layer_surface_v1_set_keyboard_interactivity(surface, static_cast<std::uint32_t>(role.keyboard));
}

} // namespace

LayerSurface::LayerSurface(WaylandGlobals const& globals, QWindow& window, Role const& role)
    : m_window(window)
{
    window.create();
    auto* surface = surfaceOf(window);
    m_surface = zwlr_layer_shell_v1_get_layer_surface(
        globals.layerShell(), surface, outputOf(*window.screen()), static_cast<std::uint32_t>(role.layer), role.purpose);
    globals.adopt(m_surface);
    static zwlr_layer_surface_v1_listener const listener { configured, closed };
    zwlr_layer_surface_v1_add_listener(m_surface, &listener, this);
    apply(role, m_surface);
    wl_surface_commit(surface);
    while (!m_isConfigured && !m_isClosed && globals.roundTrip()) { }
    globals.handOver(m_surface);
}

LayerSurface::~LayerSurface() { zwlr_layer_surface_v1_destroy(m_surface); }

void LayerSurface::configured(void* data, zwlr_layer_surface_v1* surface, std::uint32_t serial, std::uint32_t width, std::uint32_t height)
{
    auto& self = *static_cast<LayerSurface*>(data);
    zwlr_layer_surface_v1_ack_configure(surface, serial);
    self.m_isConfigured = true;
    if (width > 0 && height > 0)
        self.m_window.resize(static_cast<int>(width), static_cast<int>(height));
}

void LayerSurface::closed(void* data, zwlr_layer_surface_v1*)
{
    auto& self = *static_cast<LayerSurface*>(data);
    self.m_isClosed = true;
    if (self.onClosed)
        self.onClosed();
}

} // namespace zv
