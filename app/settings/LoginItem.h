#pragma once

#include "base/Result.h"
#include "base/Translation.h"
#include "platform/desk/Alerts.h"
#include "platform/program/LoginService.h"

#include <cstdint>
#include <string>

namespace zv {

/// Opening the program at login, in the three states that a user can tell apart.
/// Main thread only.
class LoginItem {
public:
    enum class State { enabled, disabled, requiresApproval };
    struct ChangeFailure {
        std::int32_t code = 0;
        std::string description;
    };
    struct Enabled {
        bool requiresApproval = false; ///< waiting for the user's approval
    };

    explicit LoginItem(LoginService& service)
        : m_service(service)
    {
    }

    /// Reads the system's state each time.
    [[nodiscard]] State state() const;
    Result<Enabled, ChangeFailure> enable();
    Result<void, ChangeFailure> disable();
    void openSettings();

    /// The alert for a failed change; the reason is a sentence.
    [[nodiscard]] static Alert alertFor(std::string reason);

    static constexpr Sentence approvalNote
        = mark("Zanthe Vell is switched off under Background App Activity, so it will not open at login until you switch it back on there.");
    static constexpr Sentence approvalButton = mark("Open Login Items Settings");
    static constexpr Sentence autostartButton = mark("Open Autostart Settings");
    static constexpr Sentence helpText
        = mark("If you do not select this checkbox, you’ll get the standard Apple menu every login until you manually open Zanthe Vell yourself.");

private:
    LoginService& m_service;
};

} // namespace zv
