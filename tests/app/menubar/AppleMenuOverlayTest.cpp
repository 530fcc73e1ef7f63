#include "app/menubar/AppleMenuOverlayController.h"
#include "tests/fakes/FakeOverlay.h"
#include "tests/fakes/FakeTime.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <gtest/gtest.h>

#include <optional>

namespace zv {
namespace {

using namespace std::chrono_literals;
using Intervals = std::vector<std::chrono::milliseconds>;
using Rects = std::vector<Rect>;

/// A desktop with one screen of 1920 by 1080 and a menu bar 24 points high.
class AppleMenuOverlay : public testing::Test {
protected:
    static constexpr std::int64_t bar = 7;

    AppleMenuOverlay() { windows.addMenuBar(bar, { 0, 0, 1920, 24 }); }

    void start()
    {
        controller.emplace(services(), preferences, [this](Point point) { clicks.push_back(point); });
    }
    AppleMenuOverlayServices services() { return { windows, screens, workspace, pointer, panels, time, time, hasVisibility ? &visibility : nullptr }; }
    /// Until the first fast period is over.
    void startAndRest()
    {
        start();
        time.advance(1s);
    }
    void addSecondDisplay()
    {
        screens.list.push_back({ 1920, -120, 1600, 1200 });
        windows.addMenuBar(8, { 1920, 0, 1600, 30 });
    }
    /// The bar's top edge, as a distance from the screen's.
    void slideBarTo(double y) { windows.menuBar(bar).bounds->y = y; }
    void hideBar() { windows.menuBar(bar).isOnscreen = false; }
    void showBar() { windows.menuBar(bar).isOnscreen = true; }
    Intervals heartbeat() const { return time.repeatingIntervals(); }

    fakes::FakeUserDefaults defaults;
    Preferences preferences { defaults };
    fakes::FakeWindowList windows;
    fakes::FakeScreens screens;
    fakes::FakeWorkspaceEvents workspace;
    fakes::FakePointerMonitor pointer;
    fakes::FakeOverlayPanels panels;
    fakes::FakeMenuBarVisibility visibility;
    bool hasVisibility = true;
    fakes::FakeTime time;
    std::vector<Point> clicks;
    std::optional<AppleMenuOverlayController> controller;

    Intervals const slow { 100ms };
    Intervals const fast { 8ms };
    Rects const overBar { { 0, 1056, 44, 25 } };
};

TEST_F(AppleMenuOverlay, StandsAtTheLeftEndOfTheMenuBarWhereverThatIs)
{
    struct Row {
        Rect primary, bounds, expected;
        char const* why;
    };
    Row const rows[] = {
        { { 0, 0, 1920, 1080 }, { 0, 0, 1920, 24 }, { 0, 1056, 44, 25 }, "an ordinary menu bar" },
        { { 0, 0, 1512, 982 }, { 0, 0, 1512, 37 }, { 0, 945, 44, 38 }, "a tall one" },
        { { 0, 0, 1920, 1080 }, { -1600, 300, 1600, 24 }, { -1600, 756, 44, 25 }, "a screen to the left and further down" },
        { { 0, 0, 1920, 1080 }, { 200, -1200, 1600, 24 }, { 200, 2256, 44, 25 }, "a screen above the primary one" },
        { { 0, 0, 1920, 1080 }, { 0, -14, 1920, 24 }, { 0, 1070, 44, 25 }, "a bar that is sliding in" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        controller.reset();
        screens.list = { row.primary };
        windows.windows.clear();
        windows.addMenuBar(bar, row.bounds);
        start();
        EXPECT_EQ(panels.frames(), Rects { row.expected });
    }
}

TEST_F(AppleMenuOverlay, TakesOnlyTheWindowServersWindowsAtMenuLevelForMenuBars)
{
    windows.windows.push_back({ "Window Server", 25, Rect { 0, 0, 30, 24 }, 20, true });
    windows.windows.push_back({ "Notepad", 24, Rect { 0, 0, 30, 24 }, 21, true });
    windows.windows.push_back({ "Window Server", 24, std::nullopt, 22, true });
    start();
    EXPECT_EQ(panels.frames(), overBar);
}

TEST_F(AppleMenuOverlay, ShowsNothingWithoutScreensOrMenuBars)
{
    screens.list.clear();
    start();
    EXPECT_TRUE(panels.frames().empty());

    screens.list = { { 0, 0, 1920, 1080 } };
    windows.windows.clear();
    time.advance(1s);
    EXPECT_TRUE(panels.frames().empty());
}

TEST_F(AppleMenuOverlay, MakesPanelsThatFollowEverySpaceAboveTheMenuBar)
{
    start();
    auto const panel = panels.shown().at(0);
    EXPECT_EQ(panel->style.level, 25);
    EXPECT_EQ(panel->style.collectionBehavior, 337u);
    EXPECT_EQ(panel->style.background, (Color { 0, 0, 0, 0.004 }));
    EXPECT_TRUE(panel->content->acceptsFirstMouse());
}

TEST_F(AppleMenuOverlay, OpensTheMenuBelowItsLeftEdgeOnEitherButtonAndOnAPress)
{
    start();
    auto* content = panels.shown().at(0)->content;
    content->mouseDown();
    content->rightMouseDown();
    EXPECT_TRUE(content->accessibilityPerformPress());
    EXPECT_EQ(clicks, (std::vector<Point> { { 0, 1050 }, { 0, 1050 }, { 0, 1050 } }));
    EXPECT_EQ(content->accessibilityRole(), AccessibilityRole::menuBarItem);
    EXPECT_EQ(content->accessibilityLabel(), "Zanthe Vell");
}

TEST_F(AppleMenuOverlay, SurvivesAMenuThatTakesTheOverlayAway)
{
    controller.emplace(services(), preferences, [this](Point) { controller.reset(); });
    panels.shown().at(0)->content->mouseDown();
    EXPECT_TRUE(panels.shown().empty());
    EXPECT_TRUE(heartbeat().empty());
}

TEST_F(AppleMenuOverlay, GivesEachDisplayItsOwnAndFollowsWhenOneGoes)
{
    addSecondDisplay();
    start();
    EXPECT_EQ(panels.frames(), (Rects { { 0, 1056, 44, 25 }, { 1920, 1050, 44, 31 } }));
    panels.shown().at(1)->content->mouseDown();
    EXPECT_EQ(clicks.back(), (Point { 1920, 1044 }));

    screens.list.pop_back();
    windows.windows.pop_back();
    screens.onChanged();
    EXPECT_EQ(panels.frames(), overBar);
}

TEST_F(AppleMenuOverlay, FindsTheMenuBarOfADisplayThatWasAdded)
{
    startAndRest();
    addSecondDisplay();
    screens.onChanged();
    EXPECT_EQ(panels.frames().size(), 2u);
}

TEST_F(AppleMenuOverlay, StillKnowsAHiddenBarAfterTheScreensChanged)
{
    startAndRest();
    hideBar();
    screens.onChanged();
    auto const scans = windows.scans;
    showBar();
    time.advance(100ms);
    EXPECT_EQ(panels.frames(), overBar);
    EXPECT_EQ(windows.scans, scans);
}

TEST_F(AppleMenuOverlay, MakesAllPanelsAnewWhenTheirNumberChangesAndMovesThemOtherwise)
{
    addSecondDisplay();
    start();
    auto const before = panels.made.size();
    slideBarTo(-10);
    EXPECT_TRUE(controller->sync());
    EXPECT_EQ(panels.made.size(), before);
    EXPECT_EQ(panels.shown().at(0)->frame, (Rect { 0, 1066, 44, 25 }));
    EXPECT_FALSE(controller->sync()) << "nothing moved since";

    windows.windows.pop_back();
    EXPECT_TRUE(controller->sync());
    EXPECT_EQ(panels.made.size(), before + 1);
    EXPECT_EQ(panels.shown().size(), 1u);
}

TEST_F(AppleMenuOverlay, IsGoneWhileTheSpaceHidesItsMenuBar)
{
    start();
    visibility.visible = false;
    workspace.onActiveSpaceChanged();
    EXPECT_TRUE(panels.frames().empty());
    visibility.visible = true;
    workspace.onApplicationActivated();
    EXPECT_EQ(panels.frames(), overBar);
}

TEST_F(AppleMenuOverlay, ReliesOnTheWindowListWhereTheSpaceCannotBeAsked)
{
    hasVisibility = false;
    visibility.visible = false;
    start();
    EXPECT_EQ(panels.frames(), overBar);
}

TEST_F(AppleMenuOverlay, BeginsAtTheFastRateForItsFirst400Milliseconds)
{
    start();
    EXPECT_EQ(heartbeat(), slow) << "until the first tick";
    time.advance(100ms);
    EXPECT_EQ(heartbeat(), fast);
    time.advance(296ms);
    EXPECT_EQ(heartbeat(), fast);
    time.advance(8ms);
    EXPECT_EQ(heartbeat(), slow);
}

TEST_F(AppleMenuOverlay, FollowsASlidingBarAtTheFastRateUntilItHasRestedFor400Milliseconds)
{
    startAndRest();
    EXPECT_EQ(heartbeat(), slow);

    slideBarTo(-20);
    time.advance(100ms);
    EXPECT_EQ(heartbeat(), fast);
    for (double y = -18; y <= 0; y += 2) {
        slideBarTo(y);
        time.advance(8ms);
        EXPECT_EQ(panels.frames(), (Rects { { 0, 1056 - y, 44, 25 } }));
    }
    time.advance(392ms);
    EXPECT_EQ(heartbeat(), fast);
    time.advance(8ms);
    EXPECT_EQ(heartbeat(), slow);
}

TEST_F(AppleMenuOverlay, FollowsAtOnceWhereTheSystemTellsThatABarMoves)
{
    start();
    slideBarTo(-12);
    windows.onMenuBarsChanged();
    EXPECT_EQ(panels.frames(), (Rects { { 0, 1068, 44, 25 } }));
    EXPECT_EQ(heartbeat(), fast);

    time.advance(1s);
    windows.onMenuBarsChanged();
    EXPECT_EQ(heartbeat(), slow) << "a call without a move costs one look";
}

TEST_F(AppleMenuOverlay, QuickensWhenThePointerComesNearOrLeavesTheTopOfAScreen)
{
    startAndRest();
    hideBar();
    time.advance(1s);
    pointer.moveTo({ 500, 500 });
    EXPECT_EQ(heartbeat(), slow);

    pointer.moveTo({ 500, 1040 });
    EXPECT_EQ(heartbeat(), fast);
    time.advance(200ms);
    slideBarTo(-23);
    showBar();
    time.advance(8ms);
    EXPECT_EQ(panels.frames(), (Rects { { 0, 1079, 44, 25 } }));

    time.advance(2s);
    EXPECT_EQ(heartbeat(), slow);
    pointer.moveTo({ 500, 500 });
    EXPECT_EQ(heartbeat(), fast) << "leaving makes the bar slide out";
    time.advance(2s);
    pointer.moveTo({ 500, 400 });
    EXPECT_EQ(heartbeat(), slow);
}

TEST_F(AppleMenuOverlay, CallsTheTopFortyPointsOfAnyScreenNear)
{
    addSecondDisplay();
    start();
    struct Row {
        Point location;
        bool isNear;
        char const* why;
    };
    Row const rows[] = {
        { { 0, 1040 }, true, "left edge, forty points down" },
        { { 1000, 1039.9 }, false, "a hair lower" },
        { { 3520, 1060 }, true, "right edge of the second screen" },
        { { 3520.1, 1060 }, false, "beyond it" },
        { { 2000, 1039 }, false, "its own top decides" },
        { { 100, 5000 }, true, "above is near as well" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        pointer.moveTo(row.location);
        EXPECT_EQ(controller->isPointerNearMenuBar(), row.isNear);
    }
}

TEST_F(AppleMenuOverlay, LooksOnlyAtTheWindowsItKnows)
{
    startAndRest();
    auto const scans = windows.scans;
    auto const lookups = windows.lookups;
    time.advance(1s);
    EXPECT_EQ(windows.scans, scans);
    EXPECT_EQ(windows.lookups, lookups + 10);
}

TEST_F(AppleMenuOverlay, ScansNoMoreThanOnceASecondWhileTheBarIsHiddenAndKeepsLookingAtIt)
{
    start();
    auto const scans = windows.scans;
    hideBar();
    time.advance(900ms);
    EXPECT_EQ(windows.scans, scans) << "the first scan is not a second old";
    showBar();
    time.advance(100ms);
    EXPECT_EQ(panels.frames(), overBar);
    EXPECT_EQ(windows.scans, scans);
}

TEST_F(AppleMenuOverlay, FindsAMenuBarThatCameBackAsAnotherWindow)
{
    start();
    time.advance(5s);
    windows.windows.clear();
    windows.addMenuBar(99, { 0, 0, 1920, 24 });
    auto const scans = windows.scans;
    time.advance(100ms);
    EXPECT_EQ(windows.scans, scans + 1);
    EXPECT_EQ(panels.frames(), overBar);
}

TEST_F(AppleMenuOverlay, ScansEachTimeWhileItKnowsNoMenuBar)
{
    windows.windows.clear();
    startAndRest();
    auto const scans = windows.scans;
    time.advance(300ms);
    EXPECT_EQ(windows.scans, scans + 3);
}

TEST_F(AppleMenuOverlay, NeverRemembersAWindowWithoutAUsableNumber)
{
    windows.windows.clear();
    windows.addMenuBar(-1, { 0, 0, 1920, 24 });
    windows.addMenuBar(std::int64_t(1) << 32, { 1920, 0, 1600, 24 });
    windows.addMenuBar(1, { 3600, 0, 1600, 24 }).number = std::nullopt;
    start();
    EXPECT_EQ(panels.frames().size(), 3u) << "they are shown all the same";
    auto const scans = windows.scans;
    EXPECT_FALSE(controller->sync());
    EXPECT_EQ(windows.scans, scans + 1) << "by asking for the whole list";
    EXPECT_EQ(windows.lookups, 0);
}

TEST_F(AppleMenuOverlay, GoesAndComesWithItsPreference)
{
    start();
    preferences.setReplacesAppleMenu(false);
    EXPECT_TRUE(panels.frames().empty());
    preferences.setReplacesAppleMenu(true);
    EXPECT_EQ(panels.frames(), overBar);
    preferences.setReplacesAppleMenu(false);
    EXPECT_TRUE(panels.frames().empty()) << "each change is observed, not only the first";
}

TEST_F(AppleMenuOverlay, DrawsTheLogoOnlyWhereBothPreferencesAskForIt)
{
    struct Row {
        bool replaces, rainbow;
        std::size_t fills;
    };
    AppleMenuOverlayView view(preferences);
    for (auto const& row : { Row { true, true, 6 }, Row { true, false, 0 }, Row { false, true, 0 }, Row { false, false, 0 } }) {
        preferences.setReplacesAppleMenu(row.replaces);
        preferences.setDrawsRainbowAppleLogo(row.rainbow);
        fakes::FakeCanvas canvas;
        view.draw(&canvas, 25);
        EXPECT_EQ(canvas.fills.size(), row.fills) << row.replaces << row.rainbow;
        if (row.fills > 0) {
            EXPECT_NEAR(canvas.clip->y, 5.15, 1e-9) << "as in a view of the menu bar's own height";
        }
    }
}

TEST_F(AppleMenuOverlay, RedrawsWhenTheLogoIsSwitched)
{
    start();
    auto const panel = panels.shown().at(0);
    preferences.setDrawsRainbowAppleLogo(false);
    preferences.setDrawsRainbowAppleLogo(true);
    EXPECT_EQ(panel->redraws, 2);
    EXPECT_EQ(panel->moves, 0);
}

TEST_F(AppleMenuOverlay, LeavesNothingRunningWhenItGoes)
{
    start();
    controller.reset();
    EXPECT_TRUE(panels.shown().empty());
    EXPECT_TRUE(heartbeat().empty());
    EXPECT_FALSE(pointer.isWatched());
    EXPECT_FALSE(screens.onChanged || workspace.onActiveSpaceChanged || workspace.onApplicationActivated || windows.onMenuBarsChanged);
    preferences.setReplacesAppleMenu(false); // tells nobody
}

} // namespace
} // namespace zv
