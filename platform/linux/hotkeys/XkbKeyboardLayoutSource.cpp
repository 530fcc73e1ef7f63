#include "platform/linux/hotkeys/XkbKeyboardLayoutSource.h"

#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

#include <utility>

namespace zv {

namespace {

constexpr std::chrono::milliseconds gatheringTime { 20 };

} // namespace

XkbKeyboardLayoutSource::XkbKeyboardLayoutSource(X11Connection& connection, XkbExtension xkb, Timers& timers)
    : m_connection(connection)
    , m_xkb(xkb)
    , m_timers(timers)
    , m_events(connection.onEvent([this](auto const& event) { handle(event); }))
{
}

std::vector<KeyTexts> XkbKeyboardLayoutSource::layers()
{
    ensureRead();
    return m_layers;
}

std::uint8_t XkbKeyboardLayoutSource::keycode(std::uint16_t virtualCode)
{
    ensureRead();
    return virtualCode < m_keycodes.size() ? m_keycodes[virtualCode] : 0;
}

ModifierBits XkbKeyboardLayoutSource::modifiers()
{
    ensureRead();
    return m_modifiers;
}

void XkbKeyboardLayoutSource::handle(xcb_generic_event_t const& event)
{
    if ((event.response_type & 0x7F) != m_xkb.event || !m_isRead || m_pending)
        return;
    m_pending = m_timers.after(gatheringTime, [this] { readAgain(); });
}

void XkbKeyboardLayoutSource::readAgain()
{
    m_pending.reset();
    auto const layers = m_layers;
    auto const mapping = std::pair(m_keycodes, m_modifiers);
    read();
    if (mapping != std::pair(m_keycodes, m_modifiers) && onMappingChanged)
        onMappingChanged();
    if (layers != m_layers && onChanged)
        onChanged();
}

void XkbKeyboardLayoutSource::ensureRead()
{
    if (!std::exchange(m_isRead, true))
        read();
}

/// Reads the keyboard; keeps the previous state when the server does not answer.
void XkbKeyboardLayoutSource::read()
{
    auto const keymap = XkbKeymap::current(m_connection.get(), m_xkb.deviceID);
    if (keymap) {
        m_layers = keymap->layers(currentGroup());
        m_keycodes = keymap->keycodes();
        m_modifiers = keymap->modifiers();
    }
}

std::uint32_t XkbKeyboardLayoutSource::currentGroup() const
{
    auto const cookie = xcb_xkb_get_state(m_connection.get(), XCB_XKB_ID_USE_CORE_KBD);
    XReply<xcb_xkb_get_state_reply_t> const reply(xcb_xkb_get_state_reply(m_connection.get(), cookie, nullptr));
    return reply ? reply->group : 0;
}

} // namespace zv
