#include "platform/linux/overlay/X11LogoWindow.h"

#include "platform/linux/overlay/LogoCanvas.h"

#include <QTransform>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <xcb/damage.h>
#include <xcb/shape.h>

namespace zv {

namespace {

/// Pauses while a starting panel draws itself piece by piece: look until two looks agree.
constexpr std::array<int, 6> kPausesBetweenLooks { 60, 120, 250, 500, 1000, 2000 }; // milliseconds
/// A picture without an end may be a lit button: give it time to go out.
constexpr std::size_t kLooksAtAWord = 4;
constexpr int kLookWidth = 480; ///< enough to tell the background from the items on it
constexpr std::uint32_t kOpaque = 0xff000000;

XRect united(XRect const& a, XRect const& b)
{
    int const x = std::min(a.x, b.x), y = std::min(a.y, b.y);
    return { x, y, std::max(a.right(), b.right()) - x, std::max(a.bottom(), b.bottom()) - y };
}

QPointF centreOf(XRect const& rect) { return { rect.x + rect.width / 2.0, rect.y + rect.height / 2.0 }; }

XRect centredOn(QPointF centre, double width, double height)
{
    int const left = static_cast<int>(std::floor(centre.x() - width / 2)), top = static_cast<int>(std::floor(centre.y() - height / 2));
    return { left, top, static_cast<int>(std::ceil(centre.x() + width / 2)) - left, static_cast<int>(std::ceil(centre.y() + height / 2)) - top };
}

PanelPixels transposed(PanelPixels const& from)
{
    PanelPixels pixels { from.height, from.width, {} };
    pixels.pixels.reserve(from.pixels.size());
    for (int y = 0; y < pixels.height; ++y) {
        for (int x = 0; x < pixels.width; ++x)
            pixels.pixels.push_back(from.at(y, x));
    }
    return pixels;
}

bool isWider(PanelCorner const& one, PanelCorner const& other) { return one.picture && other.picture && one.picture->width > other.picture->width; }

std::uint8_t firstDamageEvent(X11Connection const& x)
{
    auto const* extension = xcb_get_extension_data(x.get(), &xcb_damage_id);
    if (!extension || !extension->present)
        return 0;
    XReply<xcb_damage_query_version_reply_t> const version(xcb_damage_query_version_reply(x.get(), xcb_damage_query_version(x.get(), 1, 1), nullptr));
    return version ? extension->first_event : 0;
}

} // namespace

X11LogoWindow::X11LogoWindow(X11Connection& x, xcb_window_t panel, Geometry const& geometry, OverlayPanelContent& content, PanelCorners& known)
    : m_x(x)
    , m_panel(panel)
    , m_geometry(geometry)
    , m_content(content)
    , m_known(known)
    , m_events(x.onEvent([this](auto const& event) { handle(event); }))
    , m_batch(x.afterEvents([this] { followBackground(); }))
{
    XReply<xcb_get_geometry_reply_t> const reply(xcb_get_geometry_reply(x.get(), xcb_get_geometry(x.get(), panel), nullptr));
    m_depth = reply ? reply->depth : 0;
    m_lookAgain.setSingleShot(true);
    QObject::connect(&m_lookAgain, &QTimer::timeout, [this] { look(); });
}

X11LogoWindow::~X11LogoWindow()
{
    remove();
    m_x.flush();
}

void X11LogoWindow::update()
{
    bool const isReadable = m_depth == 24 || m_depth == 32; // a pixel is a 32-bit word
    auto const logo = isReadable ? wantedLogo() : std::nullopt;
    if (!logo) {
        remove();
        m_known.erase(m_panel); // look again when it is switched on again
        m_corner.reset();
        m_lookAgain.stop();
        if (onMeasured)
            onMeasured();
        return;
    }
    m_logo = *logo;
    if (m_window != XCB_NONE) {
        show();
    } else if (auto const known = m_known.find(m_panel); known != m_known.end() && known->second.panel == m_geometry.panel) {
        settle(known->second.corner);
    } else if (!m_lookAgain.isActive()) {
        m_looks = 0;
        look();
    }
}

std::optional<Rect> X11LogoWindow::wantedLogo() const
{
    QImage scratch(1, 1, QImage::Format_ARGB32_Premultiplied);
    LogoCanvas canvas(scratch, {}, 1);
    m_content.draw(&canvas, m_geometry.viewHeight);
    auto logo = canvas.logoRect();
    if (logo && m_geometry.stands)
        std::swap(logo->width, logo->height);
    return logo;
}

void X11LogoWindow::look()
{
    auto const pixels = readPixels({ 0, 0, std::min(turnedPanel().width, kLookWidth), turnedPanel().height });
    bool const isLast = m_looks == kPausesBetweenLooks.size();
    if (!pixels.pixels.empty() && (isLast || hasSettled(pixels)))
        return settle(cornerIn(pixels));
    m_lastLook = pixels;
    // While the panel cannot be read, such as half off the screen, go on at the last pace.
    m_lookAgain.start(kPausesBetweenLooks[std::min(m_looks, kPausesBetweenLooks.size() - 1)]);
    m_looks = std::min(m_looks + 1, kPausesBetweenLooks.size());
}

bool X11LogoWindow::hasSettled(PanelPixels const& pixels) const
{
    auto const corner = findPanelCorner(pixels, m_geometry.reach);
    return corner.picture && (!corner.isCut || m_looks >= kLooksAtAWord) && m_lastLook.width == pixels.width
        && findPanelCorner(m_lastLook, m_geometry.reach) == corner;
}

/// Takes the background from beside the plate, which may reach further than the picture.
PanelCorner X11LogoWindow::cornerIn(PanelPixels const& pixels) const
{
    auto corner = findPanelCorner(pixels, m_geometry.reach);
    if (m_doubted && corner.isCut && isWider(corner, *m_doubted))
        corner = *m_doubted; // it is lit now, and was not then
    corner.backgroundColumn = backgroundColumnFrom(pixels, std::max(corner.backgroundColumn, plateFor(corner).right()), m_geometry.reach, corner.ground);
    corner.isCut = corner.isCut && !m_doubted;
    return corner;
}

/// The background changed, so the picture may have been a lit button: measure again, once.
void X11LogoWindow::doubt()
{
    m_doubted = m_corner;
    remove();
    m_known.erase(m_panel);
    m_corner.reset();
    m_looks = 0;
    look();
}

void X11LogoWindow::settle(PanelCorner const& corner)
{
    m_corner = corner;
    m_known[m_panel] = { m_geometry.panel, corner };
    if (onMeasured)
        onMeasured();
    m_plate = plateFor(corner);
    m_background = readBackground();
    if (m_background.empty()) { // cannot be read just now
        m_lookAgain.start(kPausesBetweenLooks.back());
        return;
    }
    createWindow();
    show();
}

/// The area of the replaced picture and the logo together.
XRect X11LogoWindow::plateFor(PanelCorner const& corner) const
{
    XRect const whole { 0, 0, turnedPanel().width, turnedPanel().height };
    double const scale = logoScale(corner);
    double const middle = whole.height / 2.0;
    auto const centre = corner.picture ? centreOf(*corner.picture) : QPointF(middle, middle);
    auto const logo = centredOn(centre, m_logo.width * scale, m_logo.height * scale);
    return (corner.picture ? united(*corner.picture, logo) : logo).intersected(whole);
}

/// The stated scale, enlarged so that the logo is as large as the picture it covers.
double X11LogoWindow::logoScale(PanelCorner const& corner) const
{
    int const pictureHeight = corner.picture ? std::min(corner.picture->height, turnedPanel().height - 6) : 0;
    return std::max(m_geometry.scale, pictureHeight / m_logo.height);
}

QImage X11LogoWindow::render() const
{
    QImage image(m_plate.width, m_plate.height, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < m_plate.height; ++y) {
        auto* line = reinterpret_cast<std::uint32_t*>(image.scanLine(y));
        std::fill(line, line + m_plate.width, m_background[static_cast<std::size_t>(y)]);
    }
    double const middle = turnedPanel().height / 2.0;
    auto centre = (m_corner->picture ? centreOf(*m_corner->picture) : QPointF(middle, middle)) - QPointF(m_plate.x, m_plate.y);
    if (m_geometry.stands) {
        image = image.transformed(QTransform(0, 1, 1, 0, 0, 0));
        centre = centre.transposed();
    }
    LogoCanvas canvas(image, centre, logoScale(*m_corner));
    m_content.draw(&canvas, m_geometry.viewHeight);
    return image;
}

/// Sets the picture as the window's background: the server repaints it without us.
void X11LogoWindow::show()
{
    auto const image = render();
    auto* c = m_x.get();
    auto const pixmap = xcb_generate_id(c);
    auto const gc = xcb_generate_id(c);
    auto const width = static_cast<std::uint16_t>(image.width()), height = static_cast<std::uint16_t>(image.height());
    xcb_create_pixmap(c, m_depth, pixmap, m_window, width, height);
    xcb_create_gc(c, gc, pixmap, 0, nullptr);
    xcb_put_image(
        c, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, gc, width, height, 0, 0, 0, m_depth, static_cast<std::uint32_t>(image.sizeInBytes()), image.constBits());
    xcb_change_window_attributes(c, m_window, XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_map_window(c, m_window);
    xcb_clear_area(c, 0, m_window, 0, 0, 0, 0);
    xcb_free_gc(c, gc);
    xcb_free_pixmap(c, pixmap);
    m_x.flush();
}

void X11LogoWindow::createWindow()
{
    auto* c = m_x.get();
    m_window = xcb_generate_id(c);
    std::uint32_t const borderPixel = 0;
    auto const plate = turned(m_plate);
    xcb_create_window(c, XCB_COPY_FROM_PARENT, m_window, m_panel, static_cast<std::int16_t>(plate.x), static_cast<std::int16_t>(plate.y),
        static_cast<std::uint16_t>(plate.width), static_cast<std::uint16_t>(plate.height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
        XCB_CW_BORDER_PIXEL, &borderPixel);
    xcb_shape_rectangles(c, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED, m_window, 0, 0, 0, nullptr);
    m_firstDamageEvent = firstDamageEvent(m_x);
    if (!m_firstDamageEvent)
        return;
    m_damage = xcb_generate_id(c);
    xcb_damage_create(c, m_damage, m_panel, XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
}

void X11LogoWindow::remove()
{
    if (m_damage != XCB_NONE)
        xcb_damage_destroy(m_x.get(), m_damage);
    if (m_window != XCB_NONE)
        xcb_destroy_window(m_x.get(), m_window);
    m_damage = XCB_NONE;
    m_window = XCB_NONE;
}

void X11LogoWindow::handle(xcb_generic_event_t const& event)
{
    if (m_damage == XCB_NONE || (event.response_type & 0x7f) != m_firstDamageEvent + XCB_DAMAGE_NOTIFY)
        return;
    m_isDamaged = m_isDamaged || reinterpret_cast<xcb_damage_notify_event_t const&>(event).damage == m_damage;
}

/// Redraws the logo when the background beneath it changes, such as under the pointer or with another theme.
void X11LogoWindow::followBackground()
{
    if (!m_isDamaged || m_damage == XCB_NONE)
        return;
    m_isDamaged = false;
    xcb_damage_subtract(m_x.get(), m_damage, XCB_NONE, XCB_NONE);
    auto background = readBackground();
    if (background.empty() || background == m_background)
        return;
    if (m_corner->isCut)
        return doubt();
    m_background = std::move(background);
    show();
}

X11LogoWindow::Rows X11LogoWindow::readBackground() const { return readPixels({ m_corner->backgroundColumn, m_plate.y, 1, m_plate.height }).pixels; }

/// To the turned panel's coordinates, and back.
XRect X11LogoWindow::turned(XRect const& rect) const { return m_geometry.stands ? XRect { rect.y, rect.x, rect.height, rect.width } : rect; }

/// The turned panel's pixels; empty when the panel is not wholly on the screen.
PanelPixels X11LogoWindow::readPixels(XRect const& wanted) const
{
    auto const rect = turned(wanted);
    auto const cookie = xcb_get_image(m_x.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_panel, static_cast<std::int16_t>(rect.x), static_cast<std::int16_t>(rect.y),
        static_cast<std::uint16_t>(rect.width), static_cast<std::uint16_t>(rect.height), ~std::uint32_t { 0 });
    XReply<xcb_get_image_reply_t> const reply(xcb_get_image_reply(m_x.get(), cookie, nullptr));
    auto const count = static_cast<std::size_t>(rect.width) * static_cast<std::size_t>(rect.height);
    if (!reply || static_cast<std::size_t>(xcb_get_image_data_length(reply.get())) != count * sizeof(std::uint32_t))
        return {};
    PanelPixels pixels { rect.width, rect.height, std::vector<std::uint32_t>(count) };
    std::memcpy(pixels.pixels.data(), xcb_get_image_data(reply.get()), count * sizeof(std::uint32_t));
    if (m_depth == 24) {
        for (auto& pixel : pixels.pixels)
            pixel |= kOpaque;
    }
    return m_geometry.stands ? transposed(pixels) : pixels;
}

} // namespace zv
