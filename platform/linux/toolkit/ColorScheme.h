#pragma once

#include "platform/linux/toolkit/BusListener.h"

#include <QDBusConnection>
#include <QObject>
#include <QVariant>

namespace zv {

/// Follows the desktop's preference for dark or light, which this toolkit does not know. A style
/// with its own colours is left alone.
class ColorScheme : public QObject {
    Q_OBJECT
public:
    /// Asks without waiting; the colours change when the answer arrives.
    explicit ColorScheme(QDBusConnection bus);

private:
    void heard(QDBusMessage const& change);
    void apply(QVariant const& preference);

    BusListener m_changes;
};

} // namespace zv
