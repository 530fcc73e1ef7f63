#include "platform/linux/overlay/OverlayFrontEnd.h"

#include "platform/linux/overlay/X11OverlayPanels.h"
#include "platform/linux/overlay/X11PointerMonitor.h"
#include "platform/linux/overlay/X11WorkspaceEvents.h"
#include "platform/linux/toolkit/CommandApplication.h"
#include "platform/linux/toolkit/DisplayServer.h"

#include <QGuiApplication>

namespace zv {

namespace {

class X11OverlayFrontEnd : public OverlayFrontEnd {
public:
    X11OverlayFrontEnd(std::unique_ptr<X11Connection> x, double scale)
        : m_x(std::move(x))
        , m_screens(*m_x, scale)
    {
    }
    bool isSupported() const override { return true; }
    AppleMenuOverlayServices services(Timers& timers, Clock& clock) override
    {
        return { m_menuBars, m_screens, m_workspaceEvents, m_pointerMonitor, m_panels, timers, clock };
    }

private:
    std::unique_ptr<X11Connection> m_x;
    X11Screens m_screens; // hears of a change before the menu bars do
    X11MenuBars m_menuBars { *m_x, m_screens };
    X11WorkspaceEvents m_workspaceEvents { *m_x };
    X11PointerMonitor m_pointerMonitor { *m_x, m_screens };
    X11OverlayPanels m_panels { *m_x, m_screens, m_menuBars };
};

/// No screens: the overlay asks for nothing else.
class NoOverlayFrontEnd : public OverlayFrontEnd, MenuBars, Screens, WorkspaceEvents, PointerMonitor, OverlayPanels {
public:
    bool isSupported() const override { return false; }
    AppleMenuOverlayServices services(Timers& timers, Clock& clock) override { return { *this, *this, *this, *this, *this, timers, clock }; }

private:
    std::vector<MenuBar> onScreen() const override { return {}; }
    std::optional<Rect> frame(MenuBarID) const override { return std::nullopt; }
    std::vector<Rect> frames() const override { return {}; }
    std::unique_ptr<Token> watch(std::function<void()>) override { return nullptr; }
    Point location() const override { return {}; }
    std::unique_ptr<OverlayPanel> create(Rect const&, OverlayPanelContent&) override { return nullptr; }
};

} // namespace

std::unique_ptr<OverlayFrontEnd> OverlayFrontEnd::make()
{
    bool const canBeX = !isWaylandSession() && QGuiApplication::platformName() == QLatin1String("xcb");
    auto x = canBeX ? X11Connection::open() : nullptr;
    if (!x)
        return std::make_unique<NoOverlayFrontEnd>();
    return std::make_unique<X11OverlayFrontEnd>(std::move(x), qGuiApp->devicePixelRatio());
}

OverlaySupport OverlayFrontEnd::support()
{
    CommandApplication const application;
    auto const x = isWaylandSession() ? nullptr : X11Connection::open();
    if (!x)
        return OverlaySupport::none;
    X11Screens const screens(*x, 1);
    X11MenuBars const menuBars(*x, screens);
    return menuBars.bars().empty() ? OverlaySupport::noPanel : OverlaySupport::onPanels;
}

} // namespace zv
