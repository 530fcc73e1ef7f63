#include "platform/linux/icons/LaurelIcon.h"

#include "platform/linux/icons/Laurel.h"
#include "platform/linux/toolkit/BusStructures.h"

#include <QCoreApplication>
#include <QDBusMetaType>
#include <QDir>
#include <QLinearGradient>
#include <QPainter>
#include <QStandardPaths>
#include <QtEndian>

#include <algorithm>

namespace zv {

namespace {

// Panels cannot tint pixels; the green is visible on light and dark ones.
constexpr QColor middleGreen { 0x5a, 0x9a, 0x3c };
constexpr QColor onLight { 0x2e, 0x34, 0x36 };
constexpr QColor onDark { 0xee, 0xee, 0xec };

QImage drawn(int size, QBrush const& brush)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / laurel::boxSize, size / laurel::boxSize);
    painter.fillPath(laurel::path(), brush);
    return image;
}

StatusPixmap statusPixmap(int size, QColor color)
{
    auto const image = drawn(size, color).convertToFormat(QImage::Format_ARGB32);
    StatusPixmap pixmap { size, size, QByteArray(size * size * 4, Qt::Uninitialized) };
    qToBigEndian<quint32>(image.constBits(), size * size, pixmap.pixels.data());
    return pixmap;
}

QBrush leafGreen()
{
    QLinearGradient gradient(0, 0, 0, laurel::boxSize);
    gradient.setColorAt(0, QColor(0x8f, 0xc6, 0x4a));
    gradient.setColorAt(1, QColor(0x2f, 0x7d, 0x32));
    return gradient;
}

QString iconsBesideTheProgram() { return QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/../share/icons")); }

bool isInstalled() { return QFile::exists(iconsBesideTheProgram() + QStringLiteral("/hicolor/symbolic/apps/%1.svg").arg(laurelSymbolName())); }

/// True where panels look for icons by name; not in an application's own folder, such as a mounted image.
bool isAmongTheThemes(QString const& icons)
{
    auto const folders = QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
    return std::any_of(folders.begin(), folders.end(), [&](QString const& folder) { return QDir::cleanPath(folder + QStringLiteral("/icons")) == icons; });
}

QString findIconThemePath()
{
    if (isInstalled())
        return isAmongTheThemes(iconsBesideTheProgram()) ? QString() : iconsBesideTheProgram();
    auto const ofTheSources = QStringLiteral(ZV_ICONS_SOURCE);
    return QDir(ofTheSources).exists() ? ofTheSources : QString();
}

} // namespace

QDBusArgument& operator<<(QDBusArgument& argument, StatusPixmap const& pixmap) { return writeStructure(argument, pixmap.width, pixmap.height, pixmap.pixels); }

QDBusArgument const& operator>>(QDBusArgument const& argument, StatusPixmap& pixmap)
{
    return readStructure(argument, pixmap.width, pixmap.height, pixmap.pixels);
}

QDBusArgument& operator<<(QDBusArgument& argument, StatusToolTip const& toolTip)
{
    return writeStructure(argument, toolTip.iconName, toolTip.pixmaps, toolTip.title, toolTip.text);
}

QDBusArgument const& operator>>(QDBusArgument const& argument, StatusToolTip& toolTip)
{
    return readStructure(argument, toolTip.iconName, toolTip.pixmaps, toolTip.title, toolTip.text);
}

void registerStatusPixmapTypes()
{
    static bool const registered = [] {
        qDBusRegisterMetaType<StatusPixmap>();
        qDBusRegisterMetaType<StatusPixmaps>();
        qDBusRegisterMetaType<StatusToolTip>();
        return true;
    }();
    Q_UNUSED(registered);
}

QString laurelSymbolName() { return QStringLiteral("org.zanthevell.ZantheVell-symbolic"); }

QString laurelIconThemePath()
{
    static QString const path = findIconThemePath();
    return path;
}

StatusPixmaps laurelStatusPixmaps(LaurelColor color)
{
    auto const ink = color == LaurelColor::light ? onDark : color == LaurelColor::dark ? onLight : middleGreen;
    return { statusPixmap(16, ink), statusPixmap(22, ink), statusPixmap(32, ink), statusPixmap(48, ink) };
}

// Drawn once, as each opening of a menu asks for it.
QIcon laurelApplicationIcon()
{
    static QIcon const icon = [] {
        QIcon drawnIcon;
        for (int const size : { 16, 24, 32, 48, 64, 128, 256 })
            drawnIcon.addPixmap(QPixmap::fromImage(drawn(size, leafGreen())));
        return drawnIcon;
    }();
    return icon;
}

} // namespace zv
