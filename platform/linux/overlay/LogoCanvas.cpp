#include "platform/linux/overlay/LogoCanvas.h"

#include <QPainter>

#include <cmath>
#include <numbers>

namespace zv {

namespace {

double radians(double degrees) { return degrees * std::numbers::pi / 180; }

/// A wreath of two branches, each half of an oval that is open at its top. Angles run from its
/// foot. The leaves are few and bold, for display at sixteen pixels.
constexpr double kAcross = 4.2;
constexpr double kUp = 6.2;
constexpr double kFoot = -20; // crosses over to the other branch
constexpr double kEnd = 118;
constexpr double kStem = 1.3;

struct Leaf {
    double along;
    double lean; ///< away from the branch's direction
    double length;
    double breadth;
};
constexpr Leaf kLeaves[] = {
    { 4, 26, 5.0, 1.5 },
    { 36, 26, 5.0, 1.5 },
    { 66, 26, 5.0, 1.5 },
    { 94, 26, 5.0, 1.5 },
    { kEnd, -10, 4.6, 1.4 },
};

QPointF onBranch(double degrees) { return { kAcross * std::sin(radians(degrees)), kUp * std::cos(radians(degrees)) }; }

QPainterPath outline(Leaf const& leaf)
{
    QPainterPath path;
    auto const at = [&](double forward, double aside) { return QPointF(forward * leaf.length, aside * leaf.breadth); };
    path.cubicTo(at(0.22, -1.25), at(0.68, -1.2), at(1, 0));
    path.cubicTo(at(0.68, 1.2), at(0.22, 1.25), at(0, 0));
    double const along = radians(leaf.along);
    QTransform place;
    place.translate(onBranch(leaf.along).x(), onBranch(leaf.along).y());
    place.rotateRadians(std::atan2(-kUp * std::sin(along), kAcross * std::cos(along)) + radians(leaf.lean));
    return place.map(path);
}

QPainterPath stem()
{
    QPainterPath line(onBranch(kFoot));
    for (double degrees = kFoot; degrees <= kEnd; degrees += 3)
        line.lineTo(onBranch(degrees));
    QPainterPathStroker stroker;
    stroker.setWidth(kStem);
    stroker.setCapStyle(Qt::RoundCap);
    return stroker.createStroke(line);
}

QPainterPath laurelWreath()
{
    QPainterPath wreath;
    wreath.setFillRule(Qt::WindingFill);
    auto const addToBoth = [&](QPainterPath const& part) {
        wreath.addPath(part);
        wreath.addPath(QTransform::fromScale(-1, 1).map(part).toReversed());
    };
    addToBoth(stem());
    for (auto const& leaf : kLeaves)
        addToBoth(outline(leaf));
    return wreath;
}

/// The transform that makes `from` fill `to`, as masks do.
QTransform stretching(QRectF const& from, QRectF const& to)
{
    QTransform stretch;
    stretch.translate(to.center().x(), to.center().y());
    stretch.scale(to.width() / from.width(), to.height() / from.height());
    stretch.translate(-from.center().x(), -from.center().y());
    return stretch;
}

} // namespace

LaurelMask::LaurelMask()
    : m_path(laurelWreath())
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
    m_clip = stretching(path.boundingRect(), toImage(rect)).map(path);
}

void LogoCanvas::setFillColor(Color const& color)
{
    m_color = QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green), static_cast<float>(color.blue), static_cast<float>(color.alpha));
}

/// Fills whole pixels; the clip thins them out at the rim.
void LogoCanvas::fill(Rect const& rect)
{
    QPainter(&m_layer).fillRect(toImage(rect).toAlignedRect(), m_color);
    m_hasDrawn = true;
}

/// Applies the clip to all fills at once, with smooth edges.
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

/// Puts the clip's middle at `m_centre` and flips y. Edges of bands are rounded to whole rows: at
/// this size a blended row would be half of a band.
QRectF LogoCanvas::toImage(Rect const& rect) const
{
    double const middleX = m_clipRect.x + m_clipRect.width / 2;
    double const middleY = m_clipRect.y + m_clipRect.height / 2;
    auto const row = [&](double y) { return std::round(m_centre.y() - (y - middleY) * m_scale); };
    double const top = row(rect.maxY());
    return { m_centre.x() + (rect.minX() - middleX) * m_scale, top, rect.width * m_scale, row(rect.minY()) - top };
}

} // namespace zv
