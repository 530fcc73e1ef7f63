#include "platform/linux/qt/IconPictures.h"

#include "platform/linux/qt/IconShapes.h"
#include "platform/linux/qt/MenuImages.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <vector>

namespace zv {

namespace {

// Far more than menus show; then everything is forgotten, which costs one slow menu.
constexpr std::size_t mostKnown = 20'000;
constexpr qsizetype mostDrawn = 4'000;
constexpr int linkEmblemSize = 8;

/// One for each scale factor that a menu may be shown at.
std::vector<qreal> screenScales()
{
    std::vector<qreal> scales { 1 };
    for (auto const* screen : QGuiApplication::screens())
        scales.push_back(screen->devicePixelRatio());
    std::sort(scales.begin(), scales.end());
    scales.erase(std::unique(scales.begin(), scales.end()), scales.end());
    return scales;
}

QIcon sourceOf(FileIconNames const& names)
{
    if (!names.imageFile.empty()) {
        if (QIcon icon(QString::fromStdString(names.imageFile)); !icon.pixmap(menuIconSize).isNull())
            return icon;
    }
    auto const name = firstThemeName(names);
    return name.isEmpty() ? QIcon() : QIcon::fromTheme(name);
}

/// In the middle of the box, made smaller when it is too large for it.
void drawFitted(QPainter& painter, QPixmap const& source, QRectF const& box)
{
    auto const size = source.deviceIndependentSize();
    auto const scale = std::min({ 1.0, box.width() / size.width(), box.height() / size.height() });
    QRectF target(QPointF(), size * scale);
    target.moveCenter(box.center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(target, source, QRectF(source.rect()));
}

void drawLinkEmblem(QPainter& painter, qreal scale)
{
    auto const emblem = QIcon::fromTheme(QStringLiteral("emblem-symbolic-link")).pixmap(QSize(linkEmblemSize, linkEmblemSize), scale);
    if (emblem.isNull())
        drawLinkArrow(painter);
    else
        drawFitted(painter, emblem, QRectF(0, menuIconSize - linkEmblemSize, linkEmblemSize, linkEmblemSize));
}

QPixmap drawn(FileIconNames const& names, QIcon const& source, qreal scale)
{
    auto const pixels = static_cast<int>(std::ceil(menuIconSize * scale));
    QPixmap canvas(pixels, pixels);
    canvas.setDevicePixelRatio(scale);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    auto const picture = source.isNull() ? QPixmap() : source.pixmap(QSize(menuIconSize, menuIconSize), scale);
    if (picture.isNull())
        drawIconShape(painter, names.shape);
    else
        drawFitted(painter, picture, QRectF(0, 0, menuIconSize, menuIconSize));
    if (names.isLink)
        drawLinkEmblem(painter, scale);
    return canvas;
}

} // namespace

QString firstThemeName(FileIconNames const& names)
{
    for (auto const& name : names.names) {
        if (auto const themed = QString::fromStdString(name); QIcon::hasThemeIcon(themed))
            return themed;
    }
    return {};
}

FileIconNames const* IconPictures::known(std::string const& path) const
{
    auto const found = m_known.find(path);
    return found == m_known.end() ? nullptr : &found->second;
}

void IconPictures::remember(std::string const& path, FileIconNames names)
{
    if (m_known.size() >= mostKnown)
        m_known.clear();
    m_known.insert_or_assign(path, std::move(names));
}

bool IconPictures::isDrawn(FileIconNames const& names) const { return m_drawn.contains(keyOf(names)); }

QIcon IconPictures::picture(FileIconNames const& names)
{
    auto const key = keyOf(names);
    if (auto const found = m_drawn.constFind(key); found != m_drawn.constEnd())
        return *found;
    if (m_drawn.size() >= mostDrawn)
        m_drawn.clear();
    auto const source = sourceOf(names);
    QIcon icon;
    for (auto const scale : screenScales())
        icon.addPixmap(drawn(names, source, scale));
    m_drawn.insert(key, icon);
    return icon;
}

/// A picture is good for one theme and one set of screens.
QString IconPictures::keyOf(FileIconNames const& names)
{
    auto key = QIcon::themeName() + QLatin1Char('\n') + QString::fromStdString(names.imageFile);
    for (auto const& name : names.names)
        key += QLatin1Char('\n') + QString::fromStdString(name);
    key += QLatin1Char('\n') + QString::number(static_cast<int>(names.shape)) + QLatin1Char(names.isLink ? 'l' : '-');
    for (auto const scale : screenScales())
        key += QLatin1Char(' ') + QString::number(scale);
    return key;
}

} // namespace zv
