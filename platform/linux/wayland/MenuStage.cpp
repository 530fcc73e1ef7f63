#include "platform/linux/wayland/MenuStage.h"

#include "platform/linux/wayland/WaylandGlobals.h"

#include <QEnterEvent>
#include <QScreen>
#include <QWindow>

#include <utility>
#include <wayland-client.h>

namespace zv {

MenuStage::MenuStage(WaylandGlobals const& globals, QScreen& screen)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | (globals.layerShell() ? Qt::BypassWindowManagerHint : Qt::WindowType()))
    , m_globals(globals)
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_NoSystemBackground);
    setMouseTracking(true);
    setWindowTitle(QStringLiteral("Zanthe Vell"));
    setGeometry(screen.geometry());
}

/// The role goes before the surface that has it.
MenuStage::~MenuStage()
{
    m_role.reset();
    hide();
}

bool MenuStage::map()
{
    if (m_globals.layerShell())
        return mapOnLayer();
    showMaximized();
    activateWindow(); // with the token of what opens the menu
    return true;
}

bool MenuStage::mapOnLayer()
{
    winId();
    m_role = std::make_unique<LayerSurface>(m_globals, *windowHandle(),
        LayerSurface::Role { .layer = LayerSurface::Layer::overlay, .keyboard = LayerSurface::Keyboard::exclusive, .purpose = "zanthe-vell-menu" });
    if (!m_role->isConfigured())
        return false;
    m_role->onClosed = [this] {
        if (onClosed)
            onClosed();
    };
    show();
    return true;
}

QPoint MenuStage::origin() const { return windowHandle()->geometry().topLeft(); }

void MenuStage::commit()
{
    if (auto* surface = surfaceOf(*windowHandle()))
        wl_surface_commit(surface);
}

void MenuStage::letThrough(bool all)
{
    auto* surface = surfaceOf(*windowHandle());
    if (!surface || !m_globals.compositor())
        return;
    auto* nothing = all ? wl_compositor_create_region(m_globals.compositor()) : nullptr;
    wl_surface_set_input_region(surface, nothing);
    if (nothing)
        wl_region_destroy(nothing);
    wl_surface_commit(surface);
}

void MenuStage::enterEvent(QEnterEvent* event) { pointerIsAt(event->position().toPoint()); }

void MenuStage::mouseMoveEvent(QMouseEvent* event) { pointerIsAt(event->position().toPoint()); }

void MenuStage::pointerIsAt(QPoint local)
{
    if (onPointer)
        onPointer(origin() + local);
}

/// Paints nothing: a translucent window is transparent where nothing was painted. Nor again, which the toolkit does
/// twice: clearing and showing a whole screen takes longer than the menu.
void MenuStage::paintEvent(QPaintEvent*)
{
    QMetaObject::invokeMethod(
        this, [this] { setUpdatesEnabled(false); }, Qt::QueuedConnection);
    if (!std::exchange(m_isPainted, true) && onPainted)
        onPainted();
}

void MenuStage::resizeEvent(QResizeEvent*) { setUpdatesEnabled(true); }

} // namespace zv
