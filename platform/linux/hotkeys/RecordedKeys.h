#pragma once

#include "app/settings/RecorderRules.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

class QKeyEvent;

namespace zv {

/// A key of the X server as the layout has it.
struct KeyOnLayout {
    std::optional<std::uint16_t> virtualCode; ///< the model's; none when the keyboard is not known
    std::string text; ///< what it types without modifiers
};
using KeyLookup = std::function<KeyOnLayout(std::uint32_t xKeycode)>;

/// A key press of the toolkit in the recorder's terms: Command is Super, Option is Alt.
[[nodiscard]] KeyPress keyPressOf(QKeyEvent const& event, KeyLookup const& lookUp);

} // namespace zv
