#pragma once

class QAbstractScrollArea;

namespace zv {

/// Paints the reason why a list is empty in its middle. Called within its paint event.
void paintEmptyText(QAbstractScrollArea& list, char const* sentence);

} // namespace zv
