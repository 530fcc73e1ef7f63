#pragma once

#include "platform/desk/Geometry.h"

#include <functional>
#include <vector>

namespace zv {

/// The screens, the primary one first. Main thread only.
class Screens {
public:
    virtual ~Screens() = default;
    /// The frames in screen coordinates; empty without a screen.
    [[nodiscard]] virtual std::vector<Rect> frames() const = 0;
    /// Called after a screen was added, removed, moved or resized. Set by its one user.
    std::function<void()> onChanged;
};

} // namespace zv
