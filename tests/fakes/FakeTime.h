#pragma once

#include "platform/time/Clock.h"
#include "platform/time/Tasks.h"
#include "platform/time/Timers.h"

#include <algorithm>
#include <deque>
#include <memory>
#include <utility>
#include <vector>

namespace zv::fakes {

/// A run loop that a test turns: time moves only when told, timers fire in order,
/// background work runs when asked for.
class FakeTime : public Clock, public Timers, public Tasks {
public:
    WallTime now() const override { return m_wall; }
    Instant monotonic() const override { return m_monotonic; }

    std::unique_ptr<Timer> every(std::chrono::milliseconds interval, std::function<void()> tick) override { return add(interval, interval, std::move(tick)); }
    std::unique_ptr<Timer> after(std::chrono::milliseconds delay, std::function<void()> fire) override
    {
        return add(delay, std::chrono::milliseconds(0), std::move(fire));
    }

    void runInBackground(TaskPriority, std::function<void()> work) override { m_background.push_back(std::move(work)); }
    void runDetached(std::function<std::function<void()>()> work) override
    {
        m_background.push_back([this, work = std::move(work)] { runOnMain(work()); });
    }
    void runOnMain(std::function<void()> work) override { m_main.push_back(std::move(work)); }

    /// Moves time on, firing due timers in the order of their times.
    void advance(std::chrono::milliseconds by)
    {
        auto const end = m_monotonic + by;
        while (auto const due = nextDue(end)) {
            moveTo(due->due);
            fire(due);
        }
        moveTo(end);
    }

    /// The machine sleeps: the clock goes on, timers do not.
    void sleep(std::chrono::milliseconds duration) { m_wall += duration; }

    /// Runs queued background work, then its results on the main thread, until both are empty.
    void runTasks()
    {
        while (!m_background.empty() || !m_main.empty()) {
            auto& queue = m_background.empty() ? m_main : m_background;
            auto const work = std::move(queue.front());
            queue.pop_front();
            work();
        }
    }

    /// The same, but of the background work what was queued last ends first, as threads may end in any order.
    void runTasksBackwards()
    {
        while (!m_background.empty() || !m_main.empty()) {
            if (m_main.empty())
                m_main.push_back(std::exchange(m_background.back(), nullptr)), m_background.pop_back();
            auto const work = std::move(m_main.front());
            m_main.pop_front();
            work();
        }
    }

    [[nodiscard]] std::size_t pendingBackground() const { return m_background.size(); }
    [[nodiscard]] std::vector<std::chrono::milliseconds> repeatingIntervals() const
    {
        std::vector<std::chrono::milliseconds> intervals;
        for (auto const& entry : m_timers) {
            if (auto const state = entry.lock(); state && state->interval.count() > 0)
                intervals.push_back(state->interval);
        }
        return intervals;
    }

private:
    struct State {
        Instant due;
        std::chrono::milliseconds interval;
        std::function<void()> fire;
    };
    struct FakeTimer : Timer {
        explicit FakeTimer(std::shared_ptr<State> s)
            : state(std::move(s))
        {
        }
        std::shared_ptr<State> state;
    };

    std::unique_ptr<Timer> add(std::chrono::milliseconds delay, std::chrono::milliseconds interval, std::function<void()> fire)
    {
        auto state = std::make_shared<State>(State { m_monotonic + delay, interval, std::move(fire) });
        m_timers.push_back(state);
        return std::make_unique<FakeTimer>(std::move(state));
    }

    std::shared_ptr<State> nextDue(Instant end)
    {
        std::erase_if(m_timers, [](auto const& entry) { return entry.expired(); });
        std::shared_ptr<State> first;
        for (auto const& entry : m_timers) {
            auto const state = entry.lock();
            if (state && state->fire && state->due <= end && (!first || state->due < first->due))
                first = state;
        }
        return first;
    }

    void moveTo(Instant instant)
    {
        m_wall += std::chrono::duration_cast<WallTime::duration>(instant - m_monotonic);
        m_monotonic = instant;
    }

    void fire(std::shared_ptr<State> const& state)
    {
        if (state->interval.count() == 0) {
            auto const once = std::exchange(state->fire, nullptr);
            once();
            return;
        }
        state->due += state->interval;
        auto const tick = state->fire;
        tick();
    }

    WallTime m_wall { std::chrono::hours(24 * 365 * 40) };
    Instant m_monotonic { std::chrono::hours(1) };
    std::vector<std::weak_ptr<State>> m_timers;
    std::deque<std::function<void()>> m_background;
    std::deque<std::function<void()>> m_main;
};

/// A service that answers in a later turn of the loop, as real ones do.
class AnswersLater {
public:
    explicit AnswersLater(FakeTime& time)
        : m_time(time)
    {
    }

protected:
    template <class Done, class Answer> void answer(Done done, Answer answer)
    {
        m_time.runOnMain([done = std::move(done), answer = std::move(answer)] { done(answer); });
    }

private:
    FakeTime& m_time;
};

} // namespace zv::fakes
