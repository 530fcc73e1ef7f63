#include "base/Notifications.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(Notifications, ReachTheObserversOfTheirNameInOrder)
{
    Notifications notifications;
    std::string calls;
    auto const first = notifications.observe("a", [&] { calls += "1"; });
    auto const other = notifications.observe("b", [&] { calls += "b"; });
    auto const second = notifications.observe("a", [&] { calls += "2"; });
    notifications.post("a");
    notifications.post("c");
    EXPECT_EQ(calls, "12");
}

TEST(Notifications, LetObserversComeAndGoWhileTheyAreCalled)
{
    Notifications notifications;
    int lateCalls = 0;
    int removedCalls = 0;
    NotificationToken removed;
    NotificationToken late;
    NotificationToken itself;
    itself = notifications.observe("a", [&] {
        removed = {};
        itself = {};
        late = notifications.observe("a", [&] { ++lateCalls; });
    });
    removed = notifications.observe("a", [&] { ++removedCalls; });
    notifications.post("a");
    EXPECT_EQ(removedCalls, 0);
    EXPECT_EQ(lateCalls, 0);
    notifications.post("a");
    EXPECT_EQ(lateCalls, 1);
}

} // namespace
} // namespace zv
