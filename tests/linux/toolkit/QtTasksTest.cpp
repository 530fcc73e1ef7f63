#include "platform/linux/toolkit/QtTasks.h"
#include "base/MainThread.h"
#include "platform/linux/toolkit/QtTimers.h"
#include "tests/linux/toolkit/TestApplication.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <gtest/gtest.h>

#include <future>

namespace zv {
namespace {

void turnUntil(bool const& done)
{
    bool isLate = false;
    QtTimers timers;
    auto const limit = timers.after(std::chrono::seconds(20), [&] { isLate = true; });
    while (!done && !isLate)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

TEST(QtTasks, DetachedWorkThatHangsBlocksNeitherOtherWorkNorTheEnd)
{
    ensureApplication();
    auto const release = std::make_shared<std::promise<void>>();
    auto const released = release->get_future().share();
    auto const ended = std::make_shared<std::promise<void>>();
    bool hungCameBack = false;
    {
        QtTasks tasks;
        tasks.runDetached([released, ended, &hungCameBack]() -> std::function<void()> {
            released.wait();
            ended->set_value();
            return [&hungCameBack] { hungCameBack = true; };
        });
        bool otherCameBackOnMain = false;
        tasks.runDetached([&otherCameBackOnMain]() -> std::function<void()> { return [&] { otherCameBackOnMain = isMainThread(); }; });
        turnUntil(otherCameBackOnMain);
        EXPECT_TRUE(otherCameBackOnMain);
    } // must not wait for the hung one
    release->set_value();
    ended->get_future().wait();
    QCoreApplication::processEvents();
    EXPECT_FALSE(hungCameBack) << "what arrives after their end is dropped";
}

} // namespace
} // namespace zv
