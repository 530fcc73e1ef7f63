#include "platform/linux/toolkit/QtModifierKeys.h"

#include <QGuiApplication>

namespace zv {

ModifierMask QtModifierKeys::current() const { return standInsFor(QGuiApplication::queryKeyboardModifiers()) | m_openingWith; }

ModifierMask QtModifierKeys::standInsFor(Qt::KeyboardModifiers held)
{
    auto mask = ModifierMask::none;
    if (held & (Qt::AltModifier | Qt::ShiftModifier))
        mask |= ModifierMask::option;
    if (held & Qt::ShiftModifier)
        mask |= ModifierMask::shift;
    if (held & (Qt::ControlModifier | Qt::MetaModifier))
        mask |= ModifierMask::command;
    return mask;
}

} // namespace zv
