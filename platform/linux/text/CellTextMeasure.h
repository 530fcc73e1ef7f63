#pragma once

#include "platform/desk/TextMeasure.h"

namespace zv {

/// Measures text without a display, in a terminal's cells, a cell a point.
class CellTextMeasure : public TextMeasure {
public:
    double menuFontWidth(std::string_view text) const override;
};

} // namespace zv
