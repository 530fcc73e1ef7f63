#include "platform/linux/icons/IconShapes.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace zv {

namespace {

constexpr double line = 1.1;

struct Colors {
    QColor outline;
    QColor fill;
};

Colors colorsOf(IconShape shape)
{
    if (shape == IconShape::folder)
        return { QColor(0xA8, 0x7B, 0x3B), QColor(0xE8, 0xC4, 0x83) };
    if (shape == IconShape::application || shape == IconShape::settings)
        return { QColor(0x5B, 0x6F, 0x8C), QColor(0xA9, 0xBE, 0xDB) };
    return { QColor(0x6E, 0x75, 0x7E), QColor(0xDD, 0xE1, 0xE6) };
}

QPainterPath documentPath()
{
    QPainterPath path;
    path.moveTo(3.5, 1.5);
    path.lineTo(9.5, 1.5);
    path.lineTo(12.5, 4.5);
    path.lineTo(12.5, 14.5);
    path.lineTo(3.5, 14.5);
    path.closeSubpath();
    path.moveTo(9.5, 1.5);
    path.lineTo(9.5, 4.5);
    path.lineTo(12.5, 4.5);
    return path;
}

QPainterPath folderPath()
{
    QPainterPath path;
    path.moveTo(1.5, 13.5);
    path.lineTo(1.5, 3.5);
    path.lineTo(6.5, 3.5);
    path.lineTo(8, 5.5);
    path.lineTo(14.5, 5.5);
    path.lineTo(14.5, 13.5);
    path.closeSubpath();
    return path;
}

QPainterPath applicationPath()
{
    QPainterPath path;
    path.addRoundedRect(QRectF(2, 2, 12, 12), 2.5, 2.5);
    path.moveTo(2, 5.5);
    path.lineTo(14, 5.5);
    return path;
}

QPainterPath drivePath()
{
    QPainterPath path;
    path.addRoundedRect(QRectF(1.5, 4.5, 13, 7.5), 1.5, 1.5);
    path.addEllipse(QPointF(12, 8.3), 0.7, 0.7);
    return path;
}

QPainterPath networkPath()
{
    QPainterPath path;
    path.addEllipse(QPointF(8, 8), 6.2, 6.2);
    path.addEllipse(QPointF(8, 8), 2.8, 6.2);
    path.moveTo(1.8, 8);
    path.lineTo(14.2, 8);
    return path;
}

QPainterPath computerPath()
{
    QPainterPath path;
    path.addRoundedRect(QRectF(1.5, 2.5, 13, 8.5), 1, 1);
    path.moveTo(5, 13.5);
    path.lineTo(11, 13.5);
    path.moveTo(8, 11);
    path.lineTo(8, 13.5);
    return path;
}

QPainterPath settingsPath()
{
    constexpr int teeth = 8;
    constexpr double inner = 4.7, outer = 6.6;
    QPainterPath path;
    for (int i = 0; i < teeth * 4; ++i) {
        double const radius = (i / 2) % 2 == 0 ? outer : inner;
        double const angle = (i + 0.5) * 2 * M_PI / (teeth * 4);
        QPointF const point(8 + radius * std::cos(angle), 8 + radius * std::sin(angle));
        i == 0 ? path.moveTo(point) : path.lineTo(point);
    }
    path.closeSubpath();
    path.addEllipse(QPointF(8, 8), 2, 2);
    return path;
}

QPainterPath pathOf(IconShape shape)
{
    switch (shape) {
    case IconShape::document:
        return documentPath();
    case IconShape::folder:
        return folderPath();
    case IconShape::application:
        return applicationPath();
    case IconShape::drive:
        return drivePath();
    case IconShape::network:
        return networkPath();
    case IconShape::computer:
        return computerPath();
    case IconShape::settings:
        return settingsPath();
    case IconShape::none:
        return {};
    }
    return documentPath();
}

} // namespace

void drawIconShape(QPainter& painter, IconShape shape)
{
    auto const colors = colorsOf(shape);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colors.outline, line, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(colors.fill);
    painter.drawPath(pathOf(shape));
}

void drawLinkArrow(QPainter& painter)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0x6E, 0x75, 0x7E), 0.8));
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(QRectF(0.5, 8.5, 7, 7), 1.2, 1.2);
    painter.setPen(QPen(QColor(0x30, 0x36, 0x3D), 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    QPainterPath arrow;
    arrow.moveTo(2.2, 13.8);
    arrow.lineTo(5.6, 10.4);
    arrow.moveTo(3.2, 10.4);
    arrow.lineTo(5.6, 10.4);
    arrow.lineTo(5.6, 12.8);
    painter.drawPath(arrow);
}

} // namespace zv
