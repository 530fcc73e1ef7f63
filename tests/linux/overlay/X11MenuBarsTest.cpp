#include "platform/linux/overlay/X11MenuBars.h"

#include <gtest/gtest.h>

#include <optional>

namespace zv {
namespace {

TEST(X11MenuBars, TakesTheDocksAlongTheTopOrBottomOfAScreenForMenuBars)
{
    XRect const left { 0, 0, 1920, 1080 }, right { 1920, 200, 1280, 800 }, below { 0, 1080, 1920, 1080 };
    struct Row {
        XRect dock;
        BarStruts struts;
        std::optional<BarEdge> expected;
        char const* why;
    };
    Row const rows[] = {
        { { 0, 0, 1920, 27 }, { 27 }, BarEdge::top, "a panel along the top" },
        { { 1920, 200, 1280, 27 }, { 227 }, BarEdge::top, "on a screen that begins further down" },
        { { 0, -20, 1920, 27 }, {}, BarEdge::top, "sliding in" },
        { { 0, -27, 1920, 27 }, {}, std::nullopt, "just out of sight" },
        { { -9999, -9999, 1920, 27 }, {}, std::nullopt, "put away" },
        { { 0, 0, 1920, 3 }, {}, std::nullopt, "the strip that calls it" },
        { { 0, 0, 1920, 10 }, {}, BarEdge::top, "the lowest bar there is" },
        { { 460, 0, 1000, 48 }, { 48 }, BarEdge::top, "centred, not the whole width" },
        { { 8, 12, 1904, 32 }, {}, BarEdge::top, "floating a little" },
        { { 8, 40, 1904, 32 }, {}, std::nullopt, "too far from the top" },
        { { 8, 40, 1904, 32 }, { 72 }, BarEdge::top, "unless it claims the room above it" },
        { { 0, 1053, 1920, 27 }, { 0, 27 }, BarEdge::bottom, "along the bottom, above another screen" },
        { { 1920, 960, 1280, 40 }, {}, BarEdge::bottom, "along the bottom of a screen that ends further up" },
        { { 0, 2155, 1920, 27 }, {}, BarEdge::bottom, "sliding out" },
        { { 0, 2157, 1920, 3 }, {}, std::nullopt, "the strip that calls it" },
        { { 0, 1080, 1920, 27 }, {}, BarEdge::top, "at the top of the lower screen" },
        { { 0, 0, 48, 1080 }, {}, std::nullopt, "along the side" },
        { { 5000, 0, 800, 27 }, { 27 }, std::nullopt, "on no screen" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(barEdge(row.dock, row.struts, { left, right, below }), row.expected);
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
