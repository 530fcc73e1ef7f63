#pragma once

#include "platform/lists/RunningApplications.h"
#include "platform/time/Tasks.h"

#include <functional>
#include <utility>

namespace zv {

/// Counts a command's unfinished work. Main thread only.
class WorkCount {
public:
    /// Wraps `done`, and counts it as work until it was called.
    template <class... Values> std::function<void(Values...)> counted(std::function<void(Values...)> done)
    {
        ++m_running;
        return [this, done = std::move(done)](Values... values) {
            done(std::forward<Values>(values)...);
            --m_running;
        };
    }
    [[nodiscard]] bool isZero() const { return m_running == 0; }

private:
    int m_running = 0;
};

class CountedTasks : public Tasks {
public:
    CountedTasks(Tasks& tasks, WorkCount& count)
        : m_tasks(tasks)
        , m_count(count)
    {
    }
    void runInBackground(TaskPriority priority, std::function<void()> work) override
    {
        auto const ended = m_count.counted(std::function<void()>([] {}));
        m_tasks.runInBackground(priority, [this, work = std::move(work), ended] {
            work();
            m_tasks.runOnMain(ended);
        });
    }
    void runDetached(std::function<std::function<void()>()> work) override
    {
        auto const ended = m_count.counted(std::function<void()>([] {}));
        m_tasks.runDetached([work = std::move(work), ended] {
            return std::function<void()>([then = work(), ended] {
                then();
                ended();
            });
        });
    }
    void runOnMain(std::function<void()> work) override { m_tasks.runOnMain(std::move(work)); }

private:
    Tasks& m_tasks;
    WorkCount& m_count;
};

class CountedRunningApplications : public RunningApplications {
public:
    CountedRunningApplications(RunningApplications& applications, WorkCount& count)
        : m_applications(applications)
        , m_count(count)
    {
    }
    void list(std::function<void(List)> done) override { m_applications.list(m_count.counted(std::move(done))); }
    void activate(std::string const& id) override { m_applications.activate(id); }
    void quit(std::string const& id) override { m_applications.quit(id); }

private:
    RunningApplications& m_applications;
    WorkCount& m_count;
};

} // namespace zv
