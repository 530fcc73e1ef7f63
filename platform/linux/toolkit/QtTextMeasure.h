#pragma once

#include "platform/desk/TextMeasure.h"

namespace zv {

/// Measures in the menus' font. Needs the QApplication.
class QtTextMeasure : public TextMeasure {
public:
    double menuFontWidth(std::string_view text) const override;
};

} // namespace zv
