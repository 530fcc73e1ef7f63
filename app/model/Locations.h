#pragma once

#include "app/model/ItemLocation.h"
#include "platform/System.h"

namespace zv {

/// What finding a file again takes, of this system; as long as the system lives.
[[nodiscard]] inline LocationServices locationsOf(System const& system) { return { *system.files.disk, system.files.bookmarks, system.places.home }; }

} // namespace zv
