#pragma once

#include "platform/linux/hotkeys/ChordRegistrar.h"
#include "platform/menubar/KeyboardLayoutSource.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QString>

#include <memory>

class QDBusMessage;

namespace zv {

class BusListener;

/// Hotkeys of a desktop whose service gives them over the bus: claimed anew when the service comes.
class BusChordRegistrar : public ChordRegistrar {
public:
    /// Claims on a new connection, after the former was lost.
    void useBus(QDBusConnection const& bus);

protected:
    /// The service, and the signal by which it tells of presses.
    struct Service {
        QString name;
        QString path;
        QString interface;
        QString signal;
    };

    /// The layout outlives this.
    BusChordRegistrar(QDBusConnection const& bus, KeyboardLayoutSource& layout, Service service);
    ~BusChordRegistrar() override;

    [[nodiscard]] static bool isServed(QDBusConnection const& bus, QString const& name);
    virtual void heard(QVariantList const& arguments) = 0;
    /// The answer to a call, waited for a moment.
    QVariant ask(QDBusMessage message, QVariantList const& arguments) const;
    [[nodiscard]] std::vector<KeyTexts> layers() const { return m_layout.layers(); }

private:
    void listen();

    QDBusConnection m_bus;
    KeyboardLayoutSource& m_layout;
    Service m_service;
    std::unique_ptr<BusListener> m_presses;
    QDBusServiceWatcher m_watcher;
};

} // namespace zv
