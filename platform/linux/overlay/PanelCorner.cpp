#include "platform/linux/overlay/PanelCorner.h"

#include <QRgb>

#include <algorithm>
#include <cstdlib>
#include <map>

namespace zv {

namespace {

constexpr int kShadeStep = 16; ///< of 256: one shade with its gradient
constexpr int kDarkest = 128;
constexpr int kTolerance = 12; ///< of 255 a channel: gradients and antialiased rims

bool differs(std::uint32_t a, std::uint32_t b)
{
    for (int shift = 0; shift < 32; shift += 8) {
        if (std::abs(static_cast<int>((a >> shift) & 0xff) - static_cast<int>((b >> shift) & 0xff)) > kTolerance)
            return true;
    }
    return false;
}

/// Each row's most frequent colour is its background, as a panel is mostly empty, and plain or
/// shaded from the top down.
std::vector<std::uint32_t> backgroundOf(PanelPixels const& panel, int width)
{
    std::vector<std::uint32_t> rows;
    for (int y = 0; y < panel.height; ++y) {
        std::map<std::uint32_t, int> counts;
        for (int x = 0; x < width; ++x)
            ++counts[panel.at(x, y)];
        rows.push_back(std::max_element(counts.begin(), counts.end(), [](auto const& a, auto const& b) { return a.second < b.second; })->first);
    }
    return rows;
}

/// The maximum thickness of a button's frame, and of its round corners.
int frameOf(PanelPixels const& panel) { return panel.height / 6; }

/// Buttons side by side, each with a ground of its own, may stand closer than letters, and a line of one pixel may go
/// through all of them.
enum class Expect { picture, tile };

class Columns {
public:
    Columns(PanelPixels const& panel, int reach, PanelCorner::Ground ground, Expect expected)
        : m_panel(panel)
        , m_expected(expected)
        , m_background(backgroundOf(panel, ground == PanelCorner::Ground::panel ? panel.width : std::min(2 * reach, panel.width)))
        , m_frame(ground == PanelCorner::Ground::panel ? 0 : frameOf(panel))
        , m_reach(std::min(reach, panel.width))
        , m_letterGap(std::max(1, std::min(panel.height, 2 * boundsOf(0, m_reach).height) / 13))
    {
    }

    [[nodiscard]] int firstDrawn() const
    {
        int x = 0;
        while (x < m_frame && !isEmpty(x))
            ++x;
        if (x == m_frame)
            x = 0; // the drawn part is too wide for a frame
        while (x < m_reach && isEmpty(x))
            ++x;
        return x;
    }
    struct End {
        int column; ///< one past the picture's last column
        bool isCut;
    };
    [[nodiscard]] End endOfPicture(int from) const
    {
        int lastGap = 0;
        for (int x = from; x < m_reach; ++x) {
            if (!isEmpty(x))
                continue;
            if (emptyFrom(x) > m_letterGap || (m_expected == Expect::tile && isTile(from, x)))
                return { x, false };
            lastGap = x;
        }
        // A word is cut between two of its letters rather than through one.
        return { lastGap > from ? lastGap : m_reach, true };
    }
    [[nodiscard]] int firstEmptyFrom(int x) const
    {
        while (x < m_panel.width - 1 && drawnIn(x) > 0)
            ++x;
        return std::min(x, m_panel.width - 1);
    }
    /// The picture's columns, with the hairlines that lead to it.
    [[nodiscard]] XRect pictureIn(int from, int end) const
    {
        while (from > 0 && drawnIn(from - 1) > 0)
            --from;
        while (end < m_reach && drawnIn(end) > 0 && isEmpty(end))
            ++end;
        return boundsOf(from, end);
    }
    /// What stands beside the picture, or beside the button that it is on.
    [[nodiscard]] std::optional<int> tileBeside(int end) const
    {
        int const gap = drawnUntil(end - 1); // a hairline that was added to the picture is part of the gap
        int const from = gap + emptyFrom(gap), to = drawnUntil(from);
        return from < m_reach && isTile(from, to) ? std::optional(from) : std::nullopt;
    }
    [[nodiscard]] XRect boundsOf(int from, int end) const
    {
        int top = m_panel.height, bottom = 0;
        for (int y = m_frame; y < m_panel.height - m_frame; ++y) {
            for (int x = from; x < end; ++x) {
                if (isDrawn(x, y)) {
                    top = std::min(top, y);
                    bottom = y + 1;
                }
            }
        }
        return { from, top, end - from, bottom - top };
    }

private:
    [[nodiscard]] bool isDrawn(int x, int y) const { return differs(m_panel.at(x, y), m_background[static_cast<std::size_t>(y)]); }
    [[nodiscard]] int drawnIn(int x) const
    {
        int drawn = 0;
        for (int y = m_frame; y < m_panel.height - m_frame; ++y)
            drawn += isDrawn(x, y) ? 1 : 0;
        return drawn;
    }
    [[nodiscard]] bool isEmpty(int x) const { return drawnIn(x) <= (m_expected == Expect::tile ? 1 : 0); }
    /// Whether all columns reach from the top to the bottom, as letters' and most icons' do not.
    [[nodiscard]] bool isTile(int from, int end) const
    {
        auto const bounds = boundsOf(from, end);
        int const roundness = frameOf(m_panel);
        for (int x = from; x < end; ++x) {
            auto const column = boundsOf(x, x + 1);
            if (column.y > bounds.y + roundness || column.bottom() < bounds.bottom() - roundness)
                return false;
        }
        return bounds.width >= m_panel.height / 2 && bounds.height >= 2 * m_panel.height / 3;
    }
    [[nodiscard]] int drawnUntil(int x) const
    {
        while (x < m_panel.width && !isEmpty(x))
            ++x;
        return x;
    }
    [[nodiscard]] int emptyFrom(int x) const
    {
        int end = x;
        while (end < m_panel.width && isEmpty(end))
            ++end;
        return end - x;
    }

    PanelPixels const& m_panel;
    Expect m_expected;
    std::vector<std::uint32_t> m_background;
    int m_frame;
    int m_reach;
    int m_letterGap;
};

PanelCorner cornerOn(PanelPixels const& panel, int reach, PanelCorner::Ground ground, Expect expected = Expect::picture)
{
    Columns const columns(panel, reach, ground, expected);
    int const from = columns.firstDrawn();
    if (from >= std::min(reach, panel.width))
        return {};
    auto const end = columns.endOfPicture(from);
    return { columns.pictureIn(from, end.column), columns.firstEmptyFrom(end.column), end.isCut, ground };
}

PanelCorner wholeCorner(PanelPixels const& panel, int reach)
{
    auto const corner = cornerOn(panel, reach, PanelCorner::Ground::panel);
    bool const mayBeButton = corner.isCut && corner.picture->x < frameOf(panel);
    if (!mayBeButton)
        return corner;
    auto const onButton = cornerOn(panel, reach, PanelCorner::Ground::litButton);
    auto const tile = cornerOn(panel, reach, PanelCorner::Ground::panel, Expect::tile);
    auto const isWhole = [](PanelCorner const& found) { return found.picture && !found.isCut; };
    auto const isGap = [](PanelCorner const& found) { return 2 * found.picture->width < found.picture->height; }; // between two lit buttons
    if (isWhole(onButton) && !isGap(onButton))
        return onButton;
    return isWhole(tile) ? tile : corner;
}

} // namespace

PanelCorner findPanelCorner(PanelPixels const& panel, int reach)
{
    if (panel.width <= 0 || panel.height <= 0)
        return {};
    auto corner = wholeCorner(panel, reach);
    if (corner.picture && !corner.isCut)
        corner.nextButton = Columns(panel, reach, PanelCorner::Ground::panel, Expect::tile).tileBeside(corner.picture->right());
    return corner;
}

int backgroundColumnFrom(PanelPixels const& panel, int x, int reach, PanelCorner::Ground ground)
{
    return panel.width <= 0 || panel.height <= 0 ? 0 : Columns(panel, reach, ground, Expect::picture).firstEmptyFrom(x);
}

std::optional<bool> isDark(std::span<std::uint32_t const> pixels)
{
    std::map<int, int> shades;
    for (auto const pixel : pixels)
        ++shades[qGray(pixel) / kShadeStep];
    auto const most = std::ranges::max_element(shades, {}, [](auto const& shade) { return shade.second; });
    return most == shades.end() ? std::nullopt : std::optional(most->first * kShadeStep < kDarkest);
}

} // namespace zv
