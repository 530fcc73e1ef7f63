#pragma once

#include "platform/linux/bus/BusConnection.h"

#include <QDBusConnection>

namespace zv {

/// The toolkit's connection to the session's bus. It leads nowhere where no bus is known: the
/// toolkit would start a bus of its own, which nobody else is on.
[[nodiscard]] inline QDBusConnection sessionBus(BusAddresses const& buses)
{
    return buses.session.empty() ? QDBusConnection(QStringLiteral("none")) : QDBusConnection::sessionBus();
}

} // namespace zv
