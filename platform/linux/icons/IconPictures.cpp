#include "platform/linux/icons/IconPictures.h"

#include "platform/linux/icons/IconShapes.h"
#include "platform/linux/icons/InheritedIcons.h"
#include "platform/linux/icons/MenuImages.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <vector>

namespace zv {

namespace {

// Far more than menus show; beyond it the cache is emptied, which costs one slow menu.
constexpr std::size_t mostKnown = 20'000;
constexpr std::size_t mostDrawn = 4'000;
constexpr int linkEmblemSize = 8;

/// The scale factors of all screens.
std::vector<qreal> screenScales()
{
    std::vector<qreal> scales { 1 };
    for (auto const* screen : QGuiApplication::screens())
        scales.push_back(screen->devicePixelRatio());
    std::sort(scales.begin(), scales.end());
    scales.erase(std::unique(scales.begin(), scales.end()), scales.end());
    return scales;
}

/// Draws the picture in the middle of the box, shrunk to fit.
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

QPixmap drawn(FileIconNames const& names, QIcon const& source, qreal scale, int size = menuIconSize)
{
    auto const pixels = static_cast<int>(std::ceil(size * scale));
    QPixmap canvas(pixels, pixels);
    canvas.setDevicePixelRatio(scale);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    auto const picture = source.isNull() ? QPixmap() : source.pixmap(QSize(size, size), scale);
    if (!picture.isNull())
        drawFitted(painter, picture, QRectF(0, 0, size, size));
    painter.scale(size / static_cast<double>(menuIconSize), size / static_cast<double>(menuIconSize));
    if (picture.isNull())
        drawIconShape(painter, names.shape);
    if (names.isLink)
        drawLinkEmblem(painter, scale);
    return canvas;
}

std::string keyOf(FileIconNames const& names)
{
    auto key = std::to_string(static_cast<int>(names.shape)) + (names.isLink ? "l\n" : "-\n") + names.imageFile;
    for (auto const& name : names.names)
        key += '\n' + name;
    return key;
}

} // namespace

QString firstThemeName(FileIconNames const& names)
{
    for (auto const& name : names.names) {
        if (auto const themed = QString::fromStdString(name); QIcon::hasThemeIcon(themed) || !inheritedIconFiles(themed).isEmpty())
            return themed;
    }
    return {};
}

IconPictures::IconPictures(Tasks& tasks, Timers& timers)
    : m_files(std::make_unique<PictureFiles>(tasks, timers, [this](std::string const& path) { pictureWasRead(path); }))
{
}

QIcon IconPictures::sourceOf(FileIconNames const& names)
{
    if (auto const image = names.imageFile.empty() || !m_files ? QImage() : m_files->picture(names.imageFile); !image.isNull())
        return QPixmap::fromImage(image);
    auto const name = firstThemeName(names);
    if (name.isEmpty() || !m_files)
        return QIcon();
    for (auto const& file : m_userThemes.filesOf(name.toStdString())) {
        if (!m_files->isQuick(file))
            return QPixmap::fromImage(m_files->picture(file));
    }
    if (QIcon::hasThemeIcon(name))
        return QIcon::fromTheme(name);
    QIcon inherited;
    for (auto const& file : inheritedIconFiles(name))
        inherited.addFile(file);
    return inherited;
}

/// What was drawn without the picture is drawn again at the next opening.
void IconPictures::pictureWasRead(std::string const& path)
{
    for (auto const& [key, look] : m_looks) {
        bool const isThemed = look->names.imageFile.empty();
        if (isThemed || look->names.imageFile == path)
            look->drawnFor = -1;
    }
}

std::shared_ptr<IconLook> IconPictures::known(std::string const& path) const
{
    auto const found = m_known.find(path);
    return found == m_known.end() ? nullptr : found->second;
}

std::shared_ptr<IconLook> IconPictures::remember(std::string const& path, FileIconNames names)
{
    if (m_known.size() >= mostKnown) {
        m_known.clear();
        forgetDrawn();
        m_looks.clear();
    }
    auto look = lookOf(std::move(names));
    m_known.insert_or_assign(path, look);
    return look;
}

std::shared_ptr<IconLook> IconPictures::lookOf(FileIconNames names)
{
    auto& look = m_looks[keyOf(names)];
    if (!look)
        look = std::make_shared<IconLook>(IconLook { .names = std::move(names), .drawn = {} });
    return look;
}

bool IconPictures::isDrawn(IconLook const& look)
{
    followThemeAndScreens();
    return look.drawnFor == m_number;
}

QIcon IconPictures::picture(IconLook& look)
{
    if (isDrawn(look))
        return look.drawn;
    if (m_drawnCount >= mostDrawn)
        forgetDrawn();
    auto const source = sourceOf(look.names);
    QIcon icon;
    for (auto const scale : m_scales)
        icon.addPixmap(drawn(look.names, source, scale));
    look.drawn = icon;
    look.isFound = !source.isNull();
    look.drawnFor = m_number;
    ++m_drawnCount;
    return icon;
}

QPixmap IconPictures::large(FileIconNames const& names, int size, qreal scale)
{
    auto const source = sourceOf(names);
    bool const isEmpty = source.isNull() && names.shape == IconShape::none;
    return isEmpty ? QPixmap() : drawn(names, source, scale, size);
}

/// Pictures are valid for one theme and one set of screens.
void IconPictures::followThemeAndScreens()
{
    auto const theme = QIcon::themeName();
    auto scales = screenScales();
    if (theme == m_theme && scales == m_scales)
        return;
    forgetDrawn();
    ++m_number;
    m_theme = theme;
    m_scales = std::move(scales);
}

void IconPictures::forgetDrawn()
{
    for (auto const& [key, look] : m_looks) {
        look->drawn = {};
        look->drawnFor = -1;
    }
    m_drawnCount = 0;
}

} // namespace zv
