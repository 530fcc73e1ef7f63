#pragma once

namespace zv {

enum class Permission {
    automation, ///< to have other programs carry out commands
    accessibility, ///< to press keys in the user's place
};

enum class PermissionState {
    granted,
    refused,
    notAsked, ///< or not known: the system asks, or tells, when it is used
};

/// What the user lets this program do to others, on systems that ask. Main thread only.
class Permissions {
public:
    virtual ~Permissions() = default;
    /// Read from the system each time. Never asks the user.
    [[nodiscard]] virtual PermissionState state(Permission permission) const = 0;
};

} // namespace zv
