#include "platform/linux/toolkit/BusProperties.h"

#include <QDBusError>
#include <QDBusVariant>

namespace zv {

namespace {

QDBusMessage answerTo(QDBusMessage const& message, QString const& interface, QVariantMap const& properties)
{
    auto const arguments = message.arguments();
    bool const isOurs = arguments.value(0).toString() == interface;
    if (message.member() == QLatin1String("GetAll"))
        return message.createReply(QVariantList { isOurs ? properties : QVariantMap() });
    auto const found = properties.find(arguments.value(1).toString());
    if (message.member() == QLatin1String("Get") && isOurs && found != properties.end())
        return message.createReply(QVariantList { QVariant::fromValue(QDBusVariant(found.value())) });
    if (message.member() == QLatin1String("Set"))
        return message.createErrorReply(QDBusError::PropertyReadOnly, QStringLiteral("The properties cannot be set."));
    return message.createErrorReply(QDBusError::UnknownProperty, QStringLiteral("There is no such property."));
}

} // namespace

bool answerProperties(QDBusMessage const& message, QDBusConnection const& bus, QString const& interface, QVariantMap const& properties)
{
    if (message.interface() != QLatin1String("org.freedesktop.DBus.Properties"))
        return false;
    return bus.send(answerTo(message, interface, properties));
}

} // namespace zv
