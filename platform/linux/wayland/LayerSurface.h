#pragma once

#include <QSize>

#include <cstdint>
#include <functional>

struct zwlr_layer_surface_v1;
class QWindow;

namespace zv {

class WaylandGlobals;

/// Makes a window of the toolkit a layer surface: a part of the desktop, which the compositor
/// puts at the edges of a screen. The window has Qt::BypassWindowManagerHint, by which the
/// toolkit leaves its surface without a role, is at the screen's place, and was not shown yet.
class LayerSurface {
public:
    /// Numbers of the protocol.
    enum class Layer : std::uint32_t { background = 0, bottom = 1, top = 2, overlay = 3 };
    enum class Keyboard : std::uint32_t { none = 0, exclusive = 1 };
    enum Edge : std::uint32_t { topEdge = 1, bottomEdge = 2, leftEdge = 4, rightEdge = 8, allEdges = 15 };

    struct Role {
        Layer layer = Layer::top;
        std::uint32_t edges = allEdges; ///< of Edge
        QSize size { 0, 0 }; ///< 0 is as far as the edges reach
        int top = 0; ///< margin
        std::int32_t zone = -1; ///< −1 lies over panels, 0 keeps clear of them
        Keyboard keyboard = Keyboard::none;
        char const* purpose = "zanthe-vell";
    };

    /// Waits until the compositor has told the size, which the window then has. Both outlive it.
    LayerSurface(WaylandGlobals const& globals, QWindow& window, Role const& role);
    ~LayerSurface();
    LayerSurface(LayerSurface const&) = delete;
    LayerSurface& operator=(LayerSurface const&) = delete;

    /// False when the compositor refused it: then the window must not be shown.
    [[nodiscard]] bool isConfigured() const { return m_isConfigured && !m_isClosed; }

    /// Called when the compositor takes the surface away, as when its output has gone.
    std::function<void()> onClosed;

private:
    static void configured(void* self, zwlr_layer_surface_v1* surface, std::uint32_t serial, std::uint32_t width, std::uint32_t height);
    static void closed(void* self, zwlr_layer_surface_v1* surface);

    QWindow& m_window;
    zwlr_layer_surface_v1* m_surface;
    bool m_isConfigured = false;
    bool m_isClosed = false;
};

} // namespace zv
