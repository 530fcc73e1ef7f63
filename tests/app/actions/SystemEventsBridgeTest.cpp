#include "app/actions/SystemEventsBridge.h"

#include "tests/fakes/FakeActions.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using State = ScriptOutcome::State;

struct SystemEventsBridgeTest : testing::Test {
    std::string run()
    {
        std::string result = "not answered";
        bridge.run(*SystemEventsBridge::scriptFor(MenuItemKind::forceQuit), [&](auto const& ran) { result = ran ? "" : ran.error().description(); });
        time.runTasks();
        return result;
    }
    fakes::FakeTime time;
    fakes::FakeScriptRunner runner { time };
    int told = 0;
    bool goesOn = true;
    SystemEventsBridge bridge { runner, [this] {
                                   ++told;
                                   return goesOn && told < 9;
                               } };
};

TEST_F(SystemEventsBridgeTest, OnlyTheDocksScriptsAreTheDocks)
{
    EXPECT_TRUE(SystemEventsBridge::dockScript(MenuItemKind::dockMagnification));
    EXPECT_FALSE(SystemEventsBridge::dockScript(MenuItemKind::lockScreen));
}

TEST_F(SystemEventsBridgeTest, MapsErrorsToFailures)
{
    struct Row {
        ScriptOutcome outcome;
        std::string failure, why;
    };
    Row const rows[] = {
        { { State::succeeded }, "", "nothing went wrong" },
        { { State::notCompiled }, "scriptError(\"could not compile script\")", "never ran" },
        { { State::failed, -10827, "System Events got an error" }, "scriptError(\"System Events got an error\")", "the system's own words" },
        { { State::failed, -1743, "Not authorized" }, "notPermitted", "the denial wins over its words" },
        { { State::failed, -1728, std::nullopt }, "scriptError(\"unknown error -1728\")", "a number alone" },
        { { State::failed, std::nullopt, std::nullopt }, "scriptError(\"unknown error 0\")", "nothing at all" },
        { { State::failed, std::nullopt, "" }, "scriptError(\"\")", "an empty message is a message" },
        { { State::noEquivalent }, "scriptError(\"this desktop has no equivalent\")", "another system" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        runner.outcome = row.outcome;
        EXPECT_EQ(run(), row.failure);
    }
    EXPECT_EQ(told, 0);
}

TEST_F(SystemEventsBridgeTest, TellsTheUserBeforeWhatWouldSurprise)
{
    runner.outcome = { State::mustTellUser };
    EXPECT_EQ(run(), "");
    ASSERT_EQ(runner.scripts.size(), 2u);
    EXPECT_TRUE(runner.scripts.back().userWasTold);

    runner.whenTold = runner.outcome;
    EXPECT_NE(run(), "") << "a desktop that asks again has failed";
    EXPECT_EQ(told, 2);
    runner.scripts.resize(2);

    goesOn = false;
    EXPECT_EQ(run(), "") << "declining is no failure";
    EXPECT_EQ(told, 3);
    EXPECT_EQ(runner.scripts.size(), 3u) << "what was declined is not done";
}

} // namespace
} // namespace zv
