#pragma once

#include "platform/linux/bus/BusConnection.h"

#include <QDBusConnection>

namespace zv {

/// The toolkit's connection to the session bus. It is disconnected where no bus is known: the
/// toolkit would otherwise start a bus of its own.
[[nodiscard]] inline QDBusConnection sessionBus(BusAddresses const& buses)
{
    return buses.session.empty() ? QDBusConnection(QStringLiteral("none")) : QDBusConnection::sessionBus();
}

} // namespace zv
