#pragma once

#include "platform/linux/x11/X11Screens.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace zv {

/// A panel's left end as pixels, row by row from the top; alpha, if any, in the top byte.
struct PanelPixels {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    [[nodiscard]] std::uint32_t at(int x, int y) const
    {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)];
    }
    friend bool operator==(PanelPixels const&, PanelPixels const&) = default;
};

/// The picture at the panel's left end, in the panel's own pixels.
struct PanelCorner {
    std::optional<XRect> picture; ///< the first thing drawn there, such as a launcher's icon
    int backgroundColumn = 0; ///< a column beside it that shows only background
    bool isCut = false; ///< no gap ends the picture: a word, or a wholly lit area
    /// The background: a lit button has one of its own, and a frame.
    enum class Ground { panel, litButton } ground = Ground::panel;
    std::optional<int> nextButton; ///< the column within the reach at which another button begins, as far as its frame or ground shows
    friend bool operator==(PanelCorner const&, PanelCorner const&) = default;
};

/// Finds the picture that begins within `reach` pixels; it ends at the first gap wider than those
/// between letters.
[[nodiscard]] PanelCorner findPanelCorner(PanelPixels const& panel, int reach);

/// The first column from `x` on that shows only background; the panel's last without one.
[[nodiscard]] int backgroundColumnFrom(PanelPixels const& panel, int x, int reach, PanelCorner::Ground ground);

/// Whether a panel is dark, by the colour that most of its pixels have, as it is mostly empty. Nothing without pixels.
[[nodiscard]] std::optional<bool> isDark(std::span<std::uint32_t const> pixels);

} // namespace zv
