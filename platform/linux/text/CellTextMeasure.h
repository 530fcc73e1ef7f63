#pragma once

#include "platform/desk/TextMeasure.h"

namespace zv {

/// Measures where there is no display: in the cells of a terminal, a cell a point.
class CellTextMeasure : public TextMeasure {
public:
    double menuFontWidth(std::string_view text) const override;
};

} // namespace zv
