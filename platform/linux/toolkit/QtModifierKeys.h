#pragma once

#include "platform/desk/ModifierKeys.h"

#include <qnamespace.h>

namespace zv {

/// Modifiers for menus: Ctrl while choosing is Command, Alt or Shift while opening is Option, and
/// so is opening by a middle click. Main thread only.
class QtModifierKeys : public ModifierKeys {
public:
    ModifierMask current() const override;
    ModifierMask ofCurrentEvent() const override { return m_choosingWith; }

    /// Modifiers that count as held while a menu opens, such as for a middle click.
    void setOpeningWith(ModifierMask extra) { m_openingWith = extra; }
    /// The keys that were held when the entry now being performed was chosen.
    void setChoosingWith(ModifierMask held) { m_choosingWith = held; }

    [[nodiscard]] static ModifierMask standInsFor(Qt::KeyboardModifiers held);

private:
    ModifierMask m_openingWith = ModifierMask::none;
    ModifierMask m_choosingWith = ModifierMask::none;
};

} // namespace zv
