#pragma once

#include "platform/desk/TextMeasure.h"

namespace zv {

/// Measures in the menus' font, no text wider than a menu draws it. Needs the QApplication.
class QtTextMeasure : public TextMeasure {
public:
    double menuFontWidth(std::string_view text) const override;
    double shortcutWidth(std::string_view glyphs) const override;
};

} // namespace zv
