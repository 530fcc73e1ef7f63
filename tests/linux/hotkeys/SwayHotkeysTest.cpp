#include "platform/linux/hotkeys/SwayHotkeyRegistrar.h"

#include "platform/linux/hotkeys/KeymapLayout.h"
#include "tests/linux/hotkeys/FakeSway.h"
#include "tests/linux/toolkit/TestApplication.h"

namespace zv {
namespace {

TEST(SwayHotkeys, KnowWhatTheConfigurationMentions)
{
    struct Row {
        char const* line;
        char const* key;
        char const* why;
    };
    Row const rows[] = {
        { "bindsym Mod4+Shift+e exit", "e+mod4+shift", "in whatever order and case" },
        { "  bindsym --no-repeat --to-code $mod+Return exec foot", "mod4+return", "its variables and flags" },
        { "bindcode Ctrl+Alt+24 nop", "24+control+mod1", "other names of the same" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(SwayHotkeyRegistrar::keysIn(QStringLiteral("set $mod Mod4\n# bindsym Mod4+x nop\n") + QLatin1String(row.line)),
            std::set<QString> { QLatin1String(row.key) })
            << row.why;
}

constexpr KeyChord commandE { 14, commandKey }, optionE { 14, commandKey | optionKey }, commandY { 16, commandKey }, commandZ { 6, commandKey };
constexpr std::uint32_t workspace = 0x80000000U, binding = 0x80000005U, input = 0x80000015U;

using Commands = std::vector<std::string>;

struct SwaySession : testing::Test {
    SwaySession()
    {
        ensureApplication();
        layout.use(*XkbKeymap::named("us,de"));
        sway.setConfiguration(R"(set $mod Mod4\nbindsym $mod+e exit)");
        keys = SwayHotkeyRegistrar::open(sway.socket(), layout);
        keys->onPressed = [this](HotkeyID id) { pressed.push_back(id); };
        keys->onInvalidated = [this] { ++losses; };
    }
    static QByteArray press(char const* command, char const* change = "run")
    {
        return QByteArray(R"({"change":")") + change + R"(","binding":{"command":")" + command + R"("}})";
    }

    tests::FakeSway sway;
    KeymapLayout layout;
    std::unique_ptr<SwayHotkeyRegistrar> keys;
    std::vector<HotkeyID> pressed;
    int losses = 0;
};

TEST_F(SwaySession, BindsWhatTheConfigurationDoesNotMentionAndHearsItsOwn)
{
    EXPECT_EQ(keys->claimAll(7, std::array { commandE, optionE }), (std::vector<bool> { false, true }));
    EXPECT_EQ(sway.takeCommands(), Commands { "bindsym --no-repeat Mod4+Mod1+e nop zanthe-vell 2304 14" });
    auto const ours = press("nop zanthe-vell 2304 14");
    sway.tell({ { binding, press("nop another 2304 14") }, { binding, press("nop zanthe-vell 2304 14", "unset") }, { workspace, ours },
        { binding, press("nop zanthe-vell 256 14") }, { binding, ours }, { binding, ours } });
    EXPECT_TRUE(tests::turnUntil([&] { return pressed.size() >= 2; }));
    EXPECT_EQ(pressed, (std::vector<HotkeyID> { 7, 7 })) << "two presses, and nothing else";
    EXPECT_EQ(keys->claimAll(9, std::array { optionE }), std::vector<bool> { true });
    EXPECT_EQ(sway.takeCommands(), Commands {}) << "what is held stays";
    keys.reset();
    EXPECT_EQ(sway.takeCommands(), Commands { "unbindsym --no-repeat Mod4+Mod1+e" });
}

TEST_F(SwaySession, ClaimsAnewAfterAReload)
{
    (void)keys->claimAll(1, std::array { optionE, commandZ });
    sway.setConfiguration("bindsym Alt+Super+E exit");
    (void)sway.takeCommands();
    sway.tell({ { workspace, R"({"change":"reload"})" } });
    EXPECT_TRUE(tests::turnUntil([&] { return losses > 0; }));
    EXPECT_EQ(keys->claimAll(1, std::array { optionE, commandZ }), (std::vector<bool> { false, true })) << "by the new configuration";
    EXPECT_EQ(sway.takeCommands(), Commands { "bindsym --no-repeat Mod4+z nop zanthe-vell 256 6" });
}

TEST_F(SwaySession, KeysHaveOtherNamesOnAnotherLayout)
{
    EXPECT_EQ(keys->layout(), 0U);
    keys->onLayout = [this](std::uint32_t number) { layout.useGroup(number); };
    EXPECT_EQ(keys->claimAll(1, std::array { commandY, commandZ }), (std::vector<bool> { true, true }));
    sway.tell({ { input, R"({"change":"xkb_layout","input":{"xkb_active_layout_index":1}})" } });
    EXPECT_TRUE(tests::turnUntil([&] { return layout.layers().front()[commandZ.keyCode] == "y"; }));
    (void)sway.takeCommands();
    EXPECT_EQ(keys->claimAll(1, std::array { commandY, commandZ }), (std::vector<bool> { true, true }));
    EXPECT_EQ(sway.takeCommands(),
        (Commands { "unbindsym --no-repeat Mod4+z", "unbindsym --no-repeat Mod4+y", "bindsym --no-repeat Mod4+z nop zanthe-vell 256 16",
            "bindsym --no-repeat Mod4+y nop zanthe-vell 256 6" }));
}

} // namespace
} // namespace zv
