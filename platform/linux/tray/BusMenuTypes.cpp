#include "platform/linux/tray/BusMenuTypes.h"

#include <QDBusMetaType>

namespace zv {

QDBusArgument& operator<<(QDBusArgument& argument, BusMenuLayout const& layout)
{
    argument.beginStructure();
    argument << layout.id << layout.properties;
    argument.beginArray(QMetaType::fromType<QDBusVariant>());
    for (auto const& child : layout.children)
        argument << QDBusVariant(QVariant::fromValue(child));
    argument.endArray();
    argument.endStructure();
    return argument;
}

QDBusArgument const& operator>>(QDBusArgument const& argument, BusMenuLayout& layout)
{
    argument.beginStructure();
    argument >> layout.id >> layout.properties;
    argument.beginArray();
    while (!argument.atEnd()) {
        QDBusVariant child;
        argument >> child;
        layout.children.append(qdbus_cast<BusMenuLayout>(child.variant().value<QDBusArgument>()));
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, BusMenuProperties const& properties)
{
    argument.beginStructure();
    argument << properties.id << properties.properties;
    argument.endStructure();
    return argument;
}

QDBusArgument const& operator>>(QDBusArgument const& argument, BusMenuProperties& properties)
{
    argument.beginStructure();
    argument >> properties.id >> properties.properties;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, BusMenuEvent const& event)
{
    argument.beginStructure();
    argument << event.id << event.name << event.data << event.timestamp;
    argument.endStructure();
    return argument;
}

QDBusArgument const& operator>>(QDBusArgument const& argument, BusMenuEvent& event)
{
    argument.beginStructure();
    argument >> event.id >> event.name >> event.data >> event.timestamp;
    argument.endStructure();
    return argument;
}

void registerBusMenuTypes()
{
    static bool const registered = [] {
        qDBusRegisterMetaType<BusMenuLayout>();
        qDBusRegisterMetaType<BusMenuProperties>();
        qDBusRegisterMetaType<QList<BusMenuProperties>>();
        qDBusRegisterMetaType<BusMenuEvent>();
        qDBusRegisterMetaType<QList<BusMenuEvent>>();
        qDBusRegisterMetaType<QList<QStringList>>();
        return true;
    }();
    Q_UNUSED(registered);
}

} // namespace zv
