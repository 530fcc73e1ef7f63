#include "platform/linux/windows/BusUserNotifications.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>

namespace zv {

namespace {

// https://specifications.freedesktop.org/notification-spec
QString const service = QStringLiteral("org.freedesktop.Notifications");
QString const path = QStringLiteral("/org/freedesktop/Notifications");

QDBusMessage call(char const* method) { return QDBusMessage::createMethodCall(service, path, service, QLatin1StringView(method)); }

} // namespace

BusUserNotifications::BusUserNotifications(QDBusConnection const& connection)
    : m_connection(connection)
{
    useBus(connection);
}

void BusUserNotifications::useBus(QDBusConnection const& bus)
{
    m_connection = bus;
    m_delivered.clear();
    m_connection.connect(service, path, service, QStringLiteral("ActionInvoked"), this, SLOT(actionInvoked(uint, QString)));
    m_connection.connect(service, path, service, QStringLiteral("NotificationClosed"), this, SLOT(notificationClosed(uint, uint)));
}

void BusUserNotifications::requestAuthorization(std::function<void(bool)> done)
{
    auto* watcher = new QDBusPendingCallWatcher(m_connection.asyncCall(call("GetCapabilities")), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, done = std::move(done)] {
        watcher->deleteLater();
        QDBusPendingReply<QStringList> const capabilities = *watcher;
        // Notifications must support actions, or a click would do nothing.
        done(!capabilities.isError() && capabilities.value().contains(QStringLiteral("actions")));
    });
}

void BusUserNotifications::post(NotificationRequest const& request) { send(QString::fromStdString(request.identifier), request); }

void BusUserNotifications::send(QString const& identifier, NotificationRequest const& request)
{
    QVariantMap const hints { { QStringLiteral("desktop-entry"), QStringLiteral("org.zanthevell.ZantheVell") },
        { QStringLiteral("sound-name"), QStringLiteral("message-new-instant") } };
    auto message = call("Notify");
    message << QStringLiteral("Zanthe Vell") << m_delivered.value(identifier, 0U) << QStringLiteral("org.zanthevell.ZantheVell")
            << QString::fromStdString(request.title) << QString::fromStdString(request.body)
            << QStringList { QStringLiteral("default"), QString::fromStdString(request.actionTitle) } << hints << -1;
    auto* watcher = new QDBusPendingCallWatcher(m_connection.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, identifier] {
        watcher->deleteLater();
        QDBusPendingReply<uint> const reply = *watcher;
        if (!reply.isError())
            m_delivered.insert(identifier, reply.value());
    });
}

void BusUserNotifications::removeDelivered(std::string const& identifier)
{
    auto const id = m_delivered.take(QString::fromStdString(identifier));
    if (id == 0)
        return;
    auto message = call("CloseNotification");
    message << id;
    m_connection.asyncCall(message);
}

void BusUserNotifications::actionInvoked(uint id, QString const&)
{
    auto const identifier = m_delivered.key(id);
    if (!identifier.isEmpty() && onActivated)
        onActivated(identifier.toStdString());
}

void BusUserNotifications::notificationClosed(uint id, uint)
{
    m_delivered.removeIf([id](auto const& entry) { return entry.value() == id; });
}

} // namespace zv
