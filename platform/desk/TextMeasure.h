#pragma once

#include <string_view>

namespace zv {

/// How wide menus draw text, in points, in the standard menu font. Main thread only.
class TextMeasure {
public:
    virtual ~TextMeasure() = default;
    [[nodiscard]] virtual double menuFontWidth(std::string_view text) const = 0;
    /// The width of a shortcut, given in glyphs, in the notation of this system's menus.
    [[nodiscard]] virtual double shortcutWidth(std::string_view glyphs) const { return menuFontWidth(glyphs); }
};

} // namespace zv
