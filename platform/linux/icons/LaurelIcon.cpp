#include "platform/linux/icons/LaurelIcon.h"

#include "platform/linux/icons/Laurel.h"
#include "platform/linux/toolkit/BusStructures.h"

#include <QCoreApplication>
#include <QDBusMetaType>
#include <QDir>
#include <QIconEngine>
#include <QLinearGradient>
#include <QPainter>
#include <QStandardPaths>
#include <QtEndian>

#include <algorithm>
#include <map>

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

/// Draws each size when it is asked for, and keeps it: together they take longer than the rest of the start.
class ApplicationIcon : public QIconEngine {
public:
    void paint(QPainter* painter, QRect const& rect, QIcon::Mode, QIcon::State) override
    {
        painter->drawPixmap(rect, sized(std::min(rect.width(), rect.height())));
    }
    QPixmap pixmap(QSize const& size, QIcon::Mode, QIcon::State) override { return sized(std::min(size.width(), size.height())); }
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override
    {
        return { { 16, 16 }, { 24, 24 }, { 32, 32 }, { 48, 48 }, { 64, 64 }, { 128, 128 }, { 256, 256 } };
    }
    bool isNull() override { return false; }
    QIconEngine* clone() const override { return new ApplicationIcon(*this); }

private:
    QPixmap sized(int size)
    {
        auto& pixmap = m_drawn[size];
        if (pixmap.isNull() && size > 0)
            pixmap = QPixmap::fromImage(drawn(size, leafGreen()));
        return pixmap;
    }

    std::map<int, QPixmap> m_drawn;
};

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

// Kept, as a panel asks for them with each of the icon's properties.
StatusPixmaps laurelStatusPixmaps(LaurelColor color)
{
    static std::map<LaurelColor, StatusPixmaps> kept;
    auto& pixmaps = kept[color];
    auto const ink = color == LaurelColor::light ? onDark : color == LaurelColor::dark ? onLight : middleGreen;
    if (pixmaps.isEmpty())
        pixmaps = { statusPixmap(16, ink), statusPixmap(22, ink), statusPixmap(32, ink), statusPixmap(48, ink) };
    return pixmaps;
}

QIcon laurelApplicationIcon()
{
    static QIcon const icon(new ApplicationIcon);
    return icon;
}

} // namespace zv
