#pragma once

#include <functional>
#include <string>

namespace zv {

struct NotificationRequest {
    std::string identifier; ///< a newer one with the same identifier replaces it
    std::string title;
    std::string body;
    std::string actionTitle {}; ///< the click's label, where a desktop shows it
};

/// The desktop's notifications, shown with their sound even while the program is in front.
/// Main thread only.
class UserNotifications {
public:
    virtual ~UserNotifications() = default;
    /// Asks the user, where the system wants that; false also when asking failed.
    virtual void requestAuthorization(std::function<void(bool granted)> done) = 0;
    /// Delivers at once. Failures are ignored.
    virtual void post(NotificationRequest const& request) = 0;
    virtual void removeDelivered(std::string const& identifier) = 0;
    /// Called when the user clicks a notification. Set by its one user.
    std::function<void(std::string const& identifier)> onActivated;
};

} // namespace zv
