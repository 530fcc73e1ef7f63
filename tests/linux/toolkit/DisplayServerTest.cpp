#include "platform/linux/toolkit/DisplayServer.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(DisplayServer, TellsTheKindOfASession)
{
    struct Row {
        Environment environment;
        SessionKind kind;
        char const* why;
    };
    Row const rows[] = {
        { {}, SessionKind::x11, "nothing is said" },
        { { { "DISPLAY", ":0" }, { "XDG_SESSION_TYPE", "x11" } }, SessionKind::x11, "X11" },
        { { { "DISPLAY", ":0" }, { "WAYLAND_DISPLAY", "wayland-0" } }, SessionKind::wayland, "an X server within it" },
        { { { "DISPLAY", ":0" }, { "XDG_SESSION_TYPE", "wayland" } }, SessionKind::wayland, "though its display is not named" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(sessionKindOf(row.environment), row.kind) << row.why;
}

TEST(DisplayServer, IsTheFirstThatAnswers)
{
    EXPECT_EQ(displayServerFor({}), "") << "nobody there";
    EXPECT_EQ(displayServerFor({ { "QT_QPA_PLATFORM", "minimal" } }), "minimal") << "chosen";
    EXPECT_EQ(displayServerFor({ { "QT_QPA_PLATFORM", "wayland;minimal" }, { "WAYLAND_DISPLAY", "/nowhere" } }), "minimal")
        << "the first choice does not answer";
}

} // namespace
} // namespace zv
