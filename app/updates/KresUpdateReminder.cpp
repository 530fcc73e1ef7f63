#include "app/updates/KresUpdateReminder.h"

#include "app/updates/UpdateTexts.h"
#include "base/MainThread.h"
#include "base/Translation.h"

namespace zv {

KresUpdateReminder::KresUpdateReminder(Services services)
    : m_services(services)
{
    m_services.notifications.onActivated = [this](std::string const& identifier) { notificationActivated(identifier); };
}

KresUpdateReminder::~KresUpdateReminder() { m_services.notifications.onActivated = nullptr; }

void KresUpdateReminder::requestAuthorizationIfNeeded()
{
    assertMainThread();
    if (m_hasRequestedAuthorization)
        return;
    m_hasRequestedAuthorization = true;
    m_services.notifications.requestAuthorization(m_lifetime.guard([this](bool granted) { m_canPostNotification = granted; }));
}

bool KresUpdateReminder::shouldHandleShowingScheduledUpdate(UpdateItem const&, bool inImmediateFocus)
{
    return inImmediateFocus || m_services.application.isActive() || !m_canPostNotification;
}

void KresUpdateReminder::willHandleShowingUpdate(bool engineShowsIt, UpdateItem const& update)
{
    if (engineShowsIt)
        return;
    NotificationRequest request;
    request.identifier = notificationIdentifier;
    request.title = tr("%1 is available", applicationName() + " " + update.displayVersion);
    request.body = tr("Click to install it.");
    request.actionTitle = tr(updateTexts::showUpdate);
    m_services.notifications.post(request);
}

void KresUpdateReminder::didReceiveUserAttention(UpdateItem const&) { m_services.notifications.removeDelivered(notificationIdentifier); }

void KresUpdateReminder::willFinishUpdateSession() { m_services.notifications.removeDelivered(notificationIdentifier); }

std::string KresUpdateReminder::applicationName() const
{
    auto const& information = m_services.resources.information();
    for (auto const* key : { "CFBundleDisplayName", "CFBundleName" }) {
        if (auto const* name = information.string(key))
            return *name;
    }
    return "Zanthe Vell";
}

void KresUpdateReminder::notificationActivated(std::string const& identifier) const
{
    if (identifier == notificationIdentifier && showUpdateInFocus)
        showUpdateInFocus();
}

} // namespace zv
