#pragma once

#include "app/model/KeyEquivalentSpec.h"
#include "platform/desk/ModifierKeys.h"

#include <cstdint>
#include <optional>
#include <string>

namespace zv {

/// A key press as the recorder's view received it.
struct KeyPress {
    std::uint16_t keyCode = 0; ///< virtual key code of the model
    std::string charactersIgnoringModifiers; ///< what the key types without modifiers
    ModifierMask modifiers = ModifierMask::none;
};

struct RecorderOutcome {
    enum class Kind {
        ignored, ///< recording goes on
        cancelled,
        captured,
    };
    Kind kind = Kind::ignored;
    std::optional<KeyEquivalentSpec> spec; ///< when captured
};

/// Interprets a key press during recording. Accepts a bare letter too: whether it can be registered
/// is decided elsewhere.
[[nodiscard]] RecorderOutcome recorderOutcome(KeyPress const& press);

/// The recorder field's width in points.
inline constexpr double minimumRecorderWidth = 90;

} // namespace zv
