#include "platform/linux/hotkeys/KeyNames.h"

#include "platform/linux/hotkeys/VirtualKeys.h"

#include <QStringList>

#include <array>
#include <xkbcommon/xkbcommon.h>

namespace zv {

namespace {

/// The X name of a key that types nothing: "FK05" is F5.
QString nameOfKey(std::uint16_t code)
{
    for (auto const& key : virtualKeys()) {
        if (key.code != code)
            continue;
        auto const name = QString::fromLatin1(key.xkbName);
        if (name == QLatin1String("ESC"))
            return QStringLiteral("Escape");
        return name.startsWith(QLatin1String("FK")) ? QStringLiteral("F") + QString::number(name.mid(2).toInt()) : QString();
    }
    return {};
}

QString nameOfSymbol(std::string const& typed)
{
    auto const characters = QString::fromStdString(typed).toUcs4();
    auto const symbol = characters.isEmpty() ? XKB_KEY_NoSymbol : xkb_utf32_to_keysym(characters.first());
    std::array<char, 64> name {};
    return symbol != XKB_KEY_NoSymbol && xkb_keysym_get_name(symbol, name.data(), name.size()) > 0 ? QString::fromLatin1(name.data()) : QString();
}

QString nameOf(std::uint16_t code, std::vector<KeyTexts> const& layers)
{
    auto key = nameOfKey(code);
    for (auto const& layer : layers) {
        if (key.isEmpty() && code < layer.size())
            key = nameOfSymbol(layer[code]);
    }
    return key;
}

} // namespace

QString chordText(KeyChord chord, ModifierWords words, std::vector<KeyTexts> const& layers)
{
    auto const key = nameOf(chord.keyCode, layers);
    if (key.isEmpty())
        return {};
    QStringList parts;
    for (auto const& [modifier, word] : words) {
        if ((chord.modifiers & modifier) != 0)
            parts.append(QString::fromLatin1(word));
    }
    parts.append(key);
    return parts.join(u'+');
}

QString chordName(KeyChord chord) { return QStringLiteral("key-%1-%2").arg(chord.modifiers).arg(chord.keyCode); }

KeyChord chordNamed(QString const& name)
{
    auto const parts = name.split(u'-');
    return { parts.value(2).toUShort(), parts.value(1).toUInt() };
}

} // namespace zv
