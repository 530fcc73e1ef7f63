#pragma once

#include <QList>

#include <cstdint>
#include <memory>
#include <string_view>

struct wl_compositor;
struct wl_display;
struct wl_event_queue;
struct wl_output;
struct wl_proxy;
struct wl_registry;
struct wl_seat;
struct wl_surface;
struct xdg_activation_v1;
struct zwlr_foreign_toplevel_manager_v1;
struct zwlr_layer_shell_v1;
class QScreen;
class QWindow;

namespace zv {

/// What the compositor offers beside what the toolkit uses, on the toolkit's connection. It is
/// bound in a queue of our own, so that waiting for an answer runs none of the toolkit's events.
class WaylandGlobals {
public:
    /// Null unless the toolkit draws on Wayland. Takes the application object.
    [[nodiscard]] static std::unique_ptr<WaylandGlobals> ofToolkit();
    /// Over a connection of its own; null where no compositor answers.
    [[nodiscard]] static std::unique_ptr<WaylandGlobals> connected();
    ~WaylandGlobals();
    WaylandGlobals(WaylandGlobals const&) = delete;
    WaylandGlobals& operator=(WaylandGlobals const&) = delete;

    /// These are null where the compositor lacks them.
    [[nodiscard]] zwlr_layer_shell_v1* layerShell() const { return m_layerShell; }
    [[nodiscard]] bool hasToplevels() const { return m_toplevels.name != 0; }
    [[nodiscard]] wl_seat* seat() const { return m_seat; }
    [[nodiscard]] wl_compositor* compositor() const { return m_compositor; }

    /// The manager of windows, which tells of them at once: its user listens before any event is read.
    [[nodiscard]] zwlr_foreign_toplevel_manager_v1* bindToplevels() const;

    /// The seat once more, whose events come among the toolkit's own; null where there is none.
    [[nodiscard]] wl_seat* bindSeat() const;
    /// Null where the compositor gives no tokens for coming to the front.
    [[nodiscard]] xdg_activation_v1* activation() const { return m_activation; }

    /// Has the object's events come in our queue, to be waited for, …
    void adopt(void* proxy) const;
    /// … or among the toolkit's own.
    void handOver(void* proxy) const;
    /// Waits for the answers to all that was sent; false when the connection is lost.
    bool roundTrip() const;
    /// The same on a connection of our own; on the toolkit's, events come by themselves.
    void catchUp() const;
    void flush() const;

private:
    enum class Connection { toolkits, own };
    struct Announced {
        std::uint32_t name = 0; ///< 0 for nothing
        std::uint32_t version = 0;
    };
    WaylandGlobals(wl_display* display, Connection connection);

    static void announced(void* self, wl_registry* registry, std::uint32_t name, char const* interface, std::uint32_t version);
    template <class Object> void bind(Object*& object, void const* description, std::uint32_t name, std::uint32_t version);

    wl_display* m_display;
    Connection m_connection;
    wl_event_queue* m_queue = nullptr;
    wl_registry* m_registry = nullptr;
    zwlr_layer_shell_v1* m_layerShell = nullptr;
    Announced m_toplevels;
    wl_seat* m_seat = nullptr;
    std::uint32_t m_seatName = 0;
    xdg_activation_v1* m_activation = nullptr;
    wl_compositor* m_compositor = nullptr;
};

/// The toolkit's objects of the protocol; null while there is none.
[[nodiscard]] wl_surface* surfaceOf(QWindow& window);
[[nodiscard]] wl_output* outputOf(QScreen& screen);
/// The screens that are there: while there is none, the toolkit makes one up, which has no output.
[[nodiscard]] QList<QScreen*> realScreens();

} // namespace zv
