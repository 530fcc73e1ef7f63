#include "platform/linux/x11/X11Screens.h"

#include <algorithm>
#include <cmath>
#include <xcb/randr.h>

namespace zv {

XRect XRect::intersected(XRect const& other) const
{
    int const left = std::max(x, other.x);
    int const top = std::max(y, other.y);
    return { left, top, std::max(0, std::min(right(), other.right()) - left), std::max(0, std::min(bottom(), other.bottom()) - top) };
}

Rect XScreenSpace::toScreen(XRect const& rect) const
{
    return { (rect.x - primary.x) / scale, (primary.bottom() - rect.bottom()) / scale, rect.width / scale, rect.height / scale };
}

Point XScreenSpace::toScreen(int x, int y) const { return { (x - primary.x) / scale, (primary.bottom() - y) / scale }; }

XRect XScreenSpace::fromScreen(Rect const& rect) const
{
    auto const pixels = [this](double points) { return static_cast<int>(std::lround(points * scale)); };
    return { primary.x + pixels(rect.x), primary.bottom() - pixels(rect.maxY()), pixels(rect.width), pixels(rect.height) };
}

X11Screens::X11Screens(X11Connection& x, double scale)
    : m_x(x)
    , m_scale(scale)
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

XScreenSpace X11Screens::space() const { return { m_monitors.empty() ? XRect {} : m_monitors.front(), m_scale }; }

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
