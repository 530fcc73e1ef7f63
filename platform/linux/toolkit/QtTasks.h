#pragma once

#include "platform/time/Tasks.h"

#include <QObject>
#include <QThreadPool>

namespace zv {

/// Runs tasks on Qt's threads; results return through its event loop. Made after the
/// Q(Core)Application, on the main thread.
class QtTasks : public Tasks {
public:
    QtTasks();
    /// Waits for running background work, except detached work; later results for the main thread
    /// are dropped.
    ~QtTasks() override;

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
