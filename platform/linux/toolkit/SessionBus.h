#pragma once

#include "platform/linux/bus/BusConnection.h"

#include <QDBusConnection>

namespace zv {

/// The toolkit's connection. Where no bus is known it would start one of its own, which nobody
/// else is on: then it is one that leads nowhere.
[[nodiscard]] inline QDBusConnection sessionBus(BusAddresses const& buses)
{
    return buses.session.empty() ? QDBusConnection(QStringLiteral("none")) : QDBusConnection::sessionBus();
}

} // namespace zv
