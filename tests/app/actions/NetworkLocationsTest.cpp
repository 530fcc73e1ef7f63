#include "app/actions/NetworkLocations.h"

#include "tests/fakes/FakeActions.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using fakes::FakeToolRunner;

std::string textOf(std::optional<NetworkLocations::Location> const& location)
{
    return location ? location->id + "|" + location->name + (location->isCurrent ? "|current" : "") : "no location";
}

TEST(NetworkLocations, ReadsOneLine)
{
    struct Row {
        std::string line, location, why;
    };
    Row const rows[] = {
        { " * 0A1B-22\t(Home)", "0A1B-22|Home|current", "the tool's own form" },
        { "* 0A1B-22 (Home)", "0A1B-22|Home|current", "blanks for the tab" },
        { "   0A1B-24\t(Automatic)  ", "0A1B-24|Automatic", "white space around" },
        { "0A1B-23\t(Work (old))", "0A1B-23|old)", "the name runs from the last parenthesis to the last" },
        { "Defined sets include: (* == current set)", "no location", "the header: a phrase is no identifier" },
        { "0A1B-22 (Caf\xc3\xa9 \xe2\x80\x94 2)", "0A1B-22|Caf\xc3\xa9 \xe2\x80\x94 2", "any letters" },
        { "0A1B\xc2\xa0"
          "22 (Home)",
            "no location", "a no-break blank is white space too" },
        { "0A1B-22 ()", "no location", "no name" },
        { "(Home)", "no location", "no identifier" },
        { " * (Home)", "no location", "the mark is no identifier" },
        { ")0A1B-22(", "no location", "closed before it opens" },
        { "0A1B-22 (Home", "no location", "never closed" },
        { "0A1B-22 Home)", "no location", "never opened" },
        { "", "no location", "nothing" },
        { "0A1B-22 *(Home)", "0A1B-22|Home", "a mark elsewhere is trimmed and does not count" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.line + ": " + row.why);
        EXPECT_EQ(textOf(NetworkLocations::parseLine(row.line)), row.location);
    }
}

struct LocationTool : testing::Test {
    std::shared_ptr<FakeToolRunner> runner = std::make_shared<FakeToolRunner>();
    NetworkLocations locations { runner };
};

TEST_F(LocationTool, ListsInTheToolsOrderAndSkipsTheRest)
{
    runner->answers["-n"] = FakeToolRunner::printing("Defined sets include: (* == current set)\n\n   B (Work)\n * A (Home)\n");
    auto const list = locations.list();
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(textOf(list[0]), "B|Work");
    EXPECT_EQ(textOf(list[1]), "A|Home|current");
    EXPECT_EQ(runner->requests[0].path, "/usr/sbin/scselect");
    EXPECT_EQ(runner->requests[0].output, ToolOutput::capturedWithErrors);
}

TEST_F(LocationTool, AToolThatFailsListsNothingAndSelectsNothing)
{
    struct Row {
        ToolResult result;
        std::string why;
    };
    Row const rows[] = {
        { {}, "not there" },
        { { ToolResult::End::exited, 1, "A (Home)\n" }, "failed" },
        { { ToolResult::End::signalled, 9, "A (Home)\n" }, "killed" },
        { { ToolResult::End::exited, 0, "A (Home)\n\xff\n" }, "not UTF-8" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        runner->answers["-n"] = runner->answers["A"] = row.result;
        EXPECT_TRUE(locations.list().empty());
        EXPECT_FALSE(locations.select("A"));
    }
    runner->answers["A"] = FakeToolRunner::printing("CurrentSet updated to A (Home)\n");
    EXPECT_TRUE(locations.select("A"));
}

} // namespace
} // namespace zv
