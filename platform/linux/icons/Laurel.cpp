#include "platform/linux/icons/Laurel.h"

#include <QTextStream>

#include <cmath>
#include <numbers>

namespace zv::laurel {

namespace {

/// A leaf's place on its branch: the angle along the wreath from its foot, whether it leans out,
/// in, or ends the branch, and its size.
struct Growth {
    enum class Side { outer, inner, end };
    double degrees;
    Side side;
    double length;
    double breadth;
};

constexpr Growth growths[] = {
    { 4, Growth::Side::outer, 4.5, 1.15 },
    { 47, Growth::Side::outer, 3.9, 1.10 },
    { 80, Growth::Side::outer, 3.8, 1.05 },
    { 110, Growth::Side::outer, 3.5, 1.00 },
    { 34, Growth::Side::inner, 2.9, 0.75 },
    { 66, Growth::Side::inner, 2.8, 0.72 },
    { 100, Growth::Side::inner, 2.6, 0.70 },
    { 134, Growth::Side::end, 3.3, 0.95 },
};

constexpr double radius = 4.7;
constexpr QPointF center { 8.0, 8.0 };

struct Lean {
    double offset;
    double degrees;
};

constexpr Lean leanOf(Growth::Side side)
{
    switch (side) {
    case Growth::Side::outer:
        return { 0.35, 34 };
    case Growth::Side::inner:
        return { -0.50, -30 };
    case Growth::Side::end:
        break;
    }
    return { 0, -10 };
}

double radians(double degrees) { return degrees * std::numbers::pi / 180; }

QPointF mirrored(QPointF point) { return { 2 * center.x() - point.x(), point.y() }; }

Leaf grow(Growth const& growth)
{
    auto const lean = leanOf(growth.side);
    auto const along = radians(growth.degrees);
    auto const distance = radius + lean.offset;
    QPointF const base = center + QPointF(distance * std::sin(along), distance * std::cos(along));
    auto const direction = std::atan2(-std::sin(along), std::cos(along)) + radians(lean.degrees);
    auto const at = [&](double forward, double aside) {
        auto const x = forward * growth.length;
        auto const y = aside * growth.breadth;
        return base + QPointF(x * std::cos(direction) - y * std::sin(direction), x * std::sin(direction) + y * std::cos(direction));
    };
    return { base, at(1, 0), { at(.22, -1.25), at(.68, -1.2), at(.68, 1.2), at(.22, 1.25) } };
}

Leaf mirrored(Leaf leaf)
{
    leaf.base = mirrored(leaf.base);
    leaf.tip = mirrored(leaf.tip);
    for (auto& control : leaf.controls)
        control = mirrored(control);
    return leaf;
}

} // namespace

std::vector<Leaf> leaves()
{
    std::vector<Leaf> all;
    for (auto const& growth : growths)
        all.push_back(grow(growth));
    for (auto const& growth : growths)
        all.push_back(mirrored(grow(growth)));
    return all;
}

QPainterPath path()
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (auto const& leaf : leaves()) {
        path.moveTo(leaf.base);
        path.cubicTo(leaf.controls[0], leaf.controls[1], leaf.tip);
        path.cubicTo(leaf.controls[2], leaf.controls[3], leaf.base);
        path.closeSubpath();
    }
    return path;
}

QString svgPathData()
{
    QString data;
    QTextStream stream(&data);
    stream.setRealNumberNotation(QTextStream::FixedNotation);
    stream.setRealNumberPrecision(2);
    auto const put = [&](char const* before, QPointF point) { stream << before << point.x() << ',' << point.y(); };
    for (auto const& leaf : leaves()) {
        put(data.isEmpty() ? "M" : " M", leaf.base);
        stream.flush();
        put(" C", leaf.controls[0]);
        put(" ", leaf.controls[1]);
        put(" ", leaf.tip);
        put(" C", leaf.controls[2]);
        put(" ", leaf.controls[3]);
        put(" ", leaf.base);
        stream << " Z";
        stream.flush();
    }
    return data;
}

// The colour is the one that panels tint in symbolic pictures.
QString symbolicSvg()
{
    return QStringLiteral(R"svg(<?xml version="1.0" encoding="UTF-8"?>
<svg xmlns="http://www.w3.org/2000/svg" width="16" height="16" viewBox="0 0 16 16">
  <path fill="#2e3436" d="%1"/>
</svg>
)svg")
        .arg(svgPathData());
}

QString applicationSvg()
{
    return QStringLiteral(R"svg(<?xml version="1.0" encoding="UTF-8"?>
<svg xmlns="http://www.w3.org/2000/svg" width="128" height="128" viewBox="0 0 16 16">
  <defs>
    <linearGradient id="leaf" x1="0" y1="0" x2="0" y2="16" gradientUnits="userSpaceOnUse">
      <stop offset="0" stop-color="#8fc64a"/>
      <stop offset="1" stop-color="#2f7d32"/>
    </linearGradient>
  </defs>
  <path fill="url(#leaf)" d="%1"/>
</svg>
)svg")
        .arg(svgPathData());
}

} // namespace zv::laurel
