#include "platform/linux/toolkit/BusListener.h"

#include <utility>

namespace zv {

BusListener::BusListener(QDBusConnection bus, QString const& service, QString const& path, QString const& interface, QString const& name,
    std::function<void(QDBusMessage const&)> heard)
    : m_heard(std::move(heard))
{
    bus.connect(service, path, interface, name, this, SLOT(receive(QDBusMessage)));
}

void BusListener::receive(QDBusMessage const& message)
{
    auto const heard = m_heard; // a copy, as the call may destroy this listener
    heard(message);
}

} // namespace zv
