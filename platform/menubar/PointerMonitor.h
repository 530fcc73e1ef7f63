#pragma once

#include "platform/desk/Geometry.h"

#include <functional>
#include <memory>

namespace zv {

/// Watches the pointer wherever it is; clicks and keys are not seen. Main thread only.
class PointerMonitor {
public:
    /// A subscription; destroying it ends it.
    class Token {
    public:
        virtual ~Token() = default;
    };

    virtual ~PointerMonitor() = default;
    /// Calls `moved` soon after the pointer has moved; moves in quick succession may be
    /// told as one. Null where the system has no such events.
    [[nodiscard]] virtual std::unique_ptr<Token> watch(std::function<void()> moved) = 0;
    /// The pointer's place in screen coordinates.
    [[nodiscard]] virtual Point location() const = 0;
};

} // namespace zv
