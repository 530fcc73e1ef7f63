#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>

namespace zv {

/// Follows the desktop's preference for dark or light, which this toolkit does not know.
/// A style that brings its own colours is left alone.
class ColorScheme : public QObject {
    Q_OBJECT
public:
    /// Asks without waiting; the colours change when the answer comes.
    explicit ColorScheme(QDBusConnection bus);

private Q_SLOTS:
    void settingChanged(QString const& group, QString const& key, QDBusVariant const& value);

private:
    void apply(QVariant const& preference);
};

} // namespace zv
