#pragma once

namespace zv {

enum class Permission {
    automation, ///< to have other programs carry out commands
    accessibility, ///< to press keys in the user's place
};

enum class PermissionState {
    granted,
    refused,
    notAsked, ///< or unknown: the system asks, or tells, on first use
};

/// The user's permissions to act on other programs, on systems that ask. Main thread only.
class Permissions {
public:
    virtual ~Permissions() = default;
    /// Reads the state from the system each time. Never asks the user.
    [[nodiscard]] virtual PermissionState state(Permission permission) const = 0;
};

} // namespace zv
