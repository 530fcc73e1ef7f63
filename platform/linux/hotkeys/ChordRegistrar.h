#pragma once

#include "platform/linux/hotkeys/VirtualKeys.h"
#include "platform/menubar/HotkeyRegistrar.h"

#include <QString>

#include <map>

namespace zv {

/// Hotkeys of desktops that take one combination at a time, and answer at once. Keeps which are
/// held and by which name, and asks for what differs: on another layout a key may have another name.
class ChordRegistrar : public HotkeyRegistrar {
public:
    [[nodiscard]] std::vector<bool> claimAll(HotkeyID firstID, std::span<KeyChord const> chords) final;
    void releaseAll() final;
    [[nodiscard]] HotkeySupport support() const final { return HotkeySupport::everywhere; }
    [[nodiscard]] bool isKeptBySystem(KeyChord chord) const final { return switchesTerminal(chord); }

protected:
    /// The desktop's name for the combination on the present layout; empty for what it cannot name.
    [[nodiscard]] virtual QString nameOf(KeyChord chord) const = 0;
    /// False when the combination belongs to somebody else. A derived class releases all before it goes.
    [[nodiscard]] virtual bool claim(KeyChord chord, QString const& name) = 0;
    virtual void release(KeyChord chord, QString const& name) = 0;

    void pressed(KeyChord chord) const;
    /// Forgets what was held, as the desktop has, and has it claimed again.
    void lost();

private:
    struct Held {
        QString name;
        HotkeyID id;
    };
    std::map<KeyChord, Held> m_held;
};

} // namespace zv
