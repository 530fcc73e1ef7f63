#pragma once

#include "base/Lifetime.h"
#include "platform/files/UserDefaults.h"
#include "platform/time/Clock.h"
#include "platform/time/Timers.h"

#include <functional>
#include <memory>
#include <optional>

namespace zv {

/// Schedules automatic update checks: once a day, at a time that differs between users, remembered
/// across starts, and never right at start-up. Main thread only.
class UpdateSchedule {
public:
    struct Services {
        UserDefaults& defaults;
        Clock const& clock;
        Timers& timers;
    };

    UpdateSchedule(Services services, std::function<void()> due);

    [[nodiscard]] bool isEnabled() const;
    void setEnabled(bool enabled);
    [[nodiscard]] std::optional<WallTime> lastCheck() const;
    void noteCheck();

    /// Starts waiting. The menu comes first: nothing is due within the first minute.
    void start();

private:
    void arm();
    void tick();
    [[nodiscard]] WallTime nextDue() const;

    Services m_services;
    std::function<void()> m_due;
    Instant m_startedAt {};
    std::unique_ptr<Timer> m_timer;
};

} // namespace zv
