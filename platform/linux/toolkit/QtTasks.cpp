#include "platform/linux/toolkit/QtTasks.h"

#include <QMetaObject>

#include <mutex>
#include <system_error>
#include <thread>

namespace zv {

/// Delivers the results of detached threads, which may outlive the tasks.
struct QtTasks::DetachedResults {
    std::mutex mutex;
    QtTasks* tasks;

    void deliver(std::function<void()> work)
    {
        std::lock_guard const lock(mutex);
        if (tasks)
            tasks->runOnMain(std::move(work));
    }
    void close()
    {
        std::lock_guard const lock(mutex);
        tasks = nullptr;
    }
};

QtTasks::QtTasks()
    : m_detachedResults(new DetachedResults { {}, this })
{
    m_utilityPool.setMaxThreadCount(1);
    m_utilityPool.setThreadPriority(QThread::LowPriority);
}

QtTasks::~QtTasks()
{
    m_detachedResults->close();
    m_userPool.waitForDone();
    m_utilityPool.waitForDone();
}

void QtTasks::runInBackground(TaskPriority priority, std::function<void()> work)
{
    auto& pool = priority == TaskPriority::user ? m_userPool : m_utilityPool;
    pool.start(std::move(work));
}

void QtTasks::runDetached(std::function<std::function<void()>()> work)
{
    auto const run = [results = m_detachedResults, work = std::move(work)] { results->deliver(work()); };
    try {
        std::thread(run).detach();
    } catch (std::system_error const&) { // no thread left: runs in the pool
        m_userPool.start(run);
    }
}

void QtTasks::runOnMain(std::function<void()> work) { QMetaObject::invokeMethod(&m_mainThreadContext, std::move(work), Qt::QueuedConnection); }

} // namespace zv
