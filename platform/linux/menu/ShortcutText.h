#pragma once

#include <QString>
#include <QStringList>

#include <string_view>

namespace zv {

struct MenuEntry;

/// A shortcut's keys: the modifiers in this desktop's order, then the key itself. Empty when
/// there is no shortcut.
struct ShortcutKeys {
    QStringList modifiers; ///< of "Ctrl", "Alt", "Shift", "Super"
    QString key;

    [[nodiscard]] bool isEmpty() const { return key.isEmpty(); }
    /// The shortcut as text, such as "Ctrl+Alt+E".
    [[nodiscard]] QString text() const;
    /// The keys by their names in menus on the bus: "Control", "Alt", "E".
    [[nodiscard]] QStringList busNames() const;
};

[[nodiscard]] ShortcutKeys shortcutKeysOf(MenuEntry const& entry);
/// Parses the glyph text of a hint, such as "⌥⌘E".
[[nodiscard]] ShortcutKeys shortcutKeysOfGlyphs(std::string_view glyphs);

/// The keys in the right-hand column of a menu: the key equivalent, else the hint.
[[nodiscard]] ShortcutKeys columnKeysOf(MenuEntry const& entry);

} // namespace zv
