#include "platform/linux/tray/BusMenuTypes.h"

#include "platform/linux/toolkit/BusStructures.h"

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
    return writeStructure(argument, properties.id, properties.properties);
}

QDBusArgument const& operator>>(QDBusArgument const& argument, BusMenuProperties& properties)
{
    return readStructure(argument, properties.id, properties.properties);
}

QDBusArgument& operator<<(QDBusArgument& argument, BusMenuEvent const& event)
{
    return writeStructure(argument, event.id, event.name, event.data, event.timestamp);
}

QDBusArgument const& operator>>(QDBusArgument const& argument, BusMenuEvent& event)
{
    return readStructure(argument, event.id, event.name, event.data, event.timestamp);
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
