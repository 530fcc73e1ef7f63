#include "cli/PortRunningProgram.h"
#include "tests/fakes/FakeTime.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

/// A command and the running program, joined by a message port in memory.
struct PortRunningProgramTest : testing::Test {
    struct Post : MessagePort {
        explicit Post(PortRunningProgramTest& test)
            : m_test(test)
        {
        }
        bool isRunning() const override { return m_test.isRunning; }
        std::optional<std::string> ask(std::string const& request) override
        {
            return m_test.answer ? m_test.answer : std::optional(answerTo(request, m_test.services, m_test.time));
        }
        Result<void> start() override
        {
            ++m_test.starts;
            m_test.isRunning = m_test.starting.ok();
            return m_test.starting;
        }

    private:
        PortRunningProgramTest& m_test;
    };

    std::string seen()
    {
        time.runTasks();
        return std::exchange(did, {});
    }

    bool isRunning = true;
    int starts = 0;
    Result<void> starting;
    Result<void> adding;
    std::optional<std::string> answer; ///< in place of the program's
    std::string did;
    ProgramHandlers services {
        [this](auto at) { did = at ? "show " + std::to_string(at->x) + ' ' + std::to_string(at->y) : "show"; },
        [this] { did = "settings"; },
        [this] { did = "quit"; },
        [this](std::vector<Url> const& files) -> Result<void> {
            for (auto const& file : files)
                did += "add " + file.path() + '\n';
            return adding;
        },
        [] { return std::string(R"({"registrations":[]})"); },
        [] { return std::string("what was found"); },
    };
    fakes::FakeTime time;
    Post post { *this };
    PortRunningProgram program { post };
};

TEST_F(PortRunningProgramTest, WhatIsAskedArrivesAndIsAnsweredBeforeItHappens)
{
    EXPECT_TRUE(program.showMenu(std::nullopt));
    EXPECT_EQ(did, "") << "who asks is answered first";
    EXPECT_EQ(seen(), "show");
    EXPECT_TRUE(program.showMenu(RunningProgram::ScreenPoint { 10, -20.5 }));
    EXPECT_EQ(seen(), "show 10.000000 -20.500000");
    EXPECT_TRUE(program.openSettings());
    EXPECT_EQ(seen(), "settings");
    EXPECT_TRUE(program.quit());
    EXPECT_EQ(did, "") << "who asks is answered first";
    EXPECT_EQ(seen(), "quit");
    EXPECT_TRUE(program.addFiles({ Url::fromPath("/a b\xff\"\n"), Url::fromPath("/ü") }));
    EXPECT_EQ(seen(), "add /a b\xff\"\n\nadd /ü\n") << "any name arrives";
    EXPECT_EQ(program.hotkeys().value(), R"({"registrations":[]})");
    EXPECT_EQ(program.findings().value(), "what was found");
}

TEST_F(PortRunningProgramTest, WhatShowsSomethingStartsTheProgramAndNothingElseDoes)
{
    isRunning = false;
    EXPECT_EQ(program.quit().error(), "Zanthe Vell is not running.");
    EXPECT_EQ(program.addFiles({}).error(), "Zanthe Vell is not running.");
    EXPECT_EQ(program.hotkeys().error(), "Zanthe Vell is not running.");
    EXPECT_EQ(starts, 0);
    EXPECT_TRUE(program.showMenu(std::nullopt));
    EXPECT_EQ(seen(), "show");
    EXPECT_TRUE(program.openSettings());
    EXPECT_EQ(starts, 1) << "it runs by now";
    isRunning = false;
    starting = Failure { "It is damaged." };
    EXPECT_EQ(program.openSettings().error(), "Zanthe Vell could not be started: It is damaged.");
}

TEST_F(PortRunningProgramTest, FailuresAreSentences)
{
    adding = Failure { "“\xff” is gone." };
    EXPECT_EQ(program.addFiles({ Url::fromPath("/x") }).error(), "The running program did not do it: “\xEF\xBF\xBD” is gone.");
    for (auto const* wrong : { "", "{}", "[1]", "\"done\"", R"({"done":1})" }) {
        answer = wrong;
        EXPECT_EQ(program.quit().error(), "The running program gave an answer that is none.") << wrong;
    }
}

TEST_F(PortRunningProgramTest, WhatIsNoRequestDoesNothing)
{
    for (auto const* wrong : { "", "null", "[]", "{}", R"({"request":7})", R"({"request":"dance"})", R"({"request":"showMenu","at":[1]})",
             R"({"request":"showMenu","at":[1,"2"]})", R"({"request":"showMenu","at":[1e999,0]})", R"({"request":"addFiles","files":["x"]})",
             R"({"request":"addFiles","files":["https://zanthevell.org"]})", R"({"request":"addFiles","files":"file:///x"})", "\xff" }) {
        auto const decoded = decodedAnswer(answerTo(wrong, services, time));
        ASSERT_TRUE(decoded) << wrong;
        EXPECT_FALSE(decoded->ok()) << wrong;
        EXPECT_EQ(seen(), "") << wrong;
    }
}

} // namespace
} // namespace zv
