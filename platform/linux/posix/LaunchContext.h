#pragma once

#include "platform/linux/posix/GObjects.h"

#include <functional>
#include <string>

namespace zv {

/// Keeps a variable that this program has set for its own libraries from all that it launches.
/// Main thread, before the first launch.
void keepFromChildren(std::string variable);

/// The ways to tell the desktop that the user has asked for an application, so that it may come to the front. Each may
/// be missing; any thread.
struct LaunchTokens {
    /// Begins a sequence of startup notification on X11, and gives its id.
    std::function<std::string(std::string const& applicationName)> startupId {};
    /// Asks a Wayland compositor for a token, which is good for one launch (xdg-activation).
    std::function<std::string()> activationToken {};
};
/// Main thread, before the first launch.
void setLaunchTokens(LaunchTokens tokens);
[[nodiscard]] LaunchTokens const& launchTokens();

/// The context of a launch, with the environment that this program was started with and the tokens for it. Any thread.
[[nodiscard]] GObjectRef<GAppLaunchContext> launchContext();

} // namespace zv
