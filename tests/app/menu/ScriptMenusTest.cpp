#include "app/menu/ScriptMenus.h"
#include "tests/fakes/FakeActions.h"
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeFiles.h"
#include "tests/fakes/FakeTime.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using Tools = fakes::FakeToolRunner;

struct ScriptMenusTest : testing::Test {
    /// The titles after a run that gives this: "-" a separator, "(…)" what cannot be chosen.
    std::string after(ToolResult const& ran, OptionKey option = OptionKey::released)
    {
        tools->answers[script.path()] = ran;
        bool told = false;
        menus.run(script, [&](ScriptResult const&) { told = true; });
        menus.run(script);
        time.runTasks();
        wasTold = told;
        std::string text;
        for (auto const& entry : menus.entriesFor(script, *menus.last(script), option)) {
            auto const title = entry.type == MenuEntry::Type::separator ? "-" : entry.enabled ? entry.title : "(" + entry.title + ")";
            text += (text.empty() ? "" : " ") + title + (entry.submenu ? "[]" : "");
        }
        return text;
    }

    std::shared_ptr<Tools> tools = std::make_shared<Tools>();
    fakes::FakeTime time;
    fakes::FakeWorkspace workspace { time };
    fakes::FakeFileSystem files;
    OwnItems ownItems { SystemKind::linuxDesktop, Url::fromPath("/data/Items"), files };
    ScriptMenus menus { { tools, time, workspace, ownItems } };
    Url script = Url::fromPath("/data/.Items/a.menu.sh");
    bool wasTold = false;
};

TEST_F(ScriptMenusTest, ShowWhatTheScriptGaveAndWhyItGaveNothing)
{
    auto const lines = Tools::printing("a | href=x:y\nb | href=x:z alternate=true\n---\nc\nd\n--e");
    EXPECT_EQ(after(lines), "a - (c) d[]");
    EXPECT_TRUE(wasTold);
    EXPECT_EQ(tools->requests.size(), 1U) << "one run at a time";
    EXPECT_EQ(tools->requests[0].timeout, std::chrono::seconds(10));
    EXPECT_EQ(after(lines, OptionKey::held), "b - (c) d[]");
    EXPECT_FALSE(wasTold) << "it is shown already";
    EXPECT_EQ(after({ ToolResult::End::signalled, 0, "a | href=x:y\n", {} }), "a - (The script did not end within 10 seconds.)");
    EXPECT_EQ(after(Tools::failing(3, "")), "(The script ended with status 3.)");
    EXPECT_EQ(after(Tools::printing("")), "(The script gave no lines.)");
    (void)after(Tools::printing("a\n" + std::string(1 << 20, 'x') + "\nb"));
    EXPECT_EQ(menus.last(script)->entries.size(), 2U) << "the first megabyte of a flood";
}

TEST_F(ScriptMenusTest, DoWhatALineSays)
{
    (void)after(Tools::printing("a | href=x:y\nb | bash=/bin/p param1='$(x)' terminal=false refresh=true\nc | bash=top param1=\"a b\""));
    auto const entries = menus.entriesFor(script, *menus.last(script), OptionKey::released);
    entries.at(0).target->invoke();
    EXPECT_EQ(workspace.log, (std::vector<std::string> { "open x:y" }));
    entries.at(1).target->invoke();
    time.runTasks();
    ASSERT_GE(tools->runs.size(), 3U);
    EXPECT_EQ(tools->runs[1], "-c|exec \"$0\" \"$@\"|/bin/p|$(x)") << "no shell reads the arguments";
    EXPECT_EQ(tools->runs[2], script.path()) << "and the script runs again";
    entries.at(2).target->invoke();
    EXPECT_EQ(ownItems.read(Url::fromPath("/data/.Items/once.desktop")), std::nullopt);
    EXPECT_TRUE(workspace.log.back().ends_with("once.desktop"));
    auto const bytes = files.read(Url::fromPath("/data/.Items/once.sh")).value();
    EXPECT_NE(std::string(reinterpret_cast<char const*>(bytes.data()), bytes.size()).find("'top'\\'' '\\''a b'"), std::string::npos);
}

} // namespace
} // namespace zv
