#include "app/menu/RainbowAppleLogo.h"
#include "tests/fakes/FakeOverlay.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(RainbowAppleLogo, StandsWhereTheLogoBeneathStands)
{
    struct Row {
        double viewHeight, y;
    };
    for (auto const& row : { Row { 24, 5.15 }, Row { 26, 6.15 }, Row { 37, 11.65 }, Row { 0, -6.85 } }) {
        SCOPED_TRACE(row.viewHeight);
        auto const logo = RainbowAppleLogo::logoRect(row.viewHeight);
        EXPECT_NEAR(logo.x, 20.65, 1e-9);
        EXPECT_NEAR(logo.y, row.y, 1e-9);
        EXPECT_NEAR(logo.width, 13.2, 1e-9);
        EXPECT_NEAR(logo.height, 16.2, 1e-9);
    }
}

TEST(RainbowAppleLogo, CoversTheLogoInSixBandsFromGreenToBlueWithoutGapOrOverlap)
{
    fakes::FakeCanvas canvas;
    RainbowAppleLogo::drawRainbowLogo(&canvas, 24);

    auto const logo = RainbowAppleLogo::logoRect(24);
    ASSERT_EQ(canvas.fills.size(), 6u);
    EXPECT_EQ(canvas.clip, logo);
    double edge = logo.maxY();
    for (std::size_t band = 0; band < 6; ++band) {
        SCOPED_TRACE(band);
        auto const& fill = canvas.fills[band];
        EXPECT_EQ(fill.color, RainbowAppleLogo::bandColors[band]);
        EXPECT_EQ(fill.rect.x, logo.x);
        EXPECT_EQ(fill.rect.width, logo.width);
        EXPECT_NEAR(fill.rect.maxY(), edge, 1e-9);
        edge = fill.rect.y;
    }
    EXPECT_NEAR(edge, logo.minY(), 1e-9);
}

TEST(RainbowAppleLogo, LeavesTheCanvasAsItWas)
{
    fakes::FakeCanvas canvas;
    RainbowAppleLogo::drawRainbowLogo(&canvas, 24);
    EXPECT_EQ(canvas.depth, 0);
}

TEST(RainbowAppleLogo, DrawsNothingWithoutACanvasOrAMask)
{
    RainbowAppleLogo::drawRainbowLogo(nullptr, 24);

    fakes::FakeCanvas canvas;
    canvas.mask = nullptr;
    RainbowAppleLogo::drawRainbowLogo(&canvas, 24);
    EXPECT_TRUE(canvas.fills.empty());
    EXPECT_FALSE(canvas.clip);
    EXPECT_EQ(canvas.depth, 0);
}

} // namespace
} // namespace zv
