#include "platform/linux/hotkeys/RecordedKeys.h"

#include <QKeyEvent>

namespace zv {

namespace {

/// No key of the model's numbering; any key that is not a named one may have it here.
constexpr std::uint16_t unnamedKeyCode = 0xFFFF;

/// By its place on the keyboard: with Control and Alt held, function keys have other meanings
/// to the server than their own. Else by the toolkit's name.
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

/// The layout's own answer; else the toolkit's, which has Shift applied to it.
std::string charactersOf(QKeyEvent const& event, KeyOnLayout const& key)
{
    bool const isCharacter = event.key() > 0x20 && event.key() < 0x01000000; // above are the keys without characters
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
