#include "tests/cli/CommandLineFixture.h"

#include "cli/Options.h"
#include "tests/SourceTree.h"

#include <algorithm>
#include <fstream>
#include <regex>

namespace zv {

namespace {

using CommandLineTest = CommandLineFixture;
using Words = std::vector<std::string>;

bool isOneLine(std::string const& text) { return text.ends_with('\n') && std::count(text.begin(), text.end(), '\n') == 1; }

} // namespace

TEST_F(CommandLineTest, HelpNamesEveryCommand)
{
    auto const help = run({ "--help" });
    EXPECT_EQ(help.status, 0);
    for (auto const* command : commandTable()) {
        EXPECT_NE(help.out.find(std::string(command->name)), std::string::npos) << command->name;
        EXPECT_NE(help.out.find(command->summary.english), std::string::npos) << command->name;
    }
    EXPECT_EQ(run({ "-h" }), help);
    EXPECT_EQ(run({ "help" }), help);
}

TEST_F(CommandLineTest, HelpTellsHowToMakeItACommandWhereItIsNone)
{
    EXPECT_EQ(run({ "--help" }).out.find("ln -s"), std::string::npos);
    fileToLink = "/Ada's Apps/Zanthe Vell";
    EXPECT_TRUE(run({ "--help" }).out.ends_with("\n  sudo ln -sf '/Ada'\\''s Apps/Zanthe Vell' /usr/local/bin/zanthe-vell\n"));
}

TEST_F(CommandLineTest, EachCommandTellsItsUsage)
{
    EXPECT_EQ(run({ "export", "--help" }),
        (Outcome { 0, "usage: zanthe-vell export [--all] FILE\n\nwrite the menu, or all that you have made, to a file (- is standard output)\n", "" }));
    for (auto const* command : commandTable())
        EXPECT_EQ(run({ std::string(command->name), "--help" }).status, 0) << command->name;
}

TEST_F(CommandLineTest, EachCommandIsInTheManualAndOfferedToShells)
{
    std::ifstream stream(tests::inSourceTree("packaging/linux/zanthe-vell.1"));
    std::string const manual { std::istreambuf_iterator<char>(stream), {} };
    for (auto const* command : commandTable()) {
        std::string const name(command->name);
        EXPECT_TRUE(std::regex_search(manual, std::regex(R"(\n\.TP\n\.(B|BR|BI) )" + name + R"([ \n])"))) << name;
        EXPECT_EQ(run({ "complete", name }).out.find(name + "\t" + command->summary.english + "\n"), 0U) << name;
    }
}

TEST_F(CommandLineTest, TellsShellsWhatMayFollow)
{
    auto folder = MenuItem::ofKind(MenuItemKind::submenu);
    folder.title = "My \"Folder\"";
    folder.children = { MenuItem::ofKind(MenuItemKind::sleep), MenuItem::ofKind(MenuItemKind::restart) };
    defaults.stored.set("Menu", toPropertyList(std::vector { folder }));
    struct Row {
        Words words;
        std::string out;
    };
    Row const rows[] = {
        { { "doctor", "" }, "--json\n--report\n" },
        { { "show", "--" }, "--at\n" },
        { { "perform", "" }, "--command\nMy \"Folder\"\nCustomize Zanthe Vell…\n" },
        { { "perform", "--command", "My \"Folder\"", "S" }, "Sleep\n" },
        { { "--typed", "perform", "My\\ \"\\\"Folder\"'\"'", "'Sl" }, "Sleep\n" },
        { { "perform", "none", "" }, "--command\n" },
        { { "prefs", "" }, "read\nwrite\nreset\n" },
        { { "prefs", "write", "ShowIcons", "" }, "true\nfalse\n" },
        { { "prefs", "write", "ScanDepth", "" }, "" },
        { { "fly", "" }, "" },
        { { "--typed" }, run({ "complete" }).out },
    };
    for (auto const& row : rows) {
        Words words { "complete" };
        words.insert(words.end(), row.words.begin(), row.words.end());
        EXPECT_EQ(run(words), (Outcome { 0, row.out, "" })) << row.words.back();
    }
    EXPECT_TRUE(run({ "complete", "prefs", "read", "Sc" }).out.starts_with("ScanDepth\t"));
    EXPECT_EQ(run({ "--help" }).out.find("complete"), std::string::npos) << "not for people";
}

TEST_F(CommandLineTest, AReportNamesNoPathAndNoTitleAndIsWrittenOnlyWhenAsked)
{
    defaults.stored.set("Menu", toPropertyList(std::vector { MenuItem { .kind = MenuItemKind::fsObject, .title = "Secret" } }));
    checks = { { "Items", DoctorCheck::State::ok, "kept in /home/ada/My Items", "" },
        { "Keys", DoctorCheck::State::limited, "X11/Wayland: none.", "See ~/ada." } };
    EXPECT_EQ(run({ "doctor", "--report" }), (Outcome { 1, run({ "doctor", "--report" }).out, "zanthe-vell: nothing was written\n" }))
        << "the end of the input";
    input = "y\n";
    auto const asked = run({ "doctor", "--report" });
    EXPECT_EQ(asked.status, 0) << asked;
    auto const file = Url::fromPath("/here/zanthe-vell-report.txt");
    auto const bytes = files.read(file).value();
    std::string const written(reinterpret_cast<char const*>(bytes.data()), bytes.size());
    EXPECT_TRUE(asked.out.starts_with(written)) << "all of it was shown first";
    for (auto const* secret : { "ada", "My Items", "Secret" })
        EXPECT_EQ(written.find(secret), std::string::npos) << written;
    for (auto const* told : { "kept in (path)", "X11/Wayland: none.", "ScanDepth=10", "FSObject 1" })
        EXPECT_NE(written.find(told), std::string::npos) << written;
    EXPECT_EQ(run({ "doctor", "--report" }).status, 1) << "it is there already";
}

TEST_F(CommandLineTest, TellsItsVersion) { EXPECT_EQ(run({ "--version" }), (Outcome { 0, "Zanthe Vell " ZV_VERSION "\n", "" })); }

TEST_F(CommandLineTest, WrongUsageIsStatusTwoAndOneLine)
{
    Words const wrong[] = { { "fly" }, { "--json" }, { "fly\naway" }, { "check-name" }, { "check-name", "--xml", "a" }, { "check-name", "--json=1", "a" },
        { "prefs", "read", "ScanDepth", "extra" }, { "prefs", "write", "ScanDepth" }, { "prefs", "erase", "ScanDepth" }, { "prefs", "reset" }, { "export" },
        { "export", "a", "b" }, { "import" }, { "import", "--chek", "a" }, { "perform" }, { "perform", "--option", "Sleep" }, { "show", "here" },
        { "show", "--at", "10" }, { "show", "--at", "1,2,3" }, { "show", "--at", "1,x" }, { "show", "--at" }, { "settings", "now" }, { "quit", "--now" },
        { "menu", "x" }, { "menu", "--expand" }, { "menu", "--expand", "-1" }, { "menu", "--expand", "2x" }, { "menu", "--expand", "99999999999" },
        { "menu", "--all" } };
    for (auto const& arguments : wrong) {
        auto const outcome = run(arguments);
        EXPECT_EQ(outcome.status, 2) << arguments[0];
        EXPECT_EQ(outcome.out, "");
        EXPECT_TRUE(isOneLine(outcome.err)) << outcome.err;
        EXPECT_TRUE(outcome.err.starts_with("zanthe-vell: ")) << outcome.err;
    }
    EXPECT_TRUE(defaults.writes.empty() && program.asked.empty());
}

TEST_F(CommandLineTest, OutputThatCannotBeWrittenIsAFailure)
{
    isOutputFull = true;
    for (auto const& arguments : { Words {}, Words { "menu" }, Words { "export", "-" }, Words { "prefs" } })
        EXPECT_EQ(run(arguments), (Outcome { 1, "", "zanthe-vell: the output could not be written\n" }));
}

TEST(CommandLine, IsToldFromTheSettingsThatADesktopStartsAProgramWith)
{
    EXPECT_FALSE(asksForCommand(Words {}));
    EXPECT_FALSE(asksForCommand(Words { "-AppleLanguages", "(de)" }));
    EXPECT_FALSE(asksForCommand(Words { "-psn_0_12345" }));
    for (auto const* first : { "menu", "fly", "--help", "--json", "-h" })
        EXPECT_TRUE(asksForCommand(Words { first, "-x" })) << first;
}

TEST(Options, TellOptionsFromOperands)
{
    Options::Known const known[] = { { "--json" }, { "--at", Options::Takes::value } };
    auto const parse = [&](Words const& words) { return Options::parse(words, known); };
    auto const all = parse({ "a", "--json", "--at", "1,2", "-", "--", "--json", "-x" }).value();
    EXPECT_TRUE(all.has("--json"));
    EXPECT_EQ(*all.value("--at"), "1,2");
    EXPECT_EQ(all.operands(), (Words { "a", "-", "--json", "-x" }));
    EXPECT_EQ(*parse({ "--at=--json" })->value("--at"), "--json");
    EXPECT_EQ(*parse({ "--at=1", "--at=2" })->value("--at"), "2");
    EXPECT_EQ(parse({})->value("--at"), nullptr);
    EXPECT_EQ(parse({ "--at" }).error(), "the option --at needs a value");
    EXPECT_EQ(parse({ "--json=yes" }).error(), "the option --json takes no value");
    EXPECT_EQ(parse({ "--jso" }).error(), "there is no option --jso");
    EXPECT_EQ(parse({ "-***", "-" })->operands(), (Words { "-***", "-" })) << "names may begin so";
}

} // namespace zv
