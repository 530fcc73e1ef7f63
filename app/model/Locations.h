#pragma once

#include "app/model/ItemLocation.h"
#include "platform/System.h"

namespace zv {

/// This system's services to find a file again; they live as long as the system.
[[nodiscard]] inline LocationServices locationsOf(System const& system) { return { *system.files.disk, system.files.bookmarks, system.places.home }; }

} // namespace zv
