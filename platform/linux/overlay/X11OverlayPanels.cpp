#include "platform/linux/overlay/X11OverlayPanels.h"

#include "base/Lifetime.h"
#include "platform/linux/overlay/OverlayAccessible.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <optional>

namespace zv {

namespace {

constexpr xcb_button_t lastButton = 3; ///< left, middle, right; the next ones are the wheel
constexpr xcb_button_t lastWheel = 7;

/// The bar at whose left, or upper, end the frame stands.
XMenuBar const* barUnder(XRect const& frame, std::vector<XMenuBar> const& bars)
{
    auto const found = std::find_if(
        bars.begin(), bars.end(), [&](XMenuBar const& bar) { return bar.rect.x == frame.x && (bar.rect.bottom() == frame.bottom() || bar.rect.y == frame.y); });
    return found == bars.end() ? nullptr : &*found;
}

/// The toolkit scales each screen about its own top left corner.
QRect toToolkit(XRect const& rect)
{
    auto const* screen = QGuiApplication::primaryScreen();
    for (auto const* candidate : QGuiApplication::screens()) {
        QRect const native(candidate->geometry().topLeft(), candidate->geometry().size() * candidate->devicePixelRatio());
        if (native.contains(rect.x, std::max(rect.y, native.y())))
            screen = candidate;
    }
    if (!screen)
        return {};
    auto const origin = screen->geometry().topLeft();
    double const scale = screen->devicePixelRatio();
    auto const scaled = [scale](int pixels) { return static_cast<int>(std::lround(pixels / scale)); };
    return { origin.x() + scaled(rect.x - origin.x()), origin.y() + scaled(rect.y - origin.y()), scaled(rect.width), scaled(rect.height) };
}

using PressAt = X11OverlayPanels::PressAt;

class X11OverlayPanel : public OverlayPanel {
public:
    X11OverlayPanel(
        X11Connection& x, X11Screens const& screens, X11MenuBars const& menuBars, PanelCorners& corners, Rect const& frame, OverlayPanelContent& content)
        : m_x(x)
        , m_screens(screens)
        , m_menuBars(menuBars)
        , m_corners(corners)
        , m_content(content)
        , m_frame(frame)
        , m_events(x.onEvent([this](auto const& event) { handle(event); }))
        , m_batch(x.afterEvents([this] { followPanel(); }))
    {
    }
    ~X11OverlayPanel() override { hide(); }

    Rect frame() const override { return m_frame; }
    void setFrame(Rect const& frame) override
    {
        m_frame = frame;
        if (m_isShown)
            place();
    }
    void show() override
    {
        m_isShown = true;
        place();
    }
    void hide() override
    {
        m_isShown = false;
        remove();
    }
    /// Presses the panel if it is shown at the point; lives as long as the panel.
    [[nodiscard]] std::shared_ptr<PressAt> const& pressAt() const { return m_pressAt; }
    void redraw() override
    {
        if (m_logo)
            m_logo->update();
        raise();
    }

private:
    /// The place that the windows were made for; another place needs new windows.
    struct Place {
        xcb_window_t panel = XCB_NONE;
        XRect within; ///< the panel's window
        X11LogoWindow::Geometry logo;
        bool claimsRoom = false;
        friend bool operator==(Place const&, Place const&) = default;
    };

    void place();
    void followPanel();
    [[nodiscard]] std::optional<Place> findPlace() const;
    void createWindows();
    [[nodiscard]] XRect ownRect() const;
    void makeRoom() const;
    [[nodiscard]] xcb_window_t createInputWindow(xcb_window_t parent, XRect const& rect, std::uint32_t moreEvents = 0) const;
    void shield();
    void unshield();
    void remove();
    void raise() const;
    void handle(xcb_generic_event_t const& event);
    void handleCrossing(xcb_enter_notify_event_t const& crossing);
    void handlePress(xcb_button_press_event_t const& press);
    void passWheelOn(xcb_button_press_event_t const& press);

    X11Connection& m_x;
    X11Screens const& m_screens;
    X11MenuBars const& m_menuBars;
    PanelCorners& m_corners;
    OverlayPanelContent& m_content;
    Rect m_frame;
    bool m_isShown = false;
    std::optional<Place> m_place;
    xcb_window_t m_window = XCB_NONE; ///< receives the clicks
    xcb_window_t m_shield = XCB_NONE; ///< receives them while the pointer is on the panel
    XRect m_shielded; ///< on the desktop
    std::unique_ptr<X11LogoWindow> m_logo;
    std::unique_ptr<OverlayAccessible> m_accessible;
    X11Connection::Token m_events;
    X11Connection::Token m_batch;
    std::shared_ptr<PressAt> m_pressAt = std::make_shared<PressAt>([this](QPoint point) {
        bool const isHere = m_accessible && m_accessible->visibleRect().contains(point);
        if (isHere)
            m_content.press();
        return isHere;
    });
};

/// Follows a panel that replaces another in the same place, where the core sees no change.
void X11OverlayPanel::followPanel()
{
    if (m_isShown && findPlace() != m_place)
        place();
}

/// Makes windows only for a new place: a moved panel takes them along.
void X11OverlayPanel::place()
{
    auto const place = findPlace();
    if (place != m_place) {
        remove();
        m_place = place;
        if (m_place)
            createWindows();
    }
    if (m_accessible)
        m_accessible->setVisibleRect(toToolkit(m_screens.space().fromScreen(m_frame)));
}

std::optional<X11OverlayPanel::Place> X11OverlayPanel::findPlace() const
{
    auto const space = m_screens.space();
    auto const frame = space.fromScreen(m_frame);
    auto const* bar = barUnder(frame, m_menuBars.bars());
    if (!bar)
        return std::nullopt;
    XRect const within { frame.x - bar->rect.x, frame.y - bar->rect.y, frame.width, frame.height };
    XRect const size { 0, 0, bar->rect.width, bar->rect.height };
    bool const stands = size.height > size.width;
    return Place { bar->window, within, { size, stands ? m_frame.width : m_frame.height, space.scaleAt(frame), stands ? frame.height : frame.width, stands },
        bar->claimsRoom };
}

/// Hides the pointer's events over the window from the panel, which would light up its own button
/// there; all but the wheel. Buttons are therefore grabbed one by one: a window that selects presses
/// would get the wheel's, too.
xcb_window_t X11OverlayPanel::createInputWindow(xcb_window_t parent, XRect const& rect, std::uint32_t moreEvents) const
{
    auto* c = m_x.get();
    auto const window = xcb_generate_id(c);
    std::uint32_t const values[] = {
        1, // invisible to window managers, even when the panel is taken apart
        XCB_EVENT_MASK_ENTER_WINDOW | XCB_EVENT_MASK_LEAVE_WINDOW | moreEvents,
        XCB_EVENT_MASK_BUTTON_RELEASE | XCB_EVENT_MASK_POINTER_MOTION | XCB_EVENT_MASK_BUTTON_MOTION,
    };
    xcb_create_window(c, 0, window, parent, static_cast<std::int16_t>(rect.x), static_cast<std::int16_t>(rect.y), static_cast<std::uint16_t>(rect.width),
        static_cast<std::uint16_t>(rect.height), 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT,
        XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK | XCB_CW_DONT_PROPAGATE, values);
    for (xcb_button_t button = 1; button <= lastButton; ++button)
        xcb_grab_button(c, 0, window, XCB_EVENT_MASK_BUTTON_PRESS, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, button, XCB_MOD_MASK_ANY);
    return window;
}

/// Puts a window of the desktop over ours while the pointer is on the panel: within the panel's own window the panel takes the
/// pointer for still being on its button, and explains that. A panel that may hide would do so, and is left alone.
void X11OverlayPanel::shield()
{
    if (m_shield != XCB_NONE || !m_place->claimsRoom)
        return;
    auto* c = m_x.get();
    auto rect = ownRect();
    XReply<xcb_translate_coordinates_reply_t> const place(
        xcb_translate_coordinates_reply(c, xcb_translate_coordinates(c, m_window, m_x.root(), 0, 0), nullptr));
    if (!place)
        return;
    rect.x = place->dst_x;
    rect.y = place->dst_y;
    m_shielded = rect;
    // A press that the window manager held back while this window came is passed by the grabs.
    m_shield = createInputWindow(m_x.root(), rect, XCB_EVENT_MASK_BUTTON_PRESS);
    for (xcb_button_t button = lastButton + 1; button <= lastWheel; ++button)
        xcb_grab_button(c, 0, m_shield, XCB_EVENT_MASK_BUTTON_PRESS, XCB_GRAB_MODE_SYNC, XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, button, XCB_MOD_MASK_ANY);
    xcb_map_window(c, m_shield);
    m_x.flush();
}

void X11OverlayPanel::unshield()
{
    if (m_shield != XCB_NONE)
        xcb_destroy_window(m_x.get(), m_shield);
    m_shield = XCB_NONE;
    m_x.flush();
}

void X11OverlayPanel::createWindows()
{
    m_window = createInputWindow(m_place->panel, m_place->within);
    xcb_map_window(m_x.get(), m_window);
    m_logo = std::make_unique<X11LogoWindow>(m_x, m_place->panel, m_place->logo, m_content, m_corners);
    m_logo->onMeasured = [this] { makeRoom(); };
    m_logo->update();
    m_accessible = std::make_unique<OverlayAccessible>(m_content);
    raise();
}

/// A button beside the logo keeps its clicks.
XRect X11OverlayPanel::ownRect() const
{
    auto rect = m_place->within;
    auto& length = m_place->logo.stands ? rect.height : rect.width;
    length = std::min(length, m_logo->width());
    return rect;
}

void X11OverlayPanel::makeRoom() const
{
    auto const rect = ownRect();
    std::uint32_t const size[] = { static_cast<std::uint32_t>(rect.width), static_cast<std::uint32_t>(rect.height) };
    xcb_configure_window(m_x.get(), m_window, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, size);
}

void X11OverlayPanel::remove()
{
    unshield();
    m_logo.reset();
    m_accessible.reset();
    if (m_window != XCB_NONE)
        xcb_destroy_window(m_x.get(), m_window);
    m_window = XCB_NONE;
    m_place.reset();
    m_x.flush();
}

/// Raises the window above all others in the panel.
void X11OverlayPanel::raise() const
{
    if (m_window == XCB_NONE)
        return;
    std::uint32_t const above = XCB_STACK_MODE_ABOVE;
    if (m_logo && m_logo->window() != XCB_NONE)
        xcb_configure_window(m_x.get(), m_logo->window(), XCB_CONFIG_WINDOW_STACK_MODE, &above);
    xcb_configure_window(m_x.get(), m_window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    m_x.flush();
}

void X11OverlayPanel::handle(xcb_generic_event_t const& event)
{
    auto const type = event.response_type & 0x7f;
    if (type == XCB_BUTTON_PRESS)
        return handlePress(reinterpret_cast<xcb_button_press_event_t const&>(event));
    if (type == XCB_ENTER_NOTIFY || type == XCB_LEAVE_NOTIFY)
        return handleCrossing(reinterpret_cast<xcb_enter_notify_event_t const&>(event));
    if (type != XCB_MAP_NOTIFY && type != XCB_CONFIGURE_NOTIFY)
        return;
    auto const& change = reinterpret_cast<xcb_map_notify_event_t const&>(event); // equal layouts of the fields read here
    bool const isOurs = change.window == m_window || (m_logo && change.window == m_logo->window());
    if (m_place && change.event == m_place->panel && change.window != m_place->panel && !isOurs)
        raise();
}

/// While somebody grabs the pointer, the window stays: a click that a window manager looks at first is still to come.
/// It comes as soon as the pointer is anywhere on the panel: one that hears of the pointer's going to a window within its
/// own first keeps its button lit.
void X11OverlayPanel::handleCrossing(xcb_enter_notify_event_t const& crossing)
{
    bool const enters = (crossing.response_type & 0x7f) == XCB_ENTER_NOTIFY;
    bool const isPanels = m_place && crossing.event == m_place->panel;
    if (enters && (isPanels || crossing.event == m_window))
        shield();
    bool const leavesPanel = isPanels && !m_shielded.contains({ crossing.root_x, crossing.root_y, 1, 1 });
    if (!enters && (leavesPanel || crossing.event == m_shield) && crossing.mode != XCB_NOTIFY_MODE_GRAB)
        unshield();
}

/// Has the server look anew for the window under the pointer.
void X11OverlayPanel::passWheelOn(xcb_button_press_event_t const& press)
{
    unshield();
    xcb_allow_events(m_x.get(), XCB_ALLOW_REPLAY_POINTER, press.time);
    m_x.flush();
}

/// Ends the server's pointer grab, which lasts until the button is released, as the menu needs
/// the pointer. The content may destroy this panel: nothing of it is touched after that call.
void X11OverlayPanel::handlePress(xcb_button_press_event_t const& press)
{
    if (press.event != m_window && press.event != m_shield)
        return;
    if (press.detail > lastButton)
        return passWheelOn(press);
    xcb_ungrab_pointer(m_x.get(), press.time);
    XReply<xcb_get_input_focus_reply_t> const arrived(xcb_get_input_focus_reply(m_x.get(), xcb_get_input_focus(m_x.get()), nullptr));
    m_content.press();
}

} // namespace

X11OverlayPanels::X11OverlayPanels(X11Connection& x, X11Screens const& screens, X11MenuBars const& menuBars)
    : m_x(x)
    , m_screens(screens)
    , m_menuBars(menuBars)
{
}

std::unique_ptr<OverlayPanel> X11OverlayPanels::create(Rect const& frame, OverlayPanelContent& content)
{
    auto panel = std::make_unique<X11OverlayPanel>(m_x, m_screens, m_menuBars, m_corners, frame, content);
    std::erase_if(m_presses, [](auto const& press) { return press.expired(); });
    m_presses.push_back(panel->pressAt());
    return panel;
}

void X11OverlayPanels::pressAt(QPoint point)
{
    for (auto const& each : std::vector(m_presses)) {
        if (auto const press = each.lock(); press && (*press)(point))
            return;
    }
}

} // namespace zv
