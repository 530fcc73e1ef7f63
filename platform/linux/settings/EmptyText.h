#pragma once

class QAbstractScrollArea;

namespace zv {

/// Says in the middle of an empty list why it is empty. To be called within its paint event.
void paintEmptyText(QAbstractScrollArea& list, char const* sentence);

} // namespace zv
