#include "platform/linux/overlay/OverlayFrontEnd.h"

#include "platform/linux/overlay/X11OverlayPanels.h"
#include "platform/linux/overlay/X11PointerMonitor.h"
#include "platform/linux/overlay/X11WorkspaceEvents.h"

#include <QGuiApplication>

namespace zv {

namespace {

class X11OverlayFrontEnd : public OverlayFrontEnd {
public:
    explicit X11OverlayFrontEnd(std::unique_ptr<X11Connection> x)
        : m_x(std::move(x))
        , m_screens(*m_x)
    {
    }
    OverlaySeams seams() override
    {
        return { .menuBars = m_menuBars,
            .screens = m_screens,
            .workspaceEvents = m_workspaceEvents,
            .pointerMonitor = m_pointerMonitor,
            .panels = m_panels,
            .visibility = nullptr };
    }
    void pressAt(QPoint point) override { m_panels.pressAt(point); }
    QRect freeAreaOf(QRect const& monitor) const override
    {
        auto const free = m_menuBars.freeAreaOf({ monitor.x(), monitor.y(), monitor.width(), monitor.height() });
        return { free.x, free.y, free.width, free.height };
    }

private:
    std::unique_ptr<X11Connection> m_x;
    X11Screens m_screens; // receives a change before the menu bars do
    X11MenuBars m_menuBars { *m_x, m_screens };
    X11WorkspaceEvents m_workspaceEvents { *m_x };
    X11PointerMonitor m_pointerMonitor { *m_x, m_screens };
    X11OverlayPanels m_panels { *m_x, m_screens, m_menuBars };
};

} // namespace

std::unique_ptr<OverlayFrontEnd> OverlayFrontEnd::make(SessionKind session)
{
    bool const canBeX = session == SessionKind::x11 && QGuiApplication::platformName() == QLatin1String("xcb");
    auto x = canBeX ? X11Connection::open() : nullptr;
    if (!x)
        return nullptr;
    x->watchRoot();
    return std::make_unique<X11OverlayFrontEnd>(std::move(x));
}

OverlaySupport OverlayFrontEnd::support(SessionKind session)
{
    auto const x = session == SessionKind::wayland ? nullptr : X11Connection::open();
    if (!x)
        return OverlaySupport::none;
    X11Screens const screens(*x);
    X11MenuBars const menuBars(*x, screens);
    return menuBars.bars().empty() ? OverlaySupport::noPanel : OverlaySupport::onPanels;
}

} // namespace zv
