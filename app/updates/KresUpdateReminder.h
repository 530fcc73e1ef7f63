#pragma once

#include "base/Lifetime.h"
#include "platform/desk/Application.h"
#include "platform/desk/UserNotifications.h"
#include "platform/files/Resources.h"
#include "platform/program/UpdateEngine.h"

#include <functional>

namespace zv {

/// Reminds gently: when a scheduled check finds an update while the user works elsewhere, shows a
/// notification instead of a window. Main thread only.
class KresUpdateReminder : public UpdateUserDriver {
public:
    struct Services {
        UserNotifications& notifications;
        Application const& application;
        Resources const& resources;
    };

    explicit KresUpdateReminder(Services services);
    ~KresUpdateReminder() override;

    /// Asks for permission at most once per process.
    void requestAuthorizationIfNeeded();

    bool supportsGentleScheduledUpdateReminders() const override { return true; }
    bool shouldHandleShowingScheduledUpdate(UpdateItem const& update, bool inImmediateFocus) override;
    void willHandleShowingUpdate(bool engineShowsIt, UpdateItem const& update) override;
    void didReceiveUserAttention(UpdateItem const& update) override;
    void willFinishUpdateSession() override;

    /// Brings the pending update's window to the front. Set by the updater.
    std::function<void()> showUpdateInFocus;

    static constexpr char const* notificationIdentifier = "KresUpdateAvailable";

private:
    [[nodiscard]] std::string applicationName() const;
    void notificationActivated(std::string const& identifier) const;

    Services m_services;
    bool m_canPostNotification = false;
    bool m_hasRequestedAuthorization = false;
    Lifetime m_lifetime;
};

} // namespace zv
