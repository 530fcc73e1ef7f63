#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

struct wl_keyboard;
struct wl_seat;
struct wl_surface;

namespace zv {

class WaylandGlobals;

/// The seat's keyboard beside the toolkit's own: the compositor tells its keymap without being asked, and the selected
/// layout whenever a window of ours has the keyboard.
class SeatKeyboard {
public:
    /// Null without a seat; for null. The globals outlive it.
    [[nodiscard]] static std::unique_ptr<SeatKeyboard> of(WaylandGlobals const* globals);
    ~SeatKeyboard();
    SeatKeyboard(SeatKeyboard const&) = delete;
    SeatKeyboard& operator=(SeatKeyboard const&) = delete;

    /// Called with the text of a keymap (XKB_KEYMAP_FORMAT_TEXT_V1), …
    std::function<void(std::string const& keymap)> onKeymap;
    /// … and with the number of the layout in it that is selected.
    std::function<void(std::uint32_t group)> onGroup;
    /// The serial of what was last typed, or by which a window of ours got the keyboard.
    [[nodiscard]] std::uint32_t serial() const { return m_serial; }

private:
    explicit SeatKeyboard(wl_seat* seat);
    static void capabilitiesChanged(void* self, wl_seat* seat, std::uint32_t capabilities);
    static void keymapTold(void* self, wl_keyboard* keyboard, std::uint32_t format, std::int32_t file, std::uint32_t size);
    static void modifiersTold(
        void* self, wl_keyboard* keyboard, std::uint32_t serial, std::uint32_t pressed, std::uint32_t latched, std::uint32_t locked, std::uint32_t group);
    void listen();

    wl_seat* m_seat;
    wl_keyboard* m_keyboard = nullptr; ///< null while the seat has none
    std::uint32_t m_serial = 0;
};

} // namespace zv
