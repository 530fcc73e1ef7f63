#pragma once

#include "platform/desk/Image.h"

#include <QIcon>

namespace zv {

/// False while the picture is still to be fetched: menuIconOf() would delay a menu.
[[nodiscard]] bool isMenuIconReady(ImageRef const& image);
/// The picture for a menu, fetched now if necessary; null for none.
[[nodiscard]] QIcon menuIconOf(ImageRef const& image);
/// The same drawn larger, in points, for a window; null for none.
[[nodiscard]] QPixmap largePictureOf(ImageRef const& image, int size, qreal scale);
/// An empty picture of the same size, the placeholder for one that is not ready.
[[nodiscard]] QIcon const& blankMenuIcon();

inline constexpr int menuIconSize = 16;

} // namespace zv
