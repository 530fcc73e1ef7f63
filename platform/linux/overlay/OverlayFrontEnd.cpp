#include "platform/linux/overlay/OverlayFrontEnd.h"

#include "platform/linux/overlay/X11OverlayPanels.h"
#include "platform/linux/overlay/X11PointerMonitor.h"
#include "platform/linux/overlay/X11WorkspaceEvents.h"

#include <QGuiApplication>
#include <QRgb>

#include <algorithm>
#include <map>

namespace zv {

namespace {

constexpr int shadeStep = 16; ///< of 256: one shade with its gradient
constexpr int darkest = 128;

/// By the colour that most pixels have: a panel is mostly empty.
std::optional<bool> isDark(X11Connection const& x, XMenuBar const& bar)
{
    auto const width = static_cast<std::uint16_t>(bar.rect.width), height = static_cast<std::uint16_t>(bar.rect.height);
    XReply<xcb_get_image_reply_t> const image(
        xcb_get_image_reply(x.get(), xcb_get_image(x.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, bar.window, 0, 0, width, height, ~0U), nullptr));
    if (!image || image->depth < 24)
        return std::nullopt;
    auto const* bytes = xcb_get_image_data(image.get());
    std::map<int, int> shades;
    for (int at = 0; at + 3 < xcb_get_image_data_length(image.get()); at += 4)
        ++shades[qGray(bytes[at + 2], bytes[at + 1], bytes[at]) / shadeStep];
    auto const most = std::ranges::max_element(shades, {}, [](auto const& shade) { return shade.second; });
    return most == shades.end() ? std::nullopt : std::optional(most->first * shadeStep < darkest);
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
        return bars.empty() ? std::nullopt : isDark(*m_x, bars.front());
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
