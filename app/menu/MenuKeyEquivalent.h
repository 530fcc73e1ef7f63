#pragma once

#include "app/menu/Menu.h"
#include "app/model/KeyEquivalentSpec.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace zv {

/// The character for a named key in a menu: U+001B for "esc", U+F704 to U+F712 for "f1" to "f15".
/// Empty for any other name.
[[nodiscard]] std::optional<std::string> keyEquivalentCharacter(std::string_view name);

/// Shows the shortcut and lets it work while the menu is open. Does nothing for a named key without
/// a character.
void applyKeyEquivalent(KeyEquivalentSpec const& spec, MenuEntry& entry);

/// The entry that can be chosen and has one of these keys, each as in MenuEntry::keyEquivalent, with
/// just these modifiers as its key equivalent or hint. Looks into groups, and into submenus that
/// fill themselves while they are open. Null for none.
[[nodiscard]] MenuEntry const* entryWithShortcut(Menu const& menu, std::span<std::string const> keys, ModifierMask modifiers);

/// The entry's key equivalent as text, such as "⌥⌘E"; empty when it has none.
[[nodiscard]] std::string keyEquivalentText(MenuEntry const& entry);

} // namespace zv
