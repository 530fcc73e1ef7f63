#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace zv {

/// A colour as 0xRRGGBB.
using Rgb = std::uint32_t;

/// The colour that a script gives an entry's title, which may be one for light grounds and another for dark ones.
struct TextColor {
    Rgb onLight = 0;
    Rgb onDark = 0;

    friend bool operator==(TextColor const&, TextColor const&) = default;
};

/// Reads "red", "#f00", "#ff0000", "#ff0000ff" (as opaque), and two of them with a comma between; empty for other texts.
[[nodiscard]] std::optional<TextColor> parseTextColor(std::string_view text);

/// The contrast of two colours, from 1 to 21, as WCAG 2.1 (1.4.3) defines it.
[[nodiscard]] double contrastOf(Rgb a, Rgb b);

/// The colour for that ground, darkened or lightened as far as a contrast of 4.5 to 1 needs.
[[nodiscard]] Rgb readableOn(Rgb ground, TextColor const& color);

} // namespace zv
