#pragma once

#include <string_view>

namespace zv {

/// How wide text is drawn. Main thread only.
class TextMeasure {
public:
    virtual ~TextMeasure() = default;
    /// In points, in the standard menu font.
    [[nodiscard]] virtual double menuFontWidth(std::string_view text) const = 0;
};

} // namespace zv
