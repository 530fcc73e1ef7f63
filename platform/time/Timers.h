#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace zv {

/// A running timer; destroying it stops it.
class Timer {
public:
    virtual ~Timer() = default;
};

/// Timers on the main run loop; they also fire while a menu is open. A callback may
/// destroy its own timer. Main thread only.
class Timers {
public:
    virtual ~Timers() = default;
    [[nodiscard]] virtual std::unique_ptr<Timer> every(std::chrono::milliseconds interval, std::function<void()> tick) = 0;
    [[nodiscard]] virtual std::unique_ptr<Timer> after(std::chrono::milliseconds delay, std::function<void()> fire) = 0;
};

} // namespace zv
