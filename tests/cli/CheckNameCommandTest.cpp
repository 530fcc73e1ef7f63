#include "tests/cli/CommandLineFixture.h"

#include <nlohmann/json.hpp>

namespace zv {

namespace {

using CheckNameTest = CommandLineFixture;

} // namespace

TEST_F(CheckNameTest, TellsWhatEachNameSays)
{
    EXPECT_EQ(run({ "check-name", "01)Mail-*[cmd+opt+E]*.app", "-***", "plain" }),
        (Outcome { 0,
            "01)Mail-*[cmd+opt+E]*.app\n  title     Mail.app\n  prefix    01)\n  shortcut  ⌥⌘E\n"
            "-***\n  a separator\n"
            "plain\n  title     plain\n",
            "" }));
    EXPECT_EQ(run({ "check-name", "a\nb\xFF" }).out, "a␊b\xEF\xBF\xBD\n  title     a␊b\xEF\xBF\xBD\n") << "no name breaks a line";
    machine.kind = SystemKind::linuxDesktop;
    EXPECT_NE(run({ "check-name", "x-*[cmd+opt+E]*" }).out.find("shortcut  Alt+Super+E\n"), std::string::npos);
    EXPECT_EQ(run({ "check-name", "--", "--json" }).out, "--json\n  title     --json\n");
}

TEST_F(CheckNameTest, JsonIsAnArrayOfTheDocumentedObjects)
{
    auto const outcome = run({ "check-name", "--json", "01)Mail-*[F5]*", "-***" });
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(nlohmann::ordered_json::parse(outcome.out).dump(),
        "[{\"name\":\"01)Mail-*[F5]*\",\"title\":\"Mail\",\"sortName\":\"01)Mail-*[F5]*\",\"isSeparator\":false,\"orderingPrefix\":\"01)\",\"hotkey\":\"F5\"},"
        "{\"name\":\"-***\",\"title\":\"\",\"sortName\":\"-***\",\"isSeparator\":true,\"orderingPrefix\":null,\"hotkey\":null}]");
    EXPECT_EQ(nlohmann::json::parse(run({ "check-name", "--json", "\xFF\n\x01" }).out)[0]["title"], "\xEF\xBF\xBD\n\x01") << "whatever bytes it has";
}

} // namespace zv
