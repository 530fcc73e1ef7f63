#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>

#include <functional>

namespace zv {

/// Receives one signal of the bus during its life.
class BusListener : public QObject {
    Q_OBJECT
public:
    BusListener(QDBusConnection bus, QString const& service, QString const& path, QString const& interface, QString const& name,
        std::function<void(QDBusMessage const&)> heard);

private Q_SLOTS:
    void receive(QDBusMessage const& message);

private:
    std::function<void(QDBusMessage const&)> m_heard;
};

} // namespace zv
