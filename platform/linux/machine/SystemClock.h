#pragma once

#include "platform/time/Clock.h"

namespace zv {

class SystemClock : public Clock {
public:
    WallTime now() const override { return std::chrono::system_clock::now(); }
    Instant monotonic() const override { return std::chrono::steady_clock::now(); }
};

} // namespace zv
