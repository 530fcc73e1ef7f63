#pragma once

#include <initializer_list>

namespace zv {

enum class Permission {
    automation, ///< to have other programs carry out commands
    accessibility, ///< to press keys in the user's place
};

enum class PermissionState {
    granted,
    refused,
    notAsked, ///< the system asks on first use
    notKnown, ///< the receiver does not run, and the system tells nothing before it does
};

/// The permission to send commands to two receivers: a single refusal counts, then what is not
/// known, as the other's answer says nothing about it.
constexpr PermissionState combined(PermissionState one, PermissionState other)
{
    for (auto const state : { PermissionState::refused, PermissionState::notKnown, PermissionState::granted }) {
        if (one == state || other == state)
            return state;
    }
    return PermissionState::notAsked;
}

/// The user's permissions to act on other programs, on systems that ask. Main thread only.
class Permissions {
public:
    virtual ~Permissions() = default;
    /// Reads the state from the system each time. Never asks the user.
    [[nodiscard]] virtual PermissionState state(Permission permission) const = 0;
};

} // namespace zv
