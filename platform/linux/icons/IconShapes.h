#pragma once

#include "platform/linux/icons/FileIconNames.h"

class QPainter;

namespace zv {

/// Our own small pictures for a desktop without an icon theme, in a box of 16 by 16 with
/// its origin at the top left; readable on light and on dark menus.
void drawIconShape(QPainter& painter, IconShape shape);
/// The arrow that marks a link, at the lower left.
void drawLinkArrow(QPainter& painter);

} // namespace zv
