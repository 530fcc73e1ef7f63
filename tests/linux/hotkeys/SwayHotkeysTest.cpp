#include "platform/linux/hotkeys/SwayHotkeyRegistrar.h"

#include <gtest/gtest.h>

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

} // namespace
} // namespace zv
