#pragma once

#include <QDBusArgument>
#include <QIcon>
#include <QList>
#include <QString>

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
/// How panels show the laurel: by its name, which most tint to fit themselves, or as pixels.
enum class LaurelColor {
    ofThePanel,
    light, ///< on a dark panel
    dark,
    green, ///< on any
};
/// The pixels; for the panel's own colour green ones, as it does not find the picture by its name if it takes them.
[[nodiscard]] StatusPixmaps laurelStatusPixmaps(LaurelColor color);
/// The program's own icon.
[[nodiscard]] QIcon laurelApplicationIcon();

} // namespace zv

Q_DECLARE_METATYPE(zv::StatusPixmap)
Q_DECLARE_METATYPE(zv::StatusToolTip)
