#pragma once

#include "platform/program/Permissions.h"

#include <map>

namespace zv::fakes {

class FakePermissions : public Permissions {
public:
    PermissionState state(Permission permission) const override
    {
        auto const found = states.find(permission);
        return found == states.end() ? PermissionState::notAsked : found->second;
    }

    std::map<Permission, PermissionState> states;
};

} // namespace zv::fakes
