#include "platform/linux/overlay/X11MenuBars.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(X11MenuBars, TakesTheDocksAtTheTopOfAScreenForMenuBars)
{
    XRect const left { 0, 0, 1920, 1080 }, right { 1920, 200, 1280, 800 }, below { 0, 1080, 1920, 1080 };
    struct Row {
        XRect dock;
        int topStrut;
        bool expected;
        char const* why;
    };
    Row const rows[] = {
        { { 0, 0, 1920, 27 }, 27, true, "a panel along the top" },
        { { 1920, 200, 1280, 27 }, 227, true, "on a screen that begins further down" },
        { { 0, -20, 1920, 27 }, 0, true, "sliding in" },
        { { 0, -27, 1920, 27 }, 0, false, "just out of sight" },
        { { -9999, -9999, 1920, 27 }, 0, false, "put away" },
        { { 0, 0, 1920, 3 }, 0, false, "the strip that calls it" },
        { { 0, 0, 1920, 10 }, 0, true, "the lowest bar there is" },
        { { 460, 0, 1000, 48 }, 48, true, "centred, not the whole width" },
        { { 8, 12, 1904, 32 }, 0, true, "floating a little" },
        { { 8, 40, 1904, 32 }, 0, false, "too far from the top" },
        { { 8, 40, 1904, 32 }, 72, true, "unless it claims the room above it" },
        { { 0, 1053, 1920, 27 }, 0, false, "at the bottom, above another screen" },
        { { 0, 1080, 1920, 27 }, 0, true, "at the top of the lower screen" },
        { { 0, 0, 48, 1080 }, 0, false, "along the side" },
        { { 5000, 0, 800, 27 }, 27, false, "on no screen" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(isTopBar(row.dock, row.topStrut, { left, right, below }), row.expected);
    }
}

TEST(XScreenSpace, TurnsTheServersPixelsIntoPointsAndBack)
{
    struct Row {
        XRect primary;
        double scale;
        XRect pixels;
        Rect screen;
        char const* why;
    };
    Row const rows[] = {
        { { 0, 0, 1280, 800 }, 1, { 0, 0, 1280, 27 }, { 0, 773, 1280, 27 }, "one screen" },
        { { 640, 0, 640, 800 }, 1, { 0, 100, 640, 30 }, { -640, 670, 640, 30 }, "the primary one stands to the right" },
        { { 0, 0, 2560, 1600 }, 2, { 0, -10, 2560, 54 }, { 0, 778, 1280, 27 }, "two pixels a point, half slid in" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        XScreenSpace const space { row.primary, row.scale };
        EXPECT_EQ(space.toScreen(row.pixels), row.screen);
        EXPECT_EQ(space.fromScreen(row.screen), row.pixels);
    }
}

} // namespace
} // namespace zv
