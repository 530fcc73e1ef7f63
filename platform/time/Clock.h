#pragma once

#include <chrono>

namespace zv {

using WallTime = std::chrono::system_clock::time_point;
using Instant = std::chrono::steady_clock::time_point;

/// The time of day, and a clock that only goes forward. Main thread only.
class Clock {
public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual WallTime now() const = 0;
    [[nodiscard]] virtual Instant monotonic() const = 0;
};

} // namespace zv
