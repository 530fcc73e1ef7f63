#include "app/actions/SessionControl.h"

#include "tests/fakes/FakeActions.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using State = SessionEventOutcome::State;

struct Confirmation : SessionConfirmation {
    bool confirms(MenuItemKind const& kind) override
    {
        asked.push_back(kind);
        return answer;
    }
    bool answer = true;
    std::vector<MenuItemKind> asked;
};

struct SessionControlTest : testing::Test {
    std::string send(MenuItemKind const& kind)
    {
        std::string result = "not answered";
        control.send(*SessionControl::eventFor(kind), [&](auto const& sent) { result = sent ? "" : sent.error().description(); });
        time.runTasks();
        return result;
    }
    fakes::FakeTime time;
    fakes::FakeSessionEvents events { time };
    Confirmation confirmation;
    SessionControl control { events, confirmation };
};

TEST_F(SessionControlTest, NamesTheStatusOfAFailure)
{
    struct Row {
        std::int64_t status;
        std::string description, why;
    };
    Row const rows[] = {
        { -600, "sendFailed(-600)", "no such process" },
        { -1712, "sendFailed(-1712)", "too slow" },
        { -1743, "notPermitted", "the user's denial has a case of its own" },
        { -4294967296 - 600, "sendFailed(-600)", "only the low 32 bits count" },
        { -4294967296 - 1743, "sendFailed(-1743)", "the denial is told apart before narrowing" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        events.outcomes["sleep"] = { State::failed, row.status };
        EXPECT_EQ(send(MenuItemKind::sleep), row.description);
    }
}

TEST_F(SessionControlTest, AsksBeforeForcingWhereTheSystemDoesNotAsk)
{
    events.outcomes["ask to restart"] = { State::needsConfirmation };
    EXPECT_EQ(send(MenuItemKind::restart), "");
    EXPECT_EQ(events.sent, (std::vector<std::string> { "ask to restart", "restart" }));
    EXPECT_EQ(confirmation.asked, (std::vector<MenuItemKind> { MenuItemKind::restart }));
}

TEST_F(SessionControlTest, ADeclinedQuestionEndsNothingAndIsNoFailure)
{
    confirmation.answer = false;
    events.outcomes["ask to shut down"] = { State::needsConfirmation };
    EXPECT_EQ(send(MenuItemKind::shutdown), "");
    EXPECT_EQ(events.sent, (std::vector<std::string> { "ask to shut down" }));
}

TEST_F(SessionControlTest, AForcedEventThatAsksFailsInsteadOfGoingRound)
{
    events.outcomes["restart"] = { State::needsConfirmation };
    EXPECT_EQ(send(MenuItemKind::restartForced), "sendFailed(-1708)");
    EXPECT_TRUE(confirmation.asked.empty());
}

} // namespace
} // namespace zv
