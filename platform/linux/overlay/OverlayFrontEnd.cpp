#include "platform/linux/overlay/OverlayFrontEnd.h"

#include "platform/linux/overlay/PanelCorner.h"
#include "platform/linux/overlay/X11OverlayPanels.h"
#include "platform/linux/overlay/X11PointerMonitor.h"
#include "platform/linux/overlay/X11WorkspaceEvents.h"

#include <QGuiApplication>

#include <cstring>
#include <vector>

namespace zv {

namespace {

std::optional<bool> isPanelDark(X11Connection const& x, XMenuBar const& bar)
{
    auto const width = static_cast<std::uint16_t>(bar.rect.width), height = static_cast<std::uint16_t>(bar.rect.height);
    XReply<xcb_get_image_reply_t> const image(
        xcb_get_image_reply(x.get(), xcb_get_image(x.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, bar.window, 0, 0, width, height, ~0U), nullptr));
    if (!image || image->depth < 24)
        return std::nullopt;
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(xcb_get_image_data_length(image.get())) / sizeof(std::uint32_t));
    std::memcpy(pixels.data(), xcb_get_image_data(image.get()), pixels.size() * sizeof(std::uint32_t));
    return isDark(pixels);
}

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
    std::optional<bool> isPanelDark() const override
    {
        auto const& bars = m_menuBars.bars();
        return bars.empty() ? std::nullopt : zv::isPanelDark(*m_x, bars.front());
    }
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
