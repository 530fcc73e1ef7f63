#pragma once

#include "platform/linux/hotkeys/VirtualKeys.h"
#include "platform/menubar/HotkeyRegistrar.h"

#include <map>

namespace zv {

/// Hotkeys of desktops that take one combination at a time, and answer at once. Keeps which are
/// held, and asks for what differs.
class ChordRegistrar : public HotkeyRegistrar {
public:
    [[nodiscard]] std::vector<bool> claimAll(HotkeyID firstID, std::span<KeyChord const> chords) final;
    void releaseAll() final;
    [[nodiscard]] HotkeySupport support() const final { return HotkeySupport::everywhere; }
    [[nodiscard]] bool isKeptBySystem(KeyChord chord) const final { return switchesTerminal(chord); }

protected:
    /// False when the combination belongs to somebody else. A derived class releases all before it goes.
    [[nodiscard]] virtual bool claim(KeyChord chord) = 0;
    virtual void release(KeyChord chord) = 0;

    void pressed(KeyChord chord) const;
    /// Forgets what was held, as the desktop has, and has it claimed again.
    void lost();

private:
    std::map<KeyChord, HotkeyID> m_held;
};

} // namespace zv
