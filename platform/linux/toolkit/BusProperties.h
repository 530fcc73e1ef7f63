#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

namespace zv {

/// Answers org.freedesktop.DBus.Properties for an object with one interface. False when the
/// message is for another interface.
bool answerProperties(QDBusMessage const& message, QDBusConnection const& bus, QString const& interface, QVariantMap const& properties);

} // namespace zv
