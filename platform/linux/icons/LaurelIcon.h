#pragma once

#include <QDBusArgument>
#include <QIcon>
#include <QList>
#include <QString>

#include <optional>

namespace zv {

/// (iiay): an icon's pixels, ARGB in network byte order.
struct StatusPixmap {
    int width = 0;
    int height = 0;
    QByteArray pixels;
};
using StatusPixmaps = QList<StatusPixmap>;

/// (sa(iiay)ss)
struct StatusToolTip {
    QString iconName;
    StatusPixmaps pixmaps;
    QString title;
    QString text;
};

QDBusArgument& operator<<(QDBusArgument& argument, StatusPixmap const& pixmap);
QDBusArgument const& operator>>(QDBusArgument const& argument, StatusPixmap& pixmap);
QDBusArgument& operator<<(QDBusArgument& argument, StatusToolTip const& toolTip);
QDBusArgument const& operator>>(QDBusArgument const& argument, StatusToolTip& toolTip);
void registerStatusPixmapTypes();

/// The name of the emblem's monochrome picture in icon themes.
[[nodiscard]] QString laurelSymbolName();
/// The icon theme folder of our pictures while the program is not installed; else empty.
[[nodiscard]] QString laurelIconThemePath();
/// The pixels, for panels that do not find the picture by its name, or would draw it in its own dark colour: light on a
/// dark panel, dark on a light one, green where the panel is not known.
[[nodiscard]] StatusPixmaps laurelStatusPixmaps(std::optional<bool> isPanelDark);
/// The program's own icon.
[[nodiscard]] QIcon laurelApplicationIcon();

} // namespace zv

Q_DECLARE_METATYPE(zv::StatusPixmap)
Q_DECLARE_METATYPE(zv::StatusToolTip)
