#pragma once

#include "platform/menubar/HotkeyRegistrar.h"
#include "platform/menubar/KeyboardLayoutSource.h"

#include <QString>

#include <span>
#include <utility>
#include <vector>

namespace zv {

/// The word of each modifier in some notation.
using ModifierWords = std::span<std::pair<std::uint32_t, char const*> const>;

/// The chord as words joined by "+", such as "CTRL+LOGO+e", the key by the X name of what it types
/// on the first layer that has anything; empty for a key without a name there.
[[nodiscard]] QString chordText(KeyChord chord, ModifierWords words, std::vector<KeyTexts> const& layers);

/// A name that is equal at every start, for services that remember combinations by name, …
[[nodiscard]] QString chordName(KeyChord chord);
/// … and what it names.
[[nodiscard]] KeyChord chordNamed(QString const& name);

} // namespace zv
