#include "app/model/MenuItem.h"
#include "tests/cli/CommandLineFixture.h"

namespace zv {
namespace {

using RunningProgramCommands = CommandLineFixture;

TEST_F(RunningProgramCommands, AskTheRunningProgram)
{
    struct Row {
        std::vector<std::string> arguments;
        std::string asked;
    };
    Row const rows[] = {
        { { "show" }, "show" },
        { { "show", "--at", "10,-20" }, "show 10.000000 -20.000000" },
        { { "show", "--at=0,0" }, "show 0.000000 0.000000" },
        { { "settings" }, "settings" },
        { { "quit" }, "quit" },
    };
    for (auto const& row : rows) {
        EXPECT_EQ(run(row.arguments), (Outcome { 0, "", "" }));
        EXPECT_EQ(program.asked.back(), row.asked);
    }
}

TEST_F(RunningProgramCommands, HotkeysAreALineEachWhateverTheNamesHold)
{
    auto item = MenuItem::ofKind(MenuItemKind::sleep);
    item.title = "Nap\nnow";
    defaults.stored.set("Menu", toPropertyList(std::vector { item }));
    program.hotkeysJson = R"({"registrations":[{"id":1,"shortcut":"⌥⌘E","item":")" + item.id.toString()
        + R"("},{"id":2,"shortcut":"F5","file":"/a\u001bb\u202ec"}],"conflicts":[{"shortcut":"⌘Q","item":"gone"}],)"
        + R"("unavailable":[{"shortcut":"⌘Я","item":"gone","reason":"notOnLayout"},{"shortcut":"⌃⌥F1","item":"gone","reason":"keptBySystem"}],"support":"none"})";
    EXPECT_EQ(run({ "hotkeys" }),
        (Outcome { 0,
            "⌥⌘E     Nap now\n"
            "F5      /a␛b\uFFFDc\n"
            "⌘Q      gone  (taken: another program or another entry has it)\n"
            "⌘Я      gone  (never arrives: no key of this keyboard layout types it)\n"
            "⌃⌥F1    gone  (never arrives: the system keeps it for itself)\n"
            "This desktop does not let programs have shortcuts of their own.\n"
            "\nTo take a file’s shortcut away, rename the file without “-*[…]*”.\n",
            "" }));
    EXPECT_EQ(run({ "hotkeys", "--json" }).out, program.hotkeysJson + "\n");
    EXPECT_EQ(run({ "hotkeys", "--bindings" }).status, 1);
    program.hotkeysJson = R"({"bindings":[{"file":"~/keys","line":"one"},{"file":"~/keys","line":"two"}]})";
    EXPECT_EQ(run({ "hotkeys", "--bindings" }).out, "one\ntwo\n");
    program.hotkeysJson = "no answer";
    EXPECT_EQ(run({ "hotkeys" }).status, 1);
}

TEST_F(RunningProgramCommands, SayWhyNobodyAnswered)
{
    program.state = Failure { "Zanthe Vell is not running." };
    EXPECT_EQ(run({ "quit" }).status, 1);
    EXPECT_NE(run({ "quit" }).err.find("Zanthe Vell is not running."), std::string::npos);
}

} // namespace
} // namespace zv
