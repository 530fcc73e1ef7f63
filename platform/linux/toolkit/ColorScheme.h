#pragma once

#include "platform/linux/toolkit/BusListener.h"

#include <QDBusConnection>
#include <QObject>

#include <functional>
#include <optional>

namespace zv {

/// The desktop's preference for dark or light, which this toolkit does not know.
class ColorScheme : public QObject {
    Q_OBJECT
public:
    /// Tells whether the desktop prefers dark; nothing when another of its settings has changed.
    using Changed = std::function<void(std::optional<bool> isDark)>;

    /// Asks without waiting: `changed` is called when the answer arrives, and from then on.
    ColorScheme(QDBusConnection bus, Changed changed);

private:
    void heard(QDBusMessage const& change);

    Changed m_changed;
    BusListener m_changes;
};

} // namespace zv
