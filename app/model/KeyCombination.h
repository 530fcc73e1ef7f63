#pragma once

#include "app/model/KeyEquivalentSpec.h"
#include "platform/program/DesktopKey.h"

namespace zv {

/// The shortcut's modifiers, of KeyModifier.
[[nodiscard]] std::uint32_t modifiersOf(KeyEquivalentSpec const& spec);

/// A shortcut as the desktop's own settings have it, and back.
[[nodiscard]] DesktopKey::Combination combinationOf(KeyEquivalentSpec const& spec);
[[nodiscard]] KeyEquivalentSpec specOf(DesktopKey::Combination const& combination);

} // namespace zv
