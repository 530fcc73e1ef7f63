#include "platform/linux/overlay/PanelCorner.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>

namespace zv {
namespace {

constexpr int kReach = 44;

/// A panel painted column by column: a stretch of `length` columns each, blank or drawn.
struct Stretch {
    enum class Kind { blank, drawn };
    Kind kind;
    int length;
};
constexpr auto blank = Stretch::Kind::blank;
constexpr auto drawn = Stretch::Kind::drawn;

enum class Ground { plain, shaded, translucent };

std::uint32_t groundAt(Ground ground, int y)
{
    switch (ground) {
    case Ground::plain:
        return 0xfff6f5f4;
    case Ground::shaded:
        return 0xff000000 | static_cast<std::uint32_t>(40 + 3 * y) * 0x010101;
    case Ground::translucent:
        return 0x80303030;
    }
    return 0;
}

/// Pictures and letters leave some of the topmost and lowest rows free; the last row is the panel's border.
PanelPixels panelOf(std::vector<Stretch> const& runs, Ground ground = Ground::plain, int height = 27, int free = 4)
{
    PanelPixels panel { 200, height, {} };
    for (int y = 0; y < height; ++y) {
        std::vector<std::uint32_t> row(200, y == height - 1 ? 0xffb6b0a8 : groundAt(ground, y));
        for (std::size_t column = 0; ground == Ground::shaded && column < row.size(); column += 8)
            row[column] ^= 0x030303; // dithered
        std::size_t x = 0;
        for (auto const& run : runs) {
            for (int i = 0; i < run.length; ++i, ++x) {
                if (run.kind == drawn && y >= free && y < height - free)
                    row[x] = 0xffcc2020;
            }
        }
        panel.pixels.insert(panel.pixels.end(), row.begin(), row.end());
    }
    return panel;
}

TEST(PanelCorner, FindsThePictureThatStandsFirst)
{
    struct Row {
        std::vector<Stretch> runs;
        int x, width, beside;
        bool isCut;
        char const* why;
    };
    Row const rows[] = {
        { { { blank, 3 }, { drawn, 14 }, { blank, 3 }, { drawn, 9 } }, 3, 14, 17, false, "an icon and its label" },
        { { { blank, 3 }, { drawn, 6 }, { blank, 2 }, { drawn, 6 } }, 3, 14, 17, false, "a picture in two parts close together" },
        { { { drawn, 20 }, { blank, 30 } }, 0, 20, 20, false, "one that begins at the very edge" },
        { { { blank, 30 }, { drawn, 10 }, { blank, 10 } }, 30, 10, 40, false, "one at the far end of the reach" },
        { { { blank, 4 }, { drawn, 30 }, { blank, 1 }, { drawn, 30 } }, 4, 30, 34, true, "a word is cut between two letters" },
        { { { blank, 1 }, { drawn, 26 }, { blank, 2 }, { drawn, 22 } }, 1, 26, 27, false, "a button close to the next" },
        { { { blank, 4 }, { drawn, 90 } }, 4, 40, 94, true, "what has no gap at all is cut at the reach" },
    };
    for (auto const& row : rows) {
        for (auto const ground : { Ground::plain, Ground::shaded, Ground::translucent }) {
            SCOPED_TRACE(std::string(row.why) + ", ground " + std::to_string(static_cast<int>(ground)));
            auto const corner = findPanelCorner(panelOf(row.runs, ground), kReach);
            ASSERT_TRUE(corner.picture);
            EXPECT_EQ(*corner.picture, (XRect { row.x, 4, row.width, 19 }));
            EXPECT_EQ(corner.backgroundColumn, row.beside);
            EXPECT_EQ(corner.isCut, row.isCut);
        }
    }
}

TEST(PanelCorner, FindsNoneOnAnEmptyCornerOrInNothing)
{
    EXPECT_FALSE(findPanelCorner(panelOf({}), kReach).picture);
    EXPECT_FALSE(findPanelCorner(panelOf({ { blank, 44 }, { drawn, 20 } }), kReach).picture) << "beyond the reach";
    EXPECT_FALSE(findPanelCorner({}, kReach).picture);
}

TEST(PanelCorner, TellsThePictureFromItsLabelOnAPanelMuchHigherThanBoth)
{
    auto const corner = findPanelCorner(panelOf({ { blank, 12 }, { drawn, 16 }, { blank, 3 }, { drawn, 9 } }, Ground::plain, 41, 12), kReach);
    ASSERT_TRUE(corner.picture);
    EXPECT_EQ(*corner.picture, (XRect { 12, 12, 16, 17 }));
}

TEST(PanelCorner, FindsBackgroundBesideWhatReachesFurtherThanThePicture)
{
    auto const onPanel = PanelCorner::Ground::panel;
    auto const panel = panelOf({ { blank, 3 }, { drawn, 6 }, { blank, 4 }, { drawn, 7 }, { blank, 2 }, { drawn, 30 } });
    EXPECT_EQ(backgroundColumnFrom(panel, 10, kReach, onPanel), 10);
    EXPECT_EQ(backgroundColumnFrom(panel, 15, kReach, onPanel), 20) << "not within a letter";
    EXPECT_EQ(backgroundColumnFrom({}, 15, kReach, onPanel), 0);
}

/// The button reaches from the left end to column 100; its frame has round corners.
PanelPixels lit(PanelPixels panel)
{
    for (int y = 0; y < panel.height - 1; ++y) {
        for (int x = 0; x <= 100; ++x) {
            auto& pixel = panel.pixels[static_cast<std::size_t>(y * panel.width + x)];
            int const fromEdge = std::min({ x, y, 100 - x, panel.height - 2 - y });
            bool const isRoundedOff = std::min(x, 100 - x) + std::min(y, panel.height - 2 - y) < 3;
            if (pixel == groundAt(Ground::plain, y))
                pixel = isRoundedOff || fromEdge > 0 ? 0xfffafaf9 : 0xffcfcac4;
            if (isRoundedOff && fromEdge > 0)
                pixel = 0xffcfcac4;
        }
    }
    return panel;
}

TEST(PanelCorner, FindsThePictureOnAButtonThatIsLitUp)
{
    std::vector<Stretch> runs { { blank, 3 }, { drawn, 14 }, { blank, 3 } };
    for (int letter = 0; letter < 10; ++letter)
        runs.insert(runs.end(), { { drawn, 2 }, { blank, 5 } });
    auto const corner = findPanelCorner(lit(panelOf(runs)), kReach);
    ASSERT_TRUE(corner.picture);
    EXPECT_EQ(*corner.picture, (XRect { 3, 4, 14, 19 }));
    EXPECT_EQ(corner.backgroundColumn, 17) << "the button's own, which goes out with it";
    EXPECT_FALSE(corner.isCut);
    EXPECT_EQ(corner.ground, PanelCorner::Ground::litButton);
}

TEST(PanelCorner, EndsAButtonAtTheGapThatAHairlineCrosses)
{
    auto panel = panelOf({ { blank, 1 }, { drawn, 26 }, { blank, 2 }, { drawn, 22 } });
    std::fill_n(panel.pixels.begin() + 6 * panel.width, 29, 0xffbbbbbb);
    auto const corner = findPanelCorner(panel, kReach);
    ASSERT_TRUE(corner.picture);
    EXPECT_EQ(*corner.picture, (XRect { 0, 4, 29, 19 })) << "nothing of the line is left beside the logo";
    EXPECT_EQ(corner.backgroundColumn, 51) << "without the line";
    EXPECT_EQ(corner.nextButton, 29);
    EXPECT_FALSE(corner.isCut);
}

TEST(PanelCorner, TellsWhereAnotherButtonBegins)
{
    struct Row {
        std::vector<Stretch> runs;
        std::optional<int> expected;
        char const* why;
    };
    Row const rows[] = {
        { { { blank, 1 }, { drawn, 26 }, { blank, 2 }, { drawn, 22 } }, 29, "one close to it" },
        { { { blank, 4 }, { drawn, 16 }, { blank, 12 }, { drawn, 22 } }, 32, "one further away" },
        { { { blank, 4 }, { drawn, 16 }, { blank, 40 }, { drawn, 22 } }, std::nullopt, "one beyond the reach" },
        { { { blank, 4 }, { drawn, 16 }, { blank, 4 }, { drawn, 4 }, { blank, 1 }, { drawn, 20 } }, std::nullopt, "a letter is none" },
        { { { blank, 4 }, { drawn, 40 } }, std::nullopt, "nothing is known of what is cut" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(findPanelCorner(panelOf(row.runs), kReach).nextButton, row.expected) << row.why;
}

TEST(PanelCorner, APanelIsAsDarkAsMostOfIt)
{
    struct Row {
        std::vector<std::uint32_t> pixels;
        std::optional<bool> dark;
        char const* why;
    };
    Row const rows[] = {
        { { 0xff202020, 0xff222222, 0xff242424, 0xffffffff, 0xffffffff }, true, "shades of one colour count together" },
        { { 0xfff6f5f4, 0xfff6f5f4, 0xff000000 }, false, "letters do not count" },
        { { 0xff0000ff }, true, "blue is dark" },
        { { 0xffa0ff40 }, false, "green is light" },
        { {}, std::nullopt, "one that cannot be read" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(isDark(row.pixels), row.dark) << row.why;
}

TEST(PanelCorner, CopesWithAPanelNarrowerThanTheReach)
{
    PanelPixels panel { 10, 12, std::vector<std::uint32_t>(120, 0xff202020) };
    panel.pixels[5 * 10 + 9] = 0xffffffff;
    auto const corner = findPanelCorner(panel, kReach);
    ASSERT_TRUE(corner.picture);
    EXPECT_EQ(*corner.picture, (XRect { 9, 5, 1, 1 }));
    EXPECT_EQ(corner.backgroundColumn, 9);
}

} // namespace
} // namespace zv
