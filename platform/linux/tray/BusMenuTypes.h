#pragma once

#include <QDBusArgument>
#include <QList>
#include <QStringList>
#include <QVariantMap>

namespace zv {

/// (ia{sv}av): an entry of a menu on the bus, with its children.
struct BusMenuLayout {
    int id = 0;
    QVariantMap properties;
    QList<BusMenuLayout> children;
};

/// (ia{sv})
struct BusMenuProperties {
    int id = 0;
    QVariantMap properties;
};

/// (isvu)
struct BusMenuEvent {
    int id = 0;
    QString name;
    QDBusVariant data;
    uint timestamp = 0;
};

QDBusArgument& operator<<(QDBusArgument& argument, BusMenuLayout const& layout);
QDBusArgument const& operator>>(QDBusArgument const& argument, BusMenuLayout& layout);
QDBusArgument& operator<<(QDBusArgument& argument, BusMenuProperties const& properties);
QDBusArgument const& operator>>(QDBusArgument const& argument, BusMenuProperties& properties);
QDBusArgument& operator<<(QDBusArgument& argument, BusMenuEvent const& event);
QDBusArgument const& operator>>(QDBusArgument const& argument, BusMenuEvent& event);

/// Called once, before the first value is sent.
void registerBusMenuTypes();

} // namespace zv

Q_DECLARE_METATYPE(zv::BusMenuLayout)
Q_DECLARE_METATYPE(zv::BusMenuProperties)
Q_DECLARE_METATYPE(zv::BusMenuEvent)
