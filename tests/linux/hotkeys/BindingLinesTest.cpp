#include "platform/linux/hotkeys/BindingLines.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(BindingLines, AreInTheDesktopsOwnNotation)
{
    std::vector<KeyTexts> layers(1);
    layers.front()[14] = "e";
    layers.front()[43] = ",";
    struct Row {
        char const* desktop;
        KeyChord chord;
        std::string command, line;
    };
    constexpr std::uint32_t both = commandKey | optionKey;
    Row const rows[] = {
        { "sway", { 14, both }, "open '$a'", "bindsym Mod4+Mod1+e exec open '$$a'" },
        { "sway", { 96, 0 }, "show", "bindsym F5 exec show" },
        { "Hyprland", { 43, both | shiftKey }, "open '#1'", "bind = SUPER ALT SHIFT, comma, exec, open '##1'" },
        { "labwc:wlroots", { 14, both }, "a \"b\" & <c>",
            R"(<keybind key="W-A-e"><action name="Execute" command="a &quot;b&quot; &amp; &lt;c&gt;"/></keybind>)" },
        { "river", { 14, controlKey }, "perform 'It'", R"(riverctl map normal Control e spawn 'perform '\''It'\''')" },
        { "river", { 96, 0 }, "show", "riverctl map normal None F5 spawn 'show'" },
        { "wayfire", { 14, both }, "show", "binding_zanthe_vell_2304_14 = <super> <alt> KEY_E\ncommand_zanthe_vell_2304_14 = show" },
        { "wayfire", { 43, both }, "show", "" },
        { "sway", { 14, both }, "a\nexec b", "" },
        { "another", { 14, both }, "show", "" },
    };
    for (auto const& row : rows) {
        auto const line = bindingLineFor(row.desktop, row.chord, row.command, layers);
        EXPECT_EQ(line ? line->line : "", row.line) << row.desktop;
    }
}

} // namespace
} // namespace zv
