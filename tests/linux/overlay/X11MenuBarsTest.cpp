#include "platform/linux/overlay/X11MenuBars.h"

#include "tests/desktop/PrivateX.h"

#include <gtest/gtest.h>

#include <optional>

namespace zv {
namespace {

TEST(X11MenuBars, TakesTheDocksAlongTheEdgesOfAScreenForMenuBars)
{
    XRect const left { 0, 0, 1920, 1080 }, right { 1920, 200, 1280, 800 }, below { 0, 1080, 1920, 1080 };
    struct Row {
        XRect dock;
        std::vector<std::uint32_t> strut; ///< left, right, top, bottom
        std::optional<BarEdge> expected;
        char const* why;
    };
    Row const rows[] = {
        { { 0, 0, 1920, 27 }, { 0, 0, 27, 0 }, BarEdge::top, "a panel along the top" },
        { { 1920, 200, 1280, 27 }, { 0, 0, 227, 0 }, BarEdge::top, "on a screen that begins further down" },
        { { 0, -20, 1920, 27 }, {}, BarEdge::top, "sliding in" },
        { { 0, -27, 1920, 27 }, {}, std::nullopt, "just out of sight" },
        { { -9999, -9999, 1920, 27 }, {}, std::nullopt, "put away" },
        { { 0, 0, 1920, 3 }, {}, std::nullopt, "the strip that calls it" },
        { { 0, 0, 1920, 10 }, {}, BarEdge::top, "the lowest bar there is" },
        { { 460, 0, 1000, 48 }, { 0, 0, 48, 0 }, BarEdge::top, "centred, not the whole width" },
        { { 8, 12, 1904, 32 }, {}, BarEdge::top, "floating a little" },
        { { 8, 40, 1904, 32 }, {}, std::nullopt, "too far from the top" },
        { { 8, 40, 1904, 32 }, { 0, 0, 72, 0 }, BarEdge::top, "unless it claims the room above it" },
        { { 0, 1053, 1920, 27 }, { 0, 0, 0, 1107 }, BarEdge::bottom, "along the bottom, above another screen" },
        { { 1920, 960, 1280, 40 }, {}, BarEdge::bottom, "along the bottom of a screen that ends further up" },
        { { 0, 2155, 1920, 27 }, {}, BarEdge::bottom, "sliding out" },
        { { 0, 2157, 1920, 3 }, {}, std::nullopt, "the strip that calls it" },
        { { 0, 1080, 1920, 27 }, {}, BarEdge::top, "at the top of the lower screen" },
        { { 0, 0, 48, 1080 }, {}, BarEdge::left, "along the side" },
        { { 3140, 300, 60, 600 }, { 0, 60, 0, 0 }, BarEdge::right, "along the other one, not the whole height" },
        { { 3140, 300, 60, 600 }, {}, std::nullopt, "a column of gauges that claims no room" },
        { { 0, 0, 9, 1080 }, {}, std::nullopt, "the strip that calls one at the side" },
        { { 0, 0, 64, 64 }, { 64, 0, 0, 0 }, std::nullopt, "a single button" },
        { { 5000, 0, 800, 27 }, { 0, 0, 27, 0 }, std::nullopt, "on no screen" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(barEdge(row.dock, reservedEdges(row.strut, { 0, 0, 3200, 2160 }), { left, right, below }), row.expected);
    }
}

TEST(ReservedEdges, AreTakenFromTheMonitorThatTheirPanelIsOn)
{
    XRect const upper { 0, 0, 1920, 1080 }, right { 1920, 200, 1280, 800 }, lower { 0, 1080, 1920, 1080 };
    struct Row {
        std::vector<std::uint32_t> strut;
        std::vector<XRect> expected; ///< of the three
        char const* why;
    };
    Row const rows[] = {
        { { 0, 0, 27, 0, 0, 0, 0, 0, 0, 1919, 0, 0 }, { { 0, 27, 1920, 1053 }, right, lower }, "along the top of one" },
        { { 0, 0, 227, 0, 0, 0, 0, 0, 1920, 3199, 0, 0 }, { upper, { 1920, 227, 1280, 773 }, lower }, "of one that begins further down" },
        { { 0, 0, 0, 1107, 0, 0, 0, 0, 0, 0, 0, 1919 }, { { 0, 0, 1920, 1053 }, right, lower }, "between two, from below" },
        { { 0, 1328, 0, 0, 0, 0, 200, 999, 0, 0, 0, 0 }, { { 0, 0, 1872, 1080 }, right, lower }, "between two, from the right" },
        { { 48, 0, 0, 0 }, { { 48, 0, 1872, 1080 }, right, { 48, 1080, 1872, 1080 } }, "the older kind: the whole edge" },
        { { 48 }, { upper, right, lower }, "cut short" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        auto const reserved = reservedEdges(row.strut, { 0, 0, 3200, 2160 });
        EXPECT_EQ((std::vector { freeArea(upper, reserved), freeArea(right, reserved), freeArea(lower, reserved) }), row.expected);
    }
}

TEST(XScreenSpace, TurnsTheServersPixelsIntoPointsAndBack)
{
    struct Row {
        std::vector<XMonitor> monitors;
        XRect pixels;
        Rect screen;
        char const* why;
    };
    Row const rows[] = {
        { { { { 0, 0, 1280, 800 } } }, { 0, 0, 1280, 27 }, { 0, 773, 1280, 27 }, "one screen" },
        { { { { 640, 0, 640, 800 } } }, { 0, 100, 640, 30 }, { -640, 670, 640, 30 }, "the primary one stands to the right" },
        { { { { 0, 0, 2560, 1600 }, 2 } }, { 0, -10, 2560, 54 }, { 0, 778, 1280, 27 }, "two pixels a point, half slid in" },
        { { { { 0, 0, 1000, 800 } }, { { 1000, 0, 2000, 1600 }, 2 } }, { 1000, 0, 88, 54 }, { 1000, 773, 44, 27 }, "beside one of another scale" },
        { { { { 1000, 0, 2000, 1600 }, 2 }, { { 0, 200, 1000, 800 }, 1.25 } }, { 0, 205, 55, 30 }, { -1000, 572, 44, 24 }, "left of it, a fractional one" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        XScreenSpace const space { row.monitors };
        EXPECT_EQ(space.toScreen(row.pixels), row.screen);
        EXPECT_EQ(space.fromScreen(row.screen), row.pixels);
    }
}

TEST(X11MenuBars, GiveWayToAWindowThatFillsTheScreenAndToNoOtherAboveThem)
{
    desktop::PrivateX const server;
    desktop::XClient const client;
    auto const shown = [&](std::uint16_t height, char const* property, char const* value) {
        auto const window = xcb_generate_id(client.xcb());
        auto const visual = xcb_setup_roots_iterator(xcb_get_setup(client.xcb())).data->root_visual;
        xcb_create_window(client.xcb(), XCB_COPY_FROM_PARENT, window, client.root(), 0, 0, 640, height, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, visual, 0, nullptr);
        auto const atom = client.atom(value);
        xcb_change_property(client.xcb(), XCB_PROP_MODE_REPLACE, window, client.atom(property), XCB_ATOM_ATOM, 32, 1, &atom);
        xcb_map_window(client.xcb(), window);
        client.sync();
        return window;
    };
    shown(24, "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DOCK");
    auto const isOnscreen = [] {
        auto const x = X11Connection::open();
        X11Screens const screens(*x);
        X11MenuBars const menuBars(*x, screens);
        return menuBars.bars().at(0).isOnscreen;
    };
    shown(480, "_NET_WM_STATE", "_NET_WM_STATE_ABOVE");
    EXPECT_TRUE(isOnscreen()) << "windows come and go above a panel";
    auto const film = shown(480, "_NET_WM_STATE", "_NET_WM_STATE_FULLSCREEN");
    EXPECT_FALSE(isOnscreen());
    xcb_unmap_window(client.xcb(), film);
    client.sync();
    EXPECT_TRUE(isOnscreen());
}

} // namespace
} // namespace zv
