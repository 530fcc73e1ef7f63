#pragma once

#include "platform/linux/bus/BusConnection.h"
#include "platform/linux/toolkit/BusListener.h"

#include <QDBusConnection>
#include <QTimer>

#include <functional>
#include <memory>
#include <string>

namespace zv {

/// The toolkit's connection to the session bus. It is disconnected where no bus is known: the
/// toolkit would otherwise start a bus of its own.
[[nodiscard]] inline QDBusConnection sessionBus(BusAddresses const& buses)
{
    return buses.session.empty() ? QDBusConnection(QStringLiteral("none")) : QDBusConnection::sessionBus();
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
