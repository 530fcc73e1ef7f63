#pragma once

#include <QPalette>

namespace zv {

/// The colour of notes: as faint as a contrast of 4.5 to 1 with the palette's backgrounds allows, which WCAG 2.1 (1.4.3)
/// asks of text. Themes' own colour for it is often fainter.
[[nodiscard]] QColor faintText(QPalette const& palette);
[[nodiscard]] double contrastOf(QColor const& a, QColor const& b);

} // namespace zv
