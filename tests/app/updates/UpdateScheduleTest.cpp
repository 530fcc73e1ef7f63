#include "app/updates/UpdateSchedule.h"
#include "tests/fakes/FakeTime.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <gtest/gtest.h>

#include <memory>

namespace zv {
namespace {

using namespace std::chrono_literals;

struct UpdateScheduleTest : testing::Test {
    UpdateScheduleTest() { defaults.stored.set("UpdateCheckJitter", 0); }
    void start()
    {
        schedule = std::make_unique<UpdateSchedule>(UpdateSchedule::Services { defaults, time, time }, [this] {
            ++checks;
            schedule->noteCheck();
        });
        schedule->start();
    }
    void lastCheckWas(std::chrono::seconds ago)
    {
        auto const since1970 = std::chrono::duration<double>((time.now() - ago).time_since_epoch()).count();
        defaults.stored.set("SULastCheckTime", PropertyListDate { since1970 - 978307200 });
    }

    fakes::FakeUserDefaults defaults;
    fakes::FakeTime time;
    int checks = 0;
    std::unique_ptr<UpdateSchedule> schedule;
};

TEST_F(UpdateScheduleTest, IsDueADayAfterTheLastCheckAndNeverInTheFirstMinute)
{
    struct Row {
        std::optional<std::chrono::seconds> lastCheck; ///< so long ago
        std::int64_t jitter;
        std::chrono::milliseconds due;
        std::string why;
    };
    Row const rows[] = {
        { std::nullopt, 0, 60s, "none yet" },
        { 100h, 0, 60s, "overdue" },
        { 1h, 0, 23h, "yesterday" },
        { 1h, 3600, 24h, "at this user's time of day" },
        { -1h, 0, 60s, "a clock that was wrong" },
        { 1h, -1'000'000, 23h, "a damaged jitter below" },
        { 1h, 1'000'000'000, 25h, "and above the range" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        checks = 0;
        defaults.stored = { { "UpdateCheckJitter", row.jitter } };
        if (row.lastCheck)
            lastCheckWas(*row.lastCheck);
        start();
        time.advance(row.due - 1s);
        EXPECT_EQ(checks, 0);
        time.advance(2s);
        EXPECT_EQ(checks, 1);
        time.advance(24h + 3h);
        EXPECT_EQ(checks, 2) << "and the next one a day later";
    }
}

TEST_F(UpdateScheduleTest, ChecksSoonAfterTheMachineSlept)
{
    lastCheckWas(1h);
    start();
    time.sleep(23h);
    time.advance(16min);
    EXPECT_EQ(checks, 1);
}

TEST_F(UpdateScheduleTest, ADamagedDateCountsAsNone)
{
    defaults.stored.set("SULastCheckTime", PropertyListDate { 1e300 });
    start();
    EXPECT_FALSE(schedule->lastCheck());
    time.advance(61s);
    EXPECT_EQ(checks, 1);
}

TEST_F(UpdateScheduleTest, IsSwitchedOffAndOnWhileItRuns)
{
    start();
    schedule->setEnabled(false);
    time.advance(50h);
    EXPECT_EQ(checks, 0);
    schedule->setEnabled(true);
    time.advance(1min);
    EXPECT_EQ(checks, 1);
}

TEST_F(UpdateScheduleTest, DrawsAUsersTimeOfDayOnce)
{
    defaults.stored = {};
    start();
    EXPECT_EQ(defaults.writes, std::vector<std::string> { "UpdateCheckJitter" });
    start();
    EXPECT_EQ(defaults.writes.size(), 1U);
}

} // namespace
} // namespace zv
