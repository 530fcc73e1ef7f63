#include "platform/linux/menu/ShortcutText.h"

#include "app/menu/Menu.h"
#include "app/menu/ShownShortcut.h"

#include <array>

namespace zv {

namespace {

struct Modifier {
    ModifierMask mask;
    QChar glyph;
    char const* name;
    char const* busName;
};

/// `busName` is the modifier's name in the property "shortcut" of com.canonical.dbusmenu (BusMenu.cpp names its source).
constexpr std::array modifierTable {
    Modifier { ModifierMask::control, u'⌃', "Ctrl", "Control" },
    Modifier { ModifierMask::option, u'⌥', "Alt", "Alt" },
    Modifier { ModifierMask::shift, u'⇧', "Shift", "Shift" },
    Modifier { ModifierMask::command, u'⌘', "Super", "Super" },
};

constexpr char16_t escape = u'\x1b';
/// The code point before NSF1FunctionKey of AppKit's NSEvent.h.
constexpr char16_t beforeF1 = 0xF703;
constexpr int lastFunctionKey = 15;

QString keyNamed(QString const& character)
{
    auto const code = character.at(0).unicode();
    if (code == escape || code == u'⎋')
        return QStringLiteral("Esc");
    if (code > beforeF1 && code <= beforeF1 + lastFunctionKey)
        return QStringLiteral("F%1").arg(code - beforeF1);
    if (code == u' ')
        return QStringLiteral("Space");
    return character.toUpper();
}

Modifier const* modifierWithGlyph(QChar glyph)
{
    for (auto const& modifier : modifierTable) {
        if (modifier.glyph == glyph)
            return &modifier;
    }
    return nullptr;
}

} // namespace

QString ShortcutKeys::text() const
{
    QStringList names;
    for (auto const& name : isEmpty() ? QStringList() : modifiers + QStringList(key))
        names.append(QString::fromStdString(shownKeyName(name.toStdString())));
    return names.join(u'+');
}

QStringList ShortcutKeys::busNames() const
{
    QStringList names;
    for (auto const& modifier : modifierTable) {
        if (modifiers.contains(QLatin1String(modifier.name)))
            names.append(QLatin1String(modifier.busName));
    }
    names.append(key);
    return names;
}

ShortcutKeys shortcutKeysOf(MenuEntry const& entry)
{
    ShortcutKeys keys;
    auto const character = QString::fromStdString(entry.keyEquivalent);
    if (character.isEmpty())
        return keys;
    for (auto const& modifier : modifierTable) {
        if (contains(entry.keyEquivalentModifierMask, modifier.mask))
            keys.modifiers.append(QLatin1String(modifier.name));
    }
    keys.key = keyNamed(character);
    return keys;
}

ShortcutKeys shortcutKeysOfGlyphs(std::string_view glyphs)
{
    ShortcutKeys keys;
    auto text = QString::fromUtf8(glyphs.data(), static_cast<qsizetype>(glyphs.size()));
    qsizetype at = 0;
    // The last character is always the key, even if it is a modifier's glyph.
    for (; at + 1 < text.size(); ++at) {
        auto const* modifier = modifierWithGlyph(text.at(at));
        if (!modifier)
            break;
        keys.modifiers.append(QLatin1String(modifier->name));
    }
    auto const key = text.mid(at);
    keys.key = key.size() == 1 ? keyNamed(key) : key;
    return keys;
}

ShortcutKeys columnKeysOf(MenuEntry const& entry)
{
    if (!entry.keyEquivalent.empty())
        return shortcutKeysOf(entry);
    return entry.attributedTitle ? shortcutKeysOfGlyphs(entry.attributedTitle->hint) : ShortcutKeys {};
}

} // namespace zv
