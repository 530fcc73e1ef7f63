#include "base/MainThread.h"
#include "platform/linux/toolkit/QtRunLoop.h"
#include "tests/linux/toolkit/TestApplication.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <gtest/gtest.h>

#include <future>

namespace zv {
namespace {

void turnUntil(QtRunLoop& loop, bool const& done)
{
    bool isLate = false;
    auto const limit = loop.after(std::chrono::seconds(20), [&] { isLate = true; });
    while (!done && !isLate)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

TEST(QtRunLoop, DetachedWorkThatHangsBlocksNeitherOtherWorkNorTheEnd)
{
    ensureApplication();
    auto const release = std::make_shared<std::promise<void>>();
    auto const released = release->get_future().share();
    auto const ended = std::make_shared<std::promise<void>>();
    bool hungCameBack = false;
    {
        QtRunLoop loop;
        loop.runDetached([released, ended, &hungCameBack]() -> std::function<void()> {
            released.wait();
            ended->set_value();
            return [&hungCameBack] { hungCameBack = true; };
        });
        bool otherCameBackOnMain = false;
        loop.runDetached([&otherCameBackOnMain]() -> std::function<void()> { return [&] { otherCameBackOnMain = isMainThread(); }; });
        turnUntil(loop, otherCameBackOnMain);
        EXPECT_TRUE(otherCameBackOnMain);
    } // must not wait for the hung one
    release->set_value();
    ended->get_future().wait();
    QCoreApplication::processEvents();
    EXPECT_FALSE(hungCameBack) << "what arrives after the loop's end is dropped";
}

} // namespace
} // namespace zv
