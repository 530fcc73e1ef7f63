#pragma once

#include "platform/desk/Image.h"

#include <QIcon>

namespace zv {

/// False while the picture is still to be fetched: menuIconOf() would keep a menu waiting.
[[nodiscard]] bool isMenuIconReady(ImageRef const& image);
/// The picture for a menu, fetched now if it must be; null for none.
[[nodiscard]] QIcon menuIconOf(ImageRef const& image);
/// An empty picture of the same size, which keeps the place of one that is not ready.
[[nodiscard]] QIcon const& blankMenuIcon();

inline constexpr int menuIconSize = 16;

} // namespace zv
