#pragma once

#include "platform/linux/hotkeys/XkbExtension.h"
#include "platform/linux/hotkeys/XkbKeymap.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/menubar/KeyboardLayoutSource.h"
#include "platform/time/Timers.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace zv {

/// The X server's keyboard: the text its keys type, and the codes of keys and modifiers. A layout
/// change comes as several events, which are gathered for a moment.
class XkbKeyboardLayoutSource : public KeyboardLayoutSource {
public:
    /// Connection and timers outlive this.
    XkbKeyboardLayoutSource(X11Connection& connection, XkbExtension xkb, Timers& timers);

    [[nodiscard]] std::vector<KeyTexts> layers() override;
    /// The X key code; 0 for a key that this keyboard lacks.
    [[nodiscard]] std::uint8_t keycode(std::uint16_t virtualCode);
    [[nodiscard]] ModifierBits modifiers();

    /// Called when key codes or modifiers have changed, before onChanged.
    std::function<void()> onMappingChanged;

private:
    void handle(xcb_generic_event_t const& event);
    void readAgain();
    void read();
    void ensureRead();
    [[nodiscard]] std::uint32_t currentGroup() const;

    X11Connection& m_connection;
    XkbExtension m_xkb;
    Timers& m_timers;
    bool m_isRead = false;
    std::vector<KeyTexts> m_layers;
    XKeycodes m_keycodes {};
    ModifierBits m_modifiers;
    std::unique_ptr<Timer> m_pending;
    X11Connection::Token m_events;
};

} // namespace zv
