#pragma once

#include "app/model/KeyEquivalentSpec.h"
#include "platform/desk/KeyPress.h"

#include <optional>

namespace zv {

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
