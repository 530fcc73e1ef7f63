#include "platform/linux/toolkit/QtTimers.h"

#include "base/MainThread.h"

#include <QTimer>

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
            auto const running = fire; // a copy, which outlives the timer that it may destroy
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

std::unique_ptr<Timer> QtTimers::every(std::chrono::milliseconds interval, std::function<void()> tick)
{
    assertMainThread();
    return std::make_unique<QtTimer>(interval, false, std::move(tick));
}

std::unique_ptr<Timer> QtTimers::after(std::chrono::milliseconds delay, std::function<void()> fire)
{
    assertMainThread();
    return std::make_unique<QtTimer>(delay, true, std::move(fire));
}

} // namespace zv
