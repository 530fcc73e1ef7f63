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

/// What a key press means while a shortcut is being recorded. A bare letter is taken too:
/// what can be registered is decided elsewhere.
[[nodiscard]] RecorderOutcome recorderOutcome(KeyPress const& press);

/// What the recorder's field says.
struct RecorderTexts {
    static constexpr char const* recording = "Press keys…";
    static constexpr char const* none = "None";
    static constexpr char const* clear = "Clear";
    static constexpr char const* help = "Click, then press the key combination you want.";
    static constexpr double minimumWidth = 90; ///< points
};

} // namespace zv
