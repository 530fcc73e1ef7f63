#include "platform/linux/hotkeys/BusChordRegistrar.h"

#include "platform/linux/toolkit/BusListener.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>

#include <utility>

namespace zv {

namespace {

constexpr int patience = 500; // milliseconds

} // namespace

BusChordRegistrar::BusChordRegistrar(QDBusConnection const& bus, KeyboardLayoutSource& layout, Service service)
    : m_bus(bus)
    , m_layout(layout)
    , m_service(std::move(service))
    , m_watcher(m_service.name, bus, QDBusServiceWatcher::WatchForRegistration)
{
    listen();
    QObject::connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, &m_watcher, [this] { lost(); });
}

BusChordRegistrar::~BusChordRegistrar() = default;

bool BusChordRegistrar::isServed(QDBusConnection const& bus, QString const& name)
{
    auto* names = bus.interface();
    return names && names->isServiceRegistered(name);
}

void BusChordRegistrar::useBus(QDBusConnection const& bus)
{
    m_bus = bus;
    m_watcher.setConnection(bus);
    listen();
    lost();
}

void BusChordRegistrar::listen()
{
    m_presses = std::make_unique<BusListener>(
        m_bus, m_service.name, m_service.path, m_service.interface, m_service.signal, [this](QDBusMessage const& message) { heard(message.arguments()); });
}

QVariant BusChordRegistrar::ask(QDBusMessage message, QVariantList const& arguments) const
{
    message.setArguments(arguments);
    return m_bus.call(message, QDBus::Block, patience).arguments().value(0);
}

} // namespace zv
