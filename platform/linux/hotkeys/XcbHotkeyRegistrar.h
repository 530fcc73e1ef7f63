#pragma once

#include "platform/linux/hotkeys/VirtualKeys.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/menubar/HotkeyRegistrar.h"
#include "platform/time/Timers.h"

#include <bitset>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace zv {

class XkbKeyboardLayoutSource;

/// Hotkeys grabbed from the X server. Each pass is compared with the held grabs, so that an
/// unchanged pass sends nothing to the server. Main thread only.
class XcbHotkeyRegistrar : public HotkeyRegistrar {
public:
    /// The arguments outlive this.
    XcbHotkeyRegistrar(X11Connection& connection, XkbKeyboardLayoutSource& keyboard, Timers& timers);
    ~XcbHotkeyRegistrar() override;

    [[nodiscard]] std::vector<bool> claimAll(HotkeyID firstID, std::span<KeyChord const> chords) override;
    void releaseAll() override;
    [[nodiscard]] HotkeySupport support() const override { return HotkeySupport::everywhere; }
    [[nodiscard]] bool isKeptBySystem(KeyChord chord) const override { return switchesTerminal(chord); }

    /// Keys that are down now were pressed for the menu: none fires before its release. Called
    /// internally when a menu of ours closes.
    void ownMenuDidClose();

private:
    using Keycodes = std::bitset<256>;

    /// A combination in the server's terms, without lock states.
    struct Grab {
        std::uint8_t keycode = 0;
        std::uint16_t modifiers = 0;
        friend auto operator<=>(Grab const&, Grab const&) = default;
    };

    struct Held {
        Grab grab;
        HotkeyID id = 0;
    };

    [[nodiscard]] Grab grabFor(KeyChord chord) const;
    [[nodiscard]] std::vector<std::uint16_t> lockStates() const;
    [[nodiscard]] Grab strippedOfLocks(std::uint8_t keycode, std::uint16_t state) const;

    void replaceHeld(std::vector<Grab> const& wanted);
    [[nodiscard]] std::vector<Grab> heldGrabs() const; ///< in their order
    [[nodiscard]] Held* find(Grab grab);
    [[nodiscard]] std::vector<bool> grab(std::vector<Grab> const& grabs);
    void ungrab(Grab grab);
    void ungrabAll();
    void awaitReleaseOf(std::span<Grab const> grabs);

    void handle(xcb_generic_event_t const& event);
    void keyPressed(std::uint8_t keycode, std::uint16_t state);
    void giveKeyboardBack();
    void keyReleased(std::uint8_t keycode);
    void watchHeldKeys();
    void forgetReleasedKeys();
    [[nodiscard]] Keycodes keysDown() const;

    X11Connection& m_connection;
    XkbKeyboardLayoutSource& m_keyboard;
    Timers& m_timers;
    std::vector<Held> m_held; ///< by grab
    std::vector<Grab> m_claimed; ///< by the last call, if it got all of them: nothing is to be done for the same again
    HotkeyID m_firstID = 0; ///< of the last call
    /// Keys that fired or must not fire, until their release.
    Keycodes m_down;
    std::uint8_t m_grabbingKey = 0; ///< the key whose press grabbed the keyboard, until its release
    std::unique_ptr<Timer> m_watch;
    std::unique_ptr<QObject> m_menuFilter;
    X11Connection::Token m_events;
};

} // namespace zv
