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
    static constexpr MenuBarID bar = 7;

    AppleMenuOverlay() { menuBars.add(bar, { 0, 1056, 1920, 24 }); }

    void start()
    {
        controller.emplace(services(), preferences, [this](Point point) { clicks.push_back(point); });
    }
    AppleMenuOverlayServices services() { return { menuBars, screens, workspace, pointer, panels, time, time, hasVisibility ? &visibility : nullptr }; }
    /// Starts the overlay and lets the first fast period pass.
    void startAndRest()
    {
        start();
        time.advance(1s);
    }
    void addSecondDisplay()
    {
        screens.list.push_back({ 1920, -120, 1600, 1200 });
        menuBars.add(8, { 1920, 1050, 1600, 30 });
    }
    /// Moves the bar's top edge to `y` below the screen's.
    void slideBarTo(double y) { menuBars.bar(bar).frame.y = 1056 - y; }
    void hideBar() { menuBars.bar(bar).isOnScreen = false; }
    void showBar() { menuBars.bar(bar).isOnScreen = true; }
    Intervals heartbeat() const { return time.repeatingIntervals(); }

    fakes::FakeUserDefaults defaults;
    Preferences preferences { defaults };
    fakes::FakeMenuBars menuBars;
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

TEST_F(AppleMenuOverlay, StandsAtTheEndOfTheMenuBarWhereverThatIsAndItsMenuBeside)
{
    struct Row {
        Rect frame, expected;
        Point menu;
        char const* why;
    };
    Row const rows[] = {
        { { 0, 1056, 1920, 24 }, { 0, 1056, 44, 25 }, { 0, 1050 }, "an ordinary menu bar" },
        { { 0, 945, 1512, 37 }, { 0, 945, 44, 38 }, { 0, 939 }, "a tall one" },
        { { -1600, 756, 1600, 24 }, { -1600, 756, 44, 25 }, { -1600, 750 }, "on a screen to the left" },
        { { 0, 1070, 1920, 24 }, { 0, 1070, 44, 25 }, { 0, 1064 }, "a bar that is sliding in" },
        { { 0, 0, 1920, 24 }, { 0, 0, 44, 25 }, { 0, 30 }, "along the bottom" },
        { { 0, 0, 48, 1080 }, { 0, 1036, 48, 44 }, { 54, 1080 }, "at the left side" },
        { { 1872, 100, 48, 800 }, { 1872, 856, 48, 44 }, { 1866, 900 }, "at the right side" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        controller.reset();
        menuBars.bars.clear();
        menuBars.add(bar, row.frame);
        start();
        EXPECT_EQ(panels.frames(), Rects { row.expected });
        panels.shown().at(0)->content->press();
        EXPECT_EQ(clicks.back(), row.menu);
        EXPECT_EQ(panels.shown().at(0)->content->accessibilityLabel(), "Zanthe Vell");
    }
}

TEST_F(AppleMenuOverlay, ShowsNothingWithoutScreensOrMenuBars)
{
    screens.list.clear();
    start();
    EXPECT_TRUE(panels.frames().empty());

    screens.list = { { 0, 0, 1920, 1080 } };
    menuBars.bars.clear();
    time.advance(1s);
    EXPECT_TRUE(panels.frames().empty());
}

TEST_F(AppleMenuOverlay, SurvivesAMenuThatTakesTheOverlayAway)
{
    controller.emplace(services(), preferences, [this](Point) { controller.reset(); });
    panels.shown().at(0)->content->press();
    EXPECT_TRUE(panels.shown().empty());
    EXPECT_TRUE(heartbeat().empty());
}

TEST_F(AppleMenuOverlay, APressMayEndWhatWasPressed)
{
    std::string const held = "more than a string keeps inside itself";
    auto view = std::make_unique<AppleMenuOverlayView>(preferences);
    view->action = [&view, held] {
        view.reset();
        EXPECT_EQ(held.front(), 'm');
    };
    view->press();
    auto window = std::make_unique<AppleMenuOverlayWindow>(panels, preferences, OverlayPlace {});
    window->action = [&window, held](Point) {
        window.reset();
        EXPECT_EQ(held.front(), 'm');
    };
    window->show();
    panels.shown().at(0)->content->press();
    EXPECT_FALSE(view || window);
}

TEST_F(AppleMenuOverlay, GivesEachDisplayItsOwnAndFollowsWhenOneGoes)
{
    addSecondDisplay();
    start();
    EXPECT_EQ(panels.frames(), (Rects { { 0, 1056, 44, 25 }, { 1920, 1050, 44, 31 } }));
    panels.shown().at(1)->content->press();
    EXPECT_EQ(clicks.back(), (Point { 1920, 1044 }));

    screens.list.pop_back();
    menuBars.bars.pop_back();
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
    auto const scans = menuBars.scans;
    showBar();
    time.advance(100ms);
    EXPECT_EQ(panels.frames(), overBar);
    EXPECT_EQ(menuBars.scans, scans);
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

    menuBars.bars.pop_back();
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

TEST_F(AppleMenuOverlay, ReliesOnTheMenuBarsWhereTheSpaceCannotBeAsked)
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
    menuBars.onChanged();
    EXPECT_EQ(panels.frames(), (Rects { { 0, 1068, 44, 25 } }));
    EXPECT_EQ(heartbeat(), fast);

    time.advance(1s);
    menuBars.onChanged();
    EXPECT_EQ(heartbeat(), slow) << "a call without a move costs one look";
}

TEST_F(AppleMenuOverlay, RestsWhereEveryChangeIsTold)
{
    menuBars.tellsAll = true;
    startAndRest();
    EXPECT_EQ(heartbeat(), Intervals {});
    slideBarTo(10);
    menuBars.onChanged();
    EXPECT_EQ(panels.frames(), (Rects { { 0, 1046, 44, 25 } }));
    EXPECT_EQ(heartbeat(), fast) << "as it may move on";
    time.advance(1s);
    EXPECT_EQ(heartbeat(), Intervals {});
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

TEST_F(AppleMenuOverlay, LooksOnlyAtTheBarsItKnows)
{
    startAndRest();
    auto const scans = menuBars.scans;
    auto const lookups = menuBars.lookups;
    time.advance(1s);
    EXPECT_EQ(menuBars.scans, scans);
    EXPECT_EQ(menuBars.lookups, lookups + 10);
}

TEST_F(AppleMenuOverlay, ScansNoMoreThanOnceASecondWhileTheBarIsHiddenAndKeepsLookingAtIt)
{
    start();
    auto const scans = menuBars.scans;
    hideBar();
    time.advance(900ms);
    EXPECT_EQ(menuBars.scans, scans) << "the first scan is not a second old";
    showBar();
    time.advance(100ms);
    EXPECT_EQ(panels.frames(), overBar);
    EXPECT_EQ(menuBars.scans, scans);
}

TEST_F(AppleMenuOverlay, FindsAMenuBarThatCameBackAsAnotherOne)
{
    start();
    time.advance(5s);
    menuBars.bars.clear();
    menuBars.add(99, { 0, 1056, 1920, 24 });
    auto const scans = menuBars.scans;
    time.advance(100ms);
    EXPECT_EQ(menuBars.scans, scans + 1);
    EXPECT_EQ(panels.frames(), overBar);
}

TEST_F(AppleMenuOverlay, ScansEachTimeWhileItKnowsNoMenuBar)
{
    menuBars.bars.clear();
    startAndRest();
    auto const scans = menuBars.scans;
    time.advance(300ms);
    EXPECT_EQ(menuBars.scans, scans + 3);
}

TEST_F(AppleMenuOverlay, AsksForAllBarsWhereOneCannotBeAskedAgain)
{
    menuBars.bars.clear();
    menuBars.add(std::nullopt, { 0, 1056, 1920, 24 });
    start();
    EXPECT_EQ(panels.frames(), overBar) << "it is shown all the same";
    auto const scans = menuBars.scans;
    EXPECT_FALSE(controller->sync());
    EXPECT_EQ(menuBars.scans, scans + 1);
    EXPECT_EQ(menuBars.lookups, 0);
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
    EXPECT_FALSE(screens.onChanged || workspace.onActiveSpaceChanged || workspace.onApplicationActivated || menuBars.onChanged);
    preferences.setReplacesAppleMenu(false); // tells nobody
}

} // namespace
} // namespace zv
