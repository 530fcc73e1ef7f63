#include "platform/linux/hotkeys/RecordedKeys.h"

#include <QKeyEvent>

namespace zv {

namespace {

/// A code outside the model's numbering, for keys that are not named ones.
constexpr std::uint16_t unnamedKeyCode = 0xFFFF;

/// The code by the key's place on the keyboard, as with Control and Alt held the server gives
/// function keys other meanings; else by the toolkit's name.
std::uint16_t keyCodeOf(QKeyEvent const& event, KeyOnLayout const& key)
{
    if (key.virtualCode)
        return *key.virtualCode;
    if (event.key() == Qt::Key_Escape)
        return keyCodeOfNamedKey("esc").value_or(unnamedKeyCode);
    if (event.key() >= Qt::Key_F1 && event.key() <= Qt::Key_F15)
        return keyCodeOfNamedKey("f" + std::to_string(event.key() - Qt::Key_F1 + 1)).value_or(unnamedKeyCode);
    return unnamedKeyCode;
}

ModifierMask modifiersOf(Qt::KeyboardModifiers held)
{
    auto mask = ModifierMask::none;
    if (held.testFlag(Qt::ShiftModifier))
        mask |= ModifierMask::shift;
    if (held.testFlag(Qt::ControlModifier))
        mask |= ModifierMask::control;
    if (held.testFlag(Qt::AltModifier))
        mask |= ModifierMask::option;
    if (held.testFlag(Qt::MetaModifier))
        mask |= ModifierMask::command;
    return mask;
}

/// The layout's text; else the toolkit's, to which Shift is applied.
std::string charactersOf(QKeyEvent const& event, KeyOnLayout const& key)
{
    bool const isCharacter = event.key() > 0x20 && event.key() < 0x01000000; // keys without characters have higher codes
    if (!isCharacter)
        return {};
    return key.text.empty() ? QString(QChar(event.key())).toStdString() : key.text;
}

} // namespace

KeyPress keyPressOf(QKeyEvent const& event, KeyLookup const& lookUp)
{
    auto const key = lookUp ? lookUp(event.nativeScanCode()) : KeyOnLayout();
    return { keyCodeOf(event, key), charactersOf(event, key), modifiersOf(event.modifiers()) };
}

} // namespace zv
