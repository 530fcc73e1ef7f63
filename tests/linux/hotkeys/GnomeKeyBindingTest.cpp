#include "platform/linux/hotkeys/GnomeKeyBinding.h"

#include "platform/linux/hotkeys/Accelerators.h"
#include "platform/menubar/HotkeyRegistrar.h"
#include "tests/linux/SettingsFile.h"

namespace zv {
namespace {

constexpr auto schemas = R"(<schemalist>
<schema id="org.gnome.settings-daemon.plugins.media-keys" path="/media-keys/">
<key name="custom-keybindings" type="as"><default>['/custom0/']</default></key>
<key name="home" type="as"><default>['', '&lt;Super&gt;h']</default><summary>Home folder</summary></key>
</schema>
<schema id="org.gnome.settings-daemon.plugins.media-keys.custom-keybinding">
<key name="name" type="s"><default>'Calculator'</default></key>
<key name="command" type="s"><default>''</default></key>
<key name="binding" type="s"><default>'&lt;Primary&gt;&lt;Super&gt;C'</default></key>
</schema>
<schema id="org.gnome.shell.keybindings" path="/shell/"><key name="toggle-overview" type="as"><default>['&lt;Super&gt;s']</default></key></schema>
</schemalist>)";

TEST(Accelerators, AreReadInAnyFormAndWrittenInOne)
{
    struct Row {
        char const* read;
        DesktopKey::Combination combination;
        char const* written;
    };
    Row const rows[] = {
        { "<Super><Alt>e", { "e", false, commandKey | optionKey }, "<Super><Alt>e" },
        { "<alt><primary>E", { "e", false, optionKey | controlKey }, "<Control><Alt>e" },
        { "<Mod4><Shift>dollar", { "$", false, commandKey | shiftKey }, "<Super><Shift>dollar" },
        { "F5", { "f5", true, 0 }, "F5" },
        { "<Ctrl>Escape", { "esc", true, controlKey }, "<Control>Escape" },
        { "<Super>Adiaeresis", { "ä", false, commandKey }, "<Super>adiaeresis" },
    };
    for (auto const& row : rows) {
        EXPECT_EQ(combinationIn(row.read), row.combination) << row.read;
        EXPECT_EQ(acceleratorFor(row.combination), row.written);
    }
    for (auto const* unknown : { "", "<Super>", "<Hyper>e", "<Super", "<Super>Above_Tab" })
        EXPECT_FALSE(combinationIn(unknown)) << unknown;
}

TEST(GnomeKeyBinding, IsOneEntryAmongOthersAndGoesAgain)
{
    tests::SettingsFile const file(schemas);
    GnomeKeyBinding key({ true, "/opt/it's/zanthe-vell", file.store });
    auto const ours = "org/gnome/settings-daemon/plugins/media-keys/custom-keybindings/zanthe-vell";
    auto const list = [&] { return file.stored("media-keys", "custom-keybindings"); };
    auto const all = "['/custom0/', '/" + std::string(ours) + "/']";
    EXPECT_TRUE(key.state().isOffered && !key.state().value);
    for (auto const* wanted : { "e", "m" }) {
        DesktopKey::Combination const combination { wanted, false, commandKey };
        EXPECT_TRUE(key.set(combination));
        EXPECT_EQ(key.state().value, combination);
        EXPECT_EQ(list(), all);
        EXPECT_EQ(file.stored(ours, "binding"), "'<Super>" + std::string(wanted) + "'");
    }
    EXPECT_EQ(file.stored(ours, "command"), R"("'/opt/it'\\''s/zanthe-vell' show")");
    EXPECT_FALSE(key.holderOf({ "m", false, commandKey })) << "it is ours";
    EXPECT_EQ(key.holderOf({ "c", false, commandKey | controlKey }), "Calculator") << "the user's own";
    EXPECT_EQ(key.holderOf({ "h", false, commandKey }), "Home folder") << "the desktop's";
    EXPECT_EQ(key.holderOf({ "s", false, commandKey }), "toggle-overview") << "by its name, without a summary";
    EXPECT_TRUE(key.set({}));
    EXPECT_EQ(list(), "['/custom0/']");
    EXPECT_EQ(file.stored(ours, "binding") + file.stored(ours, "name") + file.stored(ours, "command"), "---");
    EXPECT_FALSE(key.state().value);
    EXPECT_FALSE(key.set(DesktopKey::Combination { "nonsense", true, 0 })) << "no such key";
    EXPECT_FALSE(GnomeKeyBinding({ false, "x", file.store }).state().isOffered) << "another desktop";
    EXPECT_FALSE(GnomeKeyBinding({ true, "x", {} }).set({})) << "a GNOME without these settings";
}

} // namespace
} // namespace zv
