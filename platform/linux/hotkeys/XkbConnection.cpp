#include "platform/linux/hotkeys/XkbConnection.h"

// The header uses a C++ keyword as a field name.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit
#include <xkbcommon/xkbcommon-x11.h>

#include <QMetaObject>
#include <QSocketNotifier>

#include <cstdlib>

namespace zv {

namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

xcb_screen_t const* screenOf(xcb_connection_t* connection, int number)
{
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screens.rem > 0 && number > 0; --number)
        xcb_screen_next(&screens);
    return screens.rem > 0 ? screens.data : nullptr;
}

} // namespace

std::unique_ptr<XkbConnection> XkbConnection::open()
{
    int screenNumber = 0;
    auto connection = std::unique_ptr<XkbConnection>(new XkbConnection(xcb_connect(nullptr, &screenNumber)));
    return connection->setUp(screenNumber) ? std::move(connection) : nullptr;
}

/// Without the application object that a connection to be listened to needs.
bool XkbConnection::isThere()
{
    XkbConnection const connection(xcb_connect(nullptr, nullptr));
    return xcb_connection_has_error(connection.xcb()) == 0
        && xkb_x11_setup_xkb_extension(connection.xcb(), XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION, XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS,
               nullptr, nullptr, nullptr, nullptr)
        != 0;
}

XkbConnection::XkbConnection(xcb_connection_t* connection)
    : m_connection(connection)
{
}

XkbConnection::~XkbConnection() = default;

bool XkbConnection::setUp(int screenNumber)
{
    if (xcb_connection_has_error(xcb()) != 0)
        return false;
    auto const* screen = screenOf(xcb(), screenNumber);
    if (!screen
        || !xkb_x11_setup_xkb_extension(
            xcb(), XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION, XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, &m_xkbEvent, nullptr))
        return false;
    m_root = screen->root;
    m_deviceID = xkb_x11_get_core_keyboard_device_id(xcb());
    if (m_deviceID < 0)
        return false;
    useDetectableAutoRepeat();
    selectEvents();
    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(xcb()), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { dispatch(); });
    dispatchSoon();
    return true;
}

/// A held key then repeats its press alone; the release comes when the finger lifts.
void XkbConnection::useDetectableAutoRepeat() const
{
    auto const flag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    auto const cookie = xcb_xkb_per_client_flags(xcb(), XCB_XKB_ID_USE_CORE_KBD, flag, flag, 0, 0, 0);
    std::unique_ptr<xcb_xkb_per_client_flags_reply_t, Free> const reply(xcb_xkb_per_client_flags_reply(xcb(), cookie, nullptr));
}

/// Of the keyboard's state only the group, or every press of a modifier would wake us.
void XkbConnection::selectEvents() const
{
    constexpr std::uint16_t events = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY | XCB_XKB_EVENT_TYPE_STATE_NOTIFY;
    constexpr std::uint16_t map = XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS | XCB_XKB_MAP_PART_MODIFIER_MAP | XCB_XKB_MAP_PART_VIRTUAL_MODS
        | XCB_XKB_MAP_PART_VIRTUAL_MOD_MAP;
    constexpr std::uint16_t keyboard = XCB_XKB_NKN_DETAIL_KEYCODES | XCB_XKB_NKN_DETAIL_DEVICE_ID;
    xcb_xkb_select_events_details_t details {};
    details.affectNewKeyboard = keyboard;
    details.newKeyboardDetails = keyboard;
    details.affectState = XCB_XKB_STATE_PART_GROUP_STATE;
    details.stateDetails = XCB_XKB_STATE_PART_GROUP_STATE;
    xcb_xkb_select_events_aux(xcb(), XCB_XKB_ID_USE_CORE_KBD, events, 0, 0, map, map, &details);
    xcb_flush(xcb());
}

void XkbConnection::dispatch()
{
    while (auto const event = std::unique_ptr<xcb_generic_event_t, Free>(xcb_poll_for_event(xcb()))) {
        for (std::size_t i = 0; i < m_handlers.size(); ++i)
            m_handlers[i](*event);
    }
    if (xcb_connection_has_error(xcb()) != 0)
        m_notifier->setEnabled(false); // a dead server's socket stays readable for ever
}

void XkbConnection::dispatchSoon()
{
    QMetaObject::invokeMethod(
        m_notifier.get(), [this] { dispatch(); }, Qt::QueuedConnection);
}

} // namespace zv
