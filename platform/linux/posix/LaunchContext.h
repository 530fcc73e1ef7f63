#pragma once

#include "platform/linux/posix/GObjects.h"

namespace zv {

/// Keeps a variable that this program has set for its own libraries from all that it launches.
/// Main thread, before the first launch.
void keepFromChildren(std::string variable);

/// The context of a launch, with the environment that this program was started with. Any thread.
[[nodiscard]] GObjectRef<GAppLaunchContext> launchContext();

} // namespace zv
