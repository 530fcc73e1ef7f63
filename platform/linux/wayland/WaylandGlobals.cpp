#include "platform/linux/wayland/WaylandGlobals.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <activation-client.h>
#include <algorithm>
#include <cstring>
#include <foreign-toplevels-client.h>
#include <layer-shell-client.h>
#include <qpa/qplatformnativeinterface.h>
#include <qpa/qplatformscreen.h>
#include <wayland-client.h>

namespace zv {

namespace {

constexpr std::uint32_t layerShellVersion = 4;
constexpr std::uint32_t toplevelsVersion = 3;

QPlatformNativeInterface& native() { return *QGuiApplication::platformNativeInterface(); }

wl_proxy* proxyOf(void* object) { return static_cast<wl_proxy*>(object); }

void nothing(void*, wl_registry*, std::uint32_t) { }

} // namespace

std::unique_ptr<WaylandGlobals> WaylandGlobals::ofToolkit()
{
    if (!QGuiApplication::platformName().startsWith(QLatin1String("wayland")))
        return nullptr;
    auto* display = static_cast<wl_display*>(native().nativeResourceForIntegration("wl_display"));
    return display ? std::unique_ptr<WaylandGlobals>(new WaylandGlobals(display, Connection::toolkits)) : nullptr;
}

std::unique_ptr<WaylandGlobals> WaylandGlobals::connected()
{
    auto* display = wl_display_connect(nullptr);
    return display ? std::unique_ptr<WaylandGlobals>(new WaylandGlobals(display, Connection::own)) : nullptr;
}

WaylandGlobals::WaylandGlobals(wl_display* display, Connection connection)
    : m_display(display)
    , m_connection(connection)
    , m_queue(wl_display_create_queue(display))
{
    auto* wrapper = static_cast<wl_display*>(wl_proxy_create_wrapper(display));
    wl_proxy_set_queue(proxyOf(wrapper), m_queue);
    m_registry = wl_display_get_registry(wrapper);
    wl_proxy_wrapper_destroy(wrapper);
    static wl_registry_listener const listener { announced, nothing };
    wl_registry_add_listener(m_registry, &listener, this);
    roundTrip();
}

/// The toolkit's connection ends with the application object, and with it all that is bound there.
WaylandGlobals::~WaylandGlobals()
{
    if (m_connection == Connection::own)
        wl_display_disconnect(m_display);
}

template <class Object> void WaylandGlobals::bind(Object*& object, void const* description, std::uint32_t name, std::uint32_t version)
{
    if (!object)
        object = static_cast<Object*>(wl_registry_bind(m_registry, name, static_cast<wl_interface const*>(description), version));
}

void WaylandGlobals::announced(void* data, wl_registry*, std::uint32_t name, char const* interface, std::uint32_t version)
{
    auto& self = *static_cast<WaylandGlobals*>(data);
    auto const isNamed = [interface](wl_interface const& known) { return std::strcmp(interface, known.name) == 0; };
    if (isNamed(zwlr_layer_shell_v1_interface))
        self.bind(self.m_layerShell, &zwlr_layer_shell_v1_interface, name, std::min(version, layerShellVersion));
    else if (isNamed(zwlr_foreign_toplevel_manager_v1_interface))
        self.m_toplevels = { name, std::min(version, toplevelsVersion) };
    else if (isNamed(wl_seat_interface)) {
        self.m_seatName = self.m_seat ? self.m_seatName : name;
        self.bind(self.m_seat, &wl_seat_interface, name, 1);
    } else if (isNamed(xdg_activation_v1_interface))
        self.bind(self.m_activation, &xdg_activation_v1_interface, name, 1);
    else if (isNamed(wl_compositor_interface))
        self.bind(self.m_compositor, &wl_compositor_interface, name, 1);
}

zwlr_foreign_toplevel_manager_v1* WaylandGlobals::bindToplevels() const
{
    auto* manager = static_cast<zwlr_foreign_toplevel_manager_v1*>(
        wl_registry_bind(m_registry, m_toplevels.name, &zwlr_foreign_toplevel_manager_v1_interface, m_toplevels.version));
    handOver(manager);
    return manager;
}

wl_seat* WaylandGlobals::bindSeat() const
{
    if (m_seatName == 0)
        return nullptr;
    auto* seat = static_cast<wl_seat*>(wl_registry_bind(m_registry, m_seatName, &wl_seat_interface, 1));
    handOver(seat);
    return seat;
}

void WaylandGlobals::adopt(void* proxy) const { wl_proxy_set_queue(proxyOf(proxy), m_queue); }

void WaylandGlobals::handOver(void* proxy) const
{
    if (m_connection == Connection::toolkits)
        wl_proxy_set_queue(proxyOf(proxy), nullptr);
}

bool WaylandGlobals::roundTrip() const { return wl_display_roundtrip_queue(m_display, m_queue) >= 0; }

void WaylandGlobals::catchUp() const
{
    if (m_connection == Connection::own)
        roundTrip();
}

void WaylandGlobals::flush() const { wl_display_flush(m_display); }

wl_surface* surfaceOf(QWindow& window) { return static_cast<wl_surface*>(native().nativeResourceForWindow("surface", &window)); }

wl_output* outputOf(QScreen& screen) { return static_cast<wl_output*>(native().nativeResourceForScreen("output", &screen)); }

QList<QScreen*> realScreens()
{
    auto screens = QGuiApplication::screens();
    screens.removeIf([](QScreen const* screen) { return screen->handle()->isPlaceholder(); });
    return screens;
}

} // namespace zv
