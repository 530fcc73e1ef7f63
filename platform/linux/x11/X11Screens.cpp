#include "platform/linux/x11/X11Screens.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <xcb/randr.h>

namespace zv {

namespace {

/// A rectangle in the toolkit's coordinates: y grows downwards.
struct Area {
    double x, y, width, height;
};

Area inPoints(XMonitor const& monitor)
{
    return { double(monitor.rect.x), double(monitor.rect.y), monitor.rect.width / monitor.scale, monitor.rect.height / monitor.scale };
}
Area inPixels(XMonitor const& monitor) { return { double(monitor.rect.x), double(monitor.rect.y), double(monitor.rect.width), double(monitor.rect.height) }; }

/// The monitor on which the rectangle begins, or slides onto; `areaOf` has the rectangle's coordinates.
XMonitor const& monitorAt(std::vector<XMonitor> const& monitors, Area const& rect, Area (*areaOf)(XMonitor const&))
{
    auto const distance = [&, y = rect.y + rect.height / 2](XMonitor const& monitor) {
        auto const area = areaOf(monitor);
        double const aside = std::max({ area.x - rect.x, 0.0, rect.x - (area.x + area.width - 1) });
        return std::hypot(aside, std::max({ area.y - y, 0.0, y - (area.y + area.height - 1) }));
    };
    return *std::ranges::min_element(monitors, {}, distance);
}

/// The toolkit may not know the monitor yet.
double scaleOf(XRect const& monitor)
{
    for (auto const* screen : QGuiApplication::screens()) {
        if (screen->geometry().topLeft() == QPoint(monitor.x, monitor.y))
            return screen->devicePixelRatio();
    }
    return qGuiApp ? qGuiApp->devicePixelRatio() : 1;
}

} // namespace

XRect XRect::intersected(XRect const& other) const
{
    int const left = std::max(x, other.x);
    int const top = std::max(y, other.y);
    return { left, top, std::max(0, std::min(right(), other.right()) - left), std::max(0, std::min(bottom(), other.bottom()) - top) };
}

Rect XScreenSpace::toScreen(XRect const& rect) const
{
    auto const& [origin, scale] = monitorAt(monitors, { double(rect.x), double(rect.y), double(rect.width), double(rect.height) }, inPixels);
    auto const primary = inPoints(monitors.front());
    double const left = origin.x + (rect.x - origin.x) / scale, bottom = origin.y + (rect.bottom() - origin.y) / scale;
    return { left - primary.x, primary.y + primary.height - bottom, rect.width / scale, rect.height / scale };
}

Point XScreenSpace::toScreen(int x, int y) const
{
    auto const place = toScreen(XRect { x, y, 0, 0 });
    return { place.x, place.y };
}

XRect XScreenSpace::fromScreen(Rect const& rect) const
{
    auto const primary = inPoints(monitors.front());
    double const left = primary.x + rect.x, top = primary.y + primary.height - rect.maxY();
    auto const& [origin, scale] = monitorAt(monitors, { left, top, rect.width, rect.height }, inPoints);
    auto const pixels = [scale = scale](double points) { return static_cast<int>(std::lround(points * scale)); };
    int const bottom = origin.y + pixels(top + rect.height - origin.y), height = pixels(rect.height);
    return { origin.x + pixels(left - origin.x), bottom - height, pixels(rect.width), height };
}

double XScreenSpace::scaleAt(XRect const& rect) const
{
    return monitorAt(monitors, { double(rect.x), double(rect.y), double(rect.width), double(rect.height) }, inPixels).scale;
}

X11Screens::X11Screens(X11Connection& x)
    : m_x(x)
{
    auto const* extension = xcb_get_extension_data(x.get(), &xcb_randr_id);
    if (extension && extension->present) {
        m_firstRandrEvent = extension->first_event;
        XReply<xcb_randr_query_version_reply_t> const version(xcb_randr_query_version_reply(x.get(), xcb_randr_query_version(x.get(), 1, 5), nullptr));
        xcb_randr_select_input(
            x.get(), x.root(), XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE | XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE);
    }
    m_monitors = readMonitors();
    m_events = x.onEvent([this](auto const& event) { handle(event); });
    m_batch = x.afterEvents([this] { refresh(); });
}

std::vector<Rect> X11Screens::frames() const
{
    auto const here = space();
    std::vector<Rect> frames;
    frames.reserve(m_monitors.size());
    for (auto const& monitor : m_monitors)
        frames.push_back(here.toScreen(monitor));
    return frames;
}

XScreenSpace X11Screens::space() const
{
    XScreenSpace space;
    for (auto const& monitor : m_monitors)
        space.monitors.push_back({ monitor, scaleOf(monitor) });
    return space;
}

void X11Screens::handle(xcb_generic_event_t const& event)
{
    auto const type = event.response_type & 0x7f;
    bool const isRandr = m_firstRandrEvent && (type == m_firstRandrEvent + XCB_RANDR_SCREEN_CHANGE_NOTIFY || type == m_firstRandrEvent + XCB_RANDR_NOTIFY);
    bool const isRoot = type == XCB_CONFIGURE_NOTIFY && reinterpret_cast<xcb_configure_notify_event_t const&>(event).window == m_x.root();
    // Manually divided monitors cause no event: check when a panel may have come for one.
    bool const isClientList = type == XCB_PROPERTY_NOTIFY && reinterpret_cast<xcb_property_notify_event_t const&>(event).atom == m_x.atom(XAtom::netClientList);
    m_isStale = m_isStale || isRandr || isRoot || isClientList;
}

void X11Screens::refresh()
{
    if (!m_isStale)
        return;
    m_isStale = false;
    auto monitors = readMonitors();
    if (monitors == m_monitors)
        return;
    m_monitors = std::move(monitors);
    if (auto const changed = onChanged)
        changed();
}

std::vector<XRect> X11Screens::readMonitors() const
{
    XReply<xcb_randr_get_monitors_reply_t> const reply(
        m_firstRandrEvent ? xcb_randr_get_monitors_reply(m_x.get(), xcb_randr_get_monitors(m_x.get(), m_x.root(), 1), nullptr) : nullptr);
    std::vector<XRect> monitors;
    for (auto at = reply ? xcb_randr_get_monitors_monitors_iterator(reply.get()) : xcb_randr_monitor_info_iterator_t {}; at.rem > 0;
         xcb_randr_monitor_info_next(&at)) {
        XRect const rect { at.data->x, at.data->y, at.data->width, at.data->height };
        // Mirrored outputs count as one screen.
        if (std::find(monitors.begin(), monitors.end(), rect) == monitors.end())
            monitors.insert(at.data->primary ? monitors.begin() : monitors.end(), rect);
    }
    if (monitors.empty())
        monitors.push_back({ 0, 0, m_x.screen().width_in_pixels, m_x.screen().height_in_pixels });
    return monitors;
}

} // namespace zv
