#pragma once

#include "app/settings/RecorderRules.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

class QKeyEvent;

namespace zv {

/// A key of the X server in its current layout.
struct KeyOnLayout {
    std::optional<std::uint16_t> virtualCode; ///< code in the model's numbering; none when the keyboard is unknown
    std::string text; ///< text typed without modifiers
};
using KeyLookup = std::function<KeyOnLayout(std::uint32_t xKeycode)>;

/// A key press of the toolkit in the recorder's terms: Command is Super, Option is Alt.
[[nodiscard]] KeyPress keyPressOf(QKeyEvent const& event, KeyLookup const& lookUp);

} // namespace zv
