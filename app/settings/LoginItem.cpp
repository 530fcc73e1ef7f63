#include "app/settings/LoginItem.h"

#include "base/MainThread.h"

namespace zv {

LoginItem::State LoginItem::state() const
{
    assertMainThread();
    switch (m_service.status()) {
    case LoginService::Status::enabled:
        return State::enabled;
    case LoginService::Status::requiresApproval:
        return State::requiresApproval;
    case LoginService::Status::notRegistered:
    case LoginService::Status::notFound:
        break;
    }
    return State::disabled;
}

Result<LoginItem::Enabled, LoginItem::ChangeFailure> LoginItem::enable()
{
    assertMainThread();
    if (auto const error = m_service.registerService())
        return Failure { ChangeFailure { error->code, error->description } };
    return Enabled { state() == State::requiresApproval };
}

std::optional<LoginItem::ChangeFailure> LoginItem::disable()
{
    assertMainThread();
    if (state() == State::disabled)
        return std::nullopt;
    if (auto const error = m_service.unregisterService())
        return ChangeFailure { error->code, error->description };
    return std::nullopt;
}

void LoginItem::openSettings() { m_service.openSystemSettings(); }

Alert LoginItem::alertFor(std::string reason)
{
    Alert alert;
    alert.message = "“Open at login” could not be changed.";
    alert.informativeText = std::move(reason);
    return alert;
}

} // namespace zv
