#pragma once

#include "platform/desk/IconSource.h"
#include "platform/linux/icons/FileIconNames.h"

namespace zv {

/// The theme's names for an icon. The program's own has none: we draw it.
[[nodiscard]] FileIconNames iconNamesOf(SystemIcon icon);
[[nodiscard]] FileIconNames iconNamesOf(ApplicationCategory category);

} // namespace zv
