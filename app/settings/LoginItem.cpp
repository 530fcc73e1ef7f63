#include "app/settings/LoginItem.h"

#include "base/MainThread.h"

namespace zv {

namespace {

Failure<LoginItem::ChangeFailure> changeFailed(LoginService::Error const& error) { return { { error.code, error.description } }; }

} // namespace

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
    if (auto const registered = m_service.registerService(); !registered)
        return changeFailed(registered.error());
    return Enabled { state() == State::requiresApproval };
}

Result<void, LoginItem::ChangeFailure> LoginItem::disable()
{
    assertMainThread();
    if (state() == State::disabled)
        return {};
    if (auto const unregistered = m_service.unregisterService(); !unregistered)
        return changeFailed(unregistered.error());
    return {};
}

void LoginItem::openSettings() { m_service.openSystemSettings(); }

Alert LoginItem::alertFor(std::string reason)
{
    Alert alert;
    alert.message = tr("%1 could not be changed.", quoted(tr("Open at login")));
    alert.informativeText = std::move(reason);
    return alert;
}

} // namespace zv
