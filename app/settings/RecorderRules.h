#pragma once

#include "app/model/KeyEquivalentSpec.h"
#include "platform/SystemKind.h"
#include "platform/desk/KeyPress.h"

#include <optional>
#include <string>

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

/// What other programs lose by this shortcut, in a sentence or two; empty when they hardly miss it.
[[nodiscard]] std::string shortcutWarning(KeyEquivalentSpec const& spec, SystemKind system);

/// The recorder field's width in points.
inline constexpr double minimumRecorderWidth = 90;

} // namespace zv
