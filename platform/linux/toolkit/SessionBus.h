#pragma once

#include "platform/linux/bus/BusConnection.h"
#include "platform/linux/toolkit/BusListener.h"

#include <QDBusConnection>
#include <QTimer>

#include <functional>
#include <memory>
#include <string>

namespace zv {

/// A connection to the session bus; disconnected where no bus is known. Not the toolkit's own one, which delivers nothing
/// before the run loop turns, and starts a bus where there is none.
[[nodiscard]] inline QDBusConnection sessionBus(BusAddresses const& buses)
{
    auto const address = QString::fromStdString(buses.session);
    return address.isEmpty() ? QDBusConnection(QStringLiteral("none")) : QDBusConnection::connectToBus(address, QStringLiteral("session"));
}

/// Connects anew when the session bus was restarted, or comes late: a lost connection of the
/// toolkit stays lost, with all names, objects and signals that hung on it.
class SessionBusWatch {
public:
    using Connected = std::function<void(QDBusConnection const& bus)>;

    /// `address` may be empty: then there is nothing to watch.
    SessionBusWatch(std::string address, QDBusConnection const& current, Connected connected);

private:
    void watch(QDBusConnection const& bus);
    void connectAnew();

    std::string m_address;
    Connected m_connected;
    QTimer m_attempts;
    int m_count = 0;
    std::unique_ptr<BusListener> m_loss;
};

} // namespace zv
