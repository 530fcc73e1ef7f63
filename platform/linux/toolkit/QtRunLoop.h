#pragma once

#include "platform/time/Tasks.h"
#include "platform/time/Timers.h"

#include <QObject>
#include <QThreadPool>

namespace zv {

/// Timers and tasks over Qt's event loop. Made after the Q(Core)Application, on the main thread.
class QtRunLoop : public Timers, public Tasks {
public:
    QtRunLoop();
    /// Waits for running background work, detached work apart; what either hands to the main
    /// thread from now on is dropped.
    ~QtRunLoop() override;

    std::unique_ptr<Timer> every(std::chrono::milliseconds interval, std::function<void()> tick) override;
    std::unique_ptr<Timer> after(std::chrono::milliseconds delay, std::function<void()> fire) override;
    void runInBackground(TaskPriority priority, std::function<void()> work) override;
    void runDetached(std::function<std::function<void()>()> work) override;
    void runOnMain(std::function<void()> work) override;

private:
    struct DetachedResults;

    QObject m_mainThreadContext;
    QThreadPool m_userPool;
    QThreadPool m_utilityPool;
    std::shared_ptr<DetachedResults> m_detachedResults;
};

} // namespace zv
