#pragma once

#include "platform/desk/UserNotifications.h"

#include <QDBusConnection>
#include <QHash>
#include <QObject>

namespace zv {

/// Notifications through org.freedesktop.Notifications, which has no permission to ask for: it
/// counts as granted when the service supports clicks on notifications.
class BusUserNotifications : public QObject, public UserNotifications {
    Q_OBJECT
public:
    explicit BusUserNotifications(QDBusConnection const& connection);

    /// Posts on a new connection, after the former was lost with its notifications.
    void useBus(QDBusConnection const& bus);

    void requestAuthorization(std::function<void(bool)> done) override;
    void post(NotificationRequest const& request) override;
    void removeDelivered(std::string const& identifier) override;

private Q_SLOTS:
    void actionInvoked(uint id, QString const& action);
    void notificationClosed(uint id, uint reason);

private:
    void send(QString const& identifier, NotificationRequest const& request);

    QDBusConnection m_connection;
    QHash<QString, uint> m_delivered; ///< the service's numbers by identifier
};

} // namespace zv
