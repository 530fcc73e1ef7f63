#pragma once

#include "base/Result.h"

#include <cstdint>
#include <string>

namespace zv {

/// This program's entry in the system's list of login items. Main thread only.
class LoginService {
public:
    enum class Status { notRegistered, enabled, requiresApproval, notFound };
    struct Error {
        std::int32_t code = 0;
        std::string description; ///< the reason, in the system's own words
    };

    virtual ~LoginService() = default;
    /// Reads the state from the system each time.
    [[nodiscard]] virtual Status status() const = 0;
    /// Does not switch on an entry that the user switched off in the system's own settings.
    [[nodiscard]] virtual Result<void, Error> registerService() = 0;
    [[nodiscard]] virtual Result<void, Error> unregisterService() = 0;
    /// Shows the system's page where login items are switched on and off.
    virtual void openSystemSettings() = 0;
};

} // namespace zv
