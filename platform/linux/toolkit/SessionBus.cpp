#include "platform/linux/toolkit/SessionBus.h"

namespace zv {

namespace {

constexpr std::chrono::milliseconds betweenAttempts { 1000 };

} // namespace

SessionBusWatch::SessionBusWatch(std::string address, QDBusConnection const& current, Connected connected)
    : m_address(std::move(address))
    , m_connected(std::move(connected))
{
    QObject::connect(&m_attempts, &QTimer::timeout, [this] { connectAnew(); });
    if (current.isConnected())
        watch(current);
    else if (!m_address.empty())
        m_attempts.start(betweenAttempts);
}

/// D-Bus, "Disconnected" of the local interface, which the library itself sends:
/// https://dbus.freedesktop.org/doc/api/html/group__DBusConnection.html
void SessionBusWatch::watch(QDBusConnection const& bus)
{
    m_loss = std::make_unique<BusListener>(bus, QString(), QStringLiteral("/org/freedesktop/DBus/Local"), QStringLiteral("org.freedesktop.DBus.Local"),
        QStringLiteral("Disconnected"), [this](QDBusMessage const&) { m_attempts.start(betweenAttempts); });
}

void SessionBusWatch::connectAnew()
{
    auto const name = QStringLiteral("session-%1").arg(++m_count);
    auto const bus = QDBusConnection::connectToBus(QString::fromStdString(m_address), name);
    if (!bus.isConnected())
        return QDBusConnection::disconnectFromBus(name);
    m_attempts.stop();
    watch(bus);
    m_connected(bus);
}

} // namespace zv
