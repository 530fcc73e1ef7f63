#pragma once

#include "base/Translation.h"

class QAbstractScrollArea;

namespace zv {

/// Paints the reason why a list is empty in its middle. Called within its paint event.
void paintEmptyText(QAbstractScrollArea& list, Sentence const& sentence);

} // namespace zv
