#pragma once

#include "platform/program/DesktopKey.h"

#include <optional>
#include <string>

namespace zv {

/// GTK's notation of a combination, "<Super><Alt>e"; empty for a key without a name there.
[[nodiscard]] std::string acceleratorFor(DesktopKey::Combination const& combination);
/// The combination of such a text, in any order and case; nothing for one that says no or an unknown key.
[[nodiscard]] std::optional<DesktopKey::Combination> combinationIn(std::string const& accelerator);

} // namespace zv
