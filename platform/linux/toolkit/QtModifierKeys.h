#pragma once

#include "platform/desk/ModifierKeys.h"

#include <qnamespace.h>

namespace zv {

/// Ctrl while choosing stands for Command, Alt or Shift while opening for Option, as does
/// opening by a middle click. Main thread only.
class QtModifierKeys : public ModifierKeys {
public:
    ModifierMask current() const override;
    ModifierMask ofCurrentEvent() const override { return m_choosingWith; }

    /// While a menu is being opened by what stands for more modifiers than are held.
    void setOpeningWith(ModifierMask extra) { m_openingWith = extra; }
    /// While an entry is being performed: the keys held when it was chosen.
    void setChoosingWith(ModifierMask held) { m_choosingWith = held; }

    [[nodiscard]] static ModifierMask standInsFor(Qt::KeyboardModifiers held);

private:
    ModifierMask m_openingWith = ModifierMask::none;
    ModifierMask m_choosingWith = ModifierMask::none;
};

} // namespace zv
