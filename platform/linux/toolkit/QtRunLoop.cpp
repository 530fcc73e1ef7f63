#include "platform/linux/toolkit/QtRunLoop.h"

#include "base/MainThread.h"

#include <QMetaObject>
#include <QTimer>

#include <mutex>
#include <system_error>
#include <thread>

namespace zv {

namespace {

/// The Qt timer is deleted later, so that a callback may destroy its own timer.
class QtTimer : public Timer {
public:
    QtTimer(std::chrono::milliseconds interval, bool isSingleShot, std::function<void()> fire)
        : m_timer(new QTimer)
    {
        m_timer->setTimerType(Qt::PreciseTimer);
        m_timer->setSingleShot(isSingleShot);
        QObject::connect(m_timer, &QTimer::timeout, m_timer, [fire = std::move(fire)] {
            auto const running = fire; // outlives the timer that it may destroy
            running();
        });
        m_timer->start(interval);
    }
    ~QtTimer() override
    {
        m_timer->stop();
        m_timer->disconnect();
        m_timer->deleteLater();
    }

private:
    QTimer* m_timer;
};

} // namespace

/// The way back from detached threads, which may outlive the run loop.
struct QtRunLoop::DetachedResults {
    std::mutex mutex;
    QtRunLoop* loop;

    void deliver(std::function<void()> work)
    {
        std::lock_guard const lock(mutex);
        if (loop)
            loop->runOnMain(std::move(work));
    }
    void close()
    {
        std::lock_guard const lock(mutex);
        loop = nullptr;
    }
};

QtRunLoop::QtRunLoop()
    : m_detachedResults(new DetachedResults { {}, this })
{
    m_utilityPool.setMaxThreadCount(1);
    m_utilityPool.setThreadPriority(QThread::LowPriority);
}

QtRunLoop::~QtRunLoop()
{
    m_detachedResults->close();
    m_userPool.waitForDone();
    m_utilityPool.waitForDone();
}

std::unique_ptr<Timer> QtRunLoop::every(std::chrono::milliseconds interval, std::function<void()> tick)
{
    assertMainThread();
    return std::make_unique<QtTimer>(interval, false, std::move(tick));
}

std::unique_ptr<Timer> QtRunLoop::after(std::chrono::milliseconds delay, std::function<void()> fire)
{
    assertMainThread();
    return std::make_unique<QtTimer>(delay, true, std::move(fire));
}

void QtRunLoop::runInBackground(TaskPriority priority, std::function<void()> work)
{
    auto& pool = priority == TaskPriority::user ? m_userPool : m_utilityPool;
    pool.start(std::move(work));
}

void QtRunLoop::runDetached(std::function<std::function<void()>()> work)
{
    auto const run = [results = m_detachedResults, work = std::move(work)] { results->deliver(work()); };
    try {
        std::thread(run).detach();
    } catch (std::system_error const&) { // no more threads to be had: then among the others
        m_userPool.start(run);
    }
}

void QtRunLoop::runOnMain(std::function<void()> work) { QMetaObject::invokeMethod(&m_mainThreadContext, std::move(work), Qt::QueuedConnection); }

} // namespace zv
