#include "platform/linux/menu/SubmenuAim.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zv {
namespace {

constexpr double interval = 8; // milliseconds between the places that the display tells

/// Follows a straight line at that pace, in pixels a second, until the next place would be the
/// end; false as soon as the submenu is lost.
bool keeps(SubmenuAim& aim, QRect const& submenu, QPointF from, QPointF to, double pace, double& time)
{
    auto const way = to - from;
    double const length = std::hypot(way.x(), way.y());
    for (double gone = 0; gone < length; gone += pace * interval / 1000, time += interval) {
        aim.moved((from + way * (gone / length)).toPoint(), static_cast<qint64>(time));
        if (!aim.isAt(submenu))
            return false;
    }
    return true;
}

TEST(SubmenuAim, KeepsASubmenuOnAnyStraightWayAtAnyPace)
{
    QRect const right(300, 100, 200, 500);
    QRect const left(-200, 100, 200, 500);
    struct Row {
        QRect submenu;
        QPointF to;
        bool isKept;
    };
    Row const rows[] = {
        { right, { 300, 100 }, true }, { right, { 300, 350 }, true }, { right, { 300, 600 }, true }, { left, { 0, 100 }, true }, { left, { 0, 600 }, true },
        { right, { 300, 800 }, false }, { right, { 300, -200 }, false }, { right, { 150, 600 }, false }, // straight down
        { right, { 0, 200 }, false }, // the other way
    };
    for (auto const& row : rows) {
        for (double const pace : { 150, 200, 300, 600, 1200, 3000 }) {
            SubmenuAim aim;
            double time = 0;
            EXPECT_EQ(keeps(aim, row.submenu, { 150, 200 }, row.to, pace, time), row.isKept) << row.to.x() << " " << row.to.y() << " at " << pace;
        }
    }
}

TEST(SubmenuAim, NoticesATurnAtOnce)
{
    QRect const submenu(300, 100, 200, 300);
    for (double const pace : { 150, 300, 1000 }) {
        SubmenuAim aim;
        double time = 0;
        ASSERT_TRUE(keeps(aim, submenu, { 100, 150 }, { 200, 220 }, pace, time));
        double const turned = time;
        EXPECT_FALSE(keeps(aim, submenu, { 200, 220 }, { 200, 600 }, pace, time));
        EXPECT_LE(time - turned, 70) << pace;
    }
}

} // namespace
} // namespace zv
