#include "platform/linux/qt/LogoCanvas.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zv {

namespace {

/// Drawn large, so that curves stay curves when shapes are united.
constexpr double kUnit = 40;
constexpr double kWidth = 12.5 * kUnit;
constexpr double kHeight = 15.5 * kUnit;

QPainterPath leaf(QPointF stalk, double angle, double length, double width)
{
    QPainterPath path;
    path.cubicTo(length * 0.25, -width * 0.75, length * 0.7, -width * 0.6, length, 0);
    path.cubicTo(length * 0.7, width * 0.6, length * 0.25, width * 0.75, 0, 0);
    QTransform place;
    place.translate(stalk.x(), stalk.y());
    place.rotateRadians(angle);
    return place.map(path);
}

/// A sprig: one leaf at the top, two pairs below it, a stem. Few and bold, as it is mostly
/// seen sixteen pixels high.
QPainterPath laurelSprig()
{
    constexpr double middle = kWidth / 2;
    constexpr double lift = 0.72; // radians above the horizontal
    constexpr double topLeaf = 6.0 * kUnit;
    constexpr double length = 6.9 * kUnit;
    constexpr double width = 3.3 * kUnit;
    constexpr double stem = 0.9 * kUnit;

    auto sprig = leaf({ middle, topLeaf }, -std::numbers::pi / 2, topLeaf, width * 1.05);
    for (double const y : { 9.4 * kUnit, 14.0 * kUnit }) {
        sprig = sprig.united(leaf({ middle + stem / 4, y }, -lift, length, width));
        sprig = sprig.united(leaf({ middle - stem / 4, y }, std::numbers::pi + lift, length, width));
    }
    QPainterPath stalk;
    stalk.addRoundedRect(QRectF(middle - stem / 2, 2 * kUnit, stem, kHeight - 2.2 * kUnit), stem / 2, stem / 2);
    return sprig.united(stalk);
}

/// As large as it can be in the middle of the rectangle.
QTransform fitting(QRectF const& path, QRectF const& rect)
{
    double const scale = std::min(rect.width() / path.width(), rect.height() / path.height());
    QTransform fit;
    fit.translate(rect.center().x(), rect.center().y());
    fit.scale(scale, scale);
    fit.translate(-path.center().x(), -path.center().y());
    return fit;
}

} // namespace

LaurelMask::LaurelMask()
    : m_path(laurelSprig())
{
}

LogoCanvas::LogoCanvas(QImage& image, QPointF centre, double scale)
    : m_image(image)
    , m_centre(centre)
    , m_scale(scale)
{
}

std::shared_ptr<Mask const> LogoCanvas::logoMask() { return std::make_shared<LaurelMask>(); }

void LogoCanvas::saveState()
{
    m_layer = QImage(m_image.size(), QImage::Format_ARGB32_Premultiplied);
    m_layer.fill(Qt::transparent);
}

void LogoCanvas::clipToMask(Mask const& mask, Rect const& rect)
{
    m_clipRect = rect;
    auto const& path = static_cast<LaurelMask const&>(mask).path();
    m_clip = fitting(path.boundingRect(), toImage(rect)).map(path);
}

void LogoCanvas::setFillColor(Color const& color)
{
    m_color = QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green), static_cast<float>(color.blue), static_cast<float>(color.alpha));
}

/// Adds up: where two bands share a row of pixels, each covers its part and together all of it.
void LogoCanvas::fill(Rect const& rect)
{
    QPainter painter(&m_layer);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_Plus);
    painter.fillRect(toImage(rect), m_color);
    m_hasDrawn = true;
}

/// The clip is applied to all fills at once, with smooth edges.
void LogoCanvas::restoreState()
{
    QImage shape(m_layer.size(), QImage::Format_ARGB32_Premultiplied);
    shape.fill(Qt::transparent);
    QPainter shaping(&shape);
    shaping.setRenderHint(QPainter::Antialiasing);
    shaping.fillPath(m_clip, Qt::black);
    shaping.end();

    QPainter masking(&m_layer);
    masking.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    masking.drawImage(0, 0, shape);
    masking.end();
    QPainter(&m_image).drawImage(0, 0, m_layer);
}

/// The clip's middle comes to stand on `m_centre`; y turns around.
QRectF LogoCanvas::toImage(Rect const& rect) const
{
    double const middleX = m_clipRect.x + m_clipRect.width / 2;
    double const middleY = m_clipRect.y + m_clipRect.height / 2;
    return { m_centre.x() + (rect.minX() - middleX) * m_scale, m_centre.y() - (rect.maxY() - middleY) * m_scale, rect.width * m_scale, rect.height * m_scale };
}

} // namespace zv
