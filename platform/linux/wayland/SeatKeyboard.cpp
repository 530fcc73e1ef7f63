#include "platform/linux/wayland/SeatKeyboard.h"

#include "platform/linux/posix/FileDescriptor.h"
#include "platform/linux/wayland/WaylandGlobals.h"

#include <sys/mman.h>
#include <wayland-client.h>

namespace zv {

namespace {

std::string textIn(FileDescriptor const& file, std::uint32_t size)
{
    void* text = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file.get(), 0);
    if (text == MAP_FAILED)
        return {};
    std::string copy(static_cast<char const*>(text), size);
    ::munmap(text, size);
    copy.resize(copy.find('\0') == std::string::npos ? copy.size() : copy.find('\0'));
    return copy;
}

SeatKeyboard& keyboardOf(void* self) { return *static_cast<SeatKeyboard*>(self); }

} // namespace

std::unique_ptr<SeatKeyboard> SeatKeyboard::of(WaylandGlobals const* globals)
{
    auto* seat = globals ? globals->bindSeat() : nullptr;
    return seat ? std::unique_ptr<SeatKeyboard>(new SeatKeyboard(seat)) : nullptr;
}

SeatKeyboard::SeatKeyboard(wl_seat* seat)
    : m_seat(seat)
{
    static wl_seat_listener const listener { capabilitiesChanged, [](void*, wl_seat*, char const*) {} };
    wl_seat_add_listener(m_seat, &listener, this);
}

SeatKeyboard::~SeatKeyboard()
{
    if (m_keyboard)
        wl_keyboard_destroy(m_keyboard);
    wl_seat_destroy(m_seat);
}

/// Asking for a keyboard that is not there would be a fault.
void SeatKeyboard::capabilitiesChanged(void* self, wl_seat*, std::uint32_t capabilities)
{
    auto& keyboard = keyboardOf(self);
    bool const isThere = (capabilities & WL_SEAT_CAPABILITY_KEYBOARD) != 0;
    if (isThere && !keyboard.m_keyboard)
        keyboard.listen();
    if (!isThere && keyboard.m_keyboard)
        wl_keyboard_destroy(std::exchange(keyboard.m_keyboard, nullptr));
}

void SeatKeyboard::listen()
{
    static wl_keyboard_listener const listener { keymapTold,
        [](void* self, wl_keyboard*, std::uint32_t serial, wl_surface*, wl_array*) { keyboardOf(self).m_serial = serial; },
        [](void*, wl_keyboard*, std::uint32_t, wl_surface*) {},
        [](void* self, wl_keyboard*, std::uint32_t serial, std::uint32_t, std::uint32_t, std::uint32_t) { keyboardOf(self).m_serial = serial; }, modifiersTold,
        [](void*, wl_keyboard*, std::int32_t, std::int32_t) {} };
    m_keyboard = wl_seat_get_keyboard(m_seat);
    wl_keyboard_add_listener(m_keyboard, &listener, this);
}

void SeatKeyboard::keymapTold(void* self, wl_keyboard*, std::uint32_t format, std::int32_t file, std::uint32_t size)
{
    FileDescriptor const descriptor(file);
    auto const text = format == WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1 ? textIn(descriptor, size) : std::string();
    if (!text.empty() && keyboardOf(self).onKeymap)
        keyboardOf(self).onKeymap(text);
}

void SeatKeyboard::modifiersTold(void* self, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t group)
{
    if (keyboardOf(self).onGroup)
        keyboardOf(self).onGroup(group);
}

} // namespace zv
