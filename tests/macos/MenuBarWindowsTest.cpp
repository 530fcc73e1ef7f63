#include "platform/macos/overlay/MenuBarWindows.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

constexpr int menuLevel = 24;

WindowInfo barAt(Rect const& bounds, std::optional<std::int64_t> number = 7) { return { "Window Server", menuLevel, bounds, number, true }; }

TEST(MacMenuBars, AreTheWindowServersWindowsAtMenuLevel)
{
    Rect const corner { 0, 0, 30, 24 };
    std::vector<WindowInfo> const windows {
        { "Window Server", 25, corner, 20, true },
        { "Notepad", menuLevel, corner, 21, true },
        { "Window Server", menuLevel, std::nullopt, 22, true },
        barAt({ 1920, 0, 1600, 30 }, 8),
        barAt({ 0, 0, 1920, 24 }),
    };
    EXPECT_EQ(menuBarsAmong(windows, menuLevel, 1080), (std::vector<MenuBar> { { { 1920, 1050, 1600, 30 }, 8 }, { { 0, 1056, 1920, 24 }, 7 } }));
}

TEST(MacMenuBars, StandInScreenCoordinates)
{
    struct Row {
        double top;
        Rect bounds, frame;
        char const* why;
    };
    Row const rows[] = {
        { 1080, { 0, 0, 1920, 24 }, { 0, 1056, 1920, 24 }, "an ordinary menu bar" },
        { 982, { 0, 0, 1512, 37 }, { 0, 945, 1512, 37 }, "a tall one" },
        { 1080, { -1600, 300, 1600, 24 }, { -1600, 756, 1600, 24 }, "a screen to the left and further down" },
        { 1080, { 200, -1200, 1600, 24 }, { 200, 2256, 1600, 24 }, "a screen above the primary one" },
        { 1080, { 0, -14, 1920, 24 }, { 0, 1070, 1920, 24 }, "a bar that is sliding in" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(menuBarsAmong({ barAt(row.bounds) }, menuLevel, row.top).at(0).frame, row.frame);
        EXPECT_EQ(visibleFrameOf(barAt(row.bounds), row.top), row.frame);
    }
}

TEST(MacMenuBars, AreKnownByNumbersThatAWindowCanBeAskedForBy)
{
    struct Row {
        std::optional<std::int64_t> number;
        std::optional<MenuBarID> id;
    };
    for (auto const& row : { Row { 0, 0 }, Row { 4294967295, 4294967295 }, Row { -1, {} }, Row { std::int64_t(1) << 32, {} }, Row { {}, {} } })
        EXPECT_EQ(menuBarsAmong({ barAt({ 0, 0, 1920, 24 }, row.number) }, menuLevel, 1080).at(0).id, row.id);
}

TEST(MacMenuBars, HaveNoFrameWhileTheyAreHidden)
{
    auto window = barAt({ 0, 0, 1920, 24 });
    window.isOnscreen = false;
    EXPECT_EQ(visibleFrameOf(window, 1080), std::nullopt);
    window = { "Window Server", menuLevel, std::nullopt, 7, true };
    EXPECT_EQ(visibleFrameOf(window, 1080), std::nullopt) << "its place is not told";
}

} // namespace
} // namespace zv
