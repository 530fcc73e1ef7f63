#pragma once

#include "platform/desk/IconSource.h"
#include "platform/linux/icons/FileIconNames.h"

namespace zv {

/// What themes call a picture. The program's own has no name: it is drawn by us.
[[nodiscard]] FileIconNames iconNamesOf(SystemIcon icon);

} // namespace zv
