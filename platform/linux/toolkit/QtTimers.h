#pragma once

#include "platform/time/Timers.h"

namespace zv {

/// Timers over Qt's event loop. Used after the Q(Core)Application was made, on the main thread.
class QtTimers : public Timers {
public:
    std::unique_ptr<Timer> every(std::chrono::milliseconds interval, std::function<void()> tick) override;
    std::unique_ptr<Timer> after(std::chrono::milliseconds delay, std::function<void()> fire) override;
};

} // namespace zv
