#include "platform/linux/hotkeys/XkbExtension.h"

#include "platform/linux/x11/X11Connection.h"

// The header uses a C++ keyword as a field name.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit
#include <xkbcommon/xkbcommon-x11.h>

namespace zv {

namespace {

/// Makes a held key repeat only its press; the release comes when the key goes up.
void useDetectableAutoRepeat(xcb_connection_t* xcb)
{
    auto const flag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    auto const cookie = xcb_xkb_per_client_flags(xcb, XCB_XKB_ID_USE_CORE_KBD, flag, flag, 0, 0, 0);
    XReply<xcb_xkb_per_client_flags_reply_t> const reply(xcb_xkb_per_client_flags_reply(xcb, cookie, nullptr));
}

/// Selects only the group of the keyboard's state, or every press of a modifier would wake us.
void selectEvents(xcb_connection_t* xcb)
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
    xcb_xkb_select_events_aux(xcb, XCB_XKB_ID_USE_CORE_KBD, events, 0, 0, map, map, &details);
    xcb_flush(xcb);
}

} // namespace

std::optional<XkbExtension> XkbExtension::setUp(X11Connection const& x)
{
    XkbExtension xkb;
    if (!xkb_x11_setup_xkb_extension(
            x.get(), XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION, XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, &xkb.event, nullptr))
        return std::nullopt;
    xkb.deviceID = xkb_x11_get_core_keyboard_device_id(x.get());
    if (xkb.deviceID < 0)
        return std::nullopt;
    useDetectableAutoRepeat(x.get());
    selectEvents(x.get());
    return xkb;
}

} // namespace zv
