#include "platform/linux/toolkit/QtTasks.h"
#include "base/MainThread.h"
#include "tests/linux/toolkit/TestApplication.h"

#include <gtest/gtest.h>

#include <future>

namespace zv {
namespace {

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
        EXPECT_TRUE(tests::turnUntil([&] { return otherCameBackOnMain; }));
    } // must not wait for the hung one
    release->set_value();
    ended->get_future().wait();
    QCoreApplication::processEvents();
    EXPECT_FALSE(hungCameBack) << "what arrives after their end is dropped";
}

} // namespace
} // namespace zv
