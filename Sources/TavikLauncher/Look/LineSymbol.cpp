// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/LineSymbol.h>

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Tavik {

namespace {

// All shapes are drawn in a square of 18 units.
constexpr double side = 18;
constexpr QPointF middle(9, 9);

QPointF polar(double radius, double degrees)
{
    const double angle = degrees * std::numbers::pi / 180;
    return middle + QPointF(radius * std::cos(angle), radius * std::sin(angle));
}

QPainterPath polyline(std::initializer_list<QPointF> points)
{
    QPainterPath path(*points.begin());
    for (const QPointF& point : points) {
        path.lineTo(point);
    }
    return path;
}

QPainterPath gear()
{
    QPainterPath path;
    path.addEllipse(middle, 2.3, 2.3);
    constexpr int teeth = 8;
    constexpr double step = 360.0 / teeth;
    for (int tooth = 0; tooth < teeth; ++tooth) {
        const double at = step * tooth - 90;
        const auto corner = [&](double radius, double offset) {
            return polar(radius, at + offset * step);
        };
        if (tooth == 0) {
            path.moveTo(corner(5.3, -0.3));
        } else {
            path.lineTo(corner(5.3, -0.3));
        }
        path.lineTo(corner(7.2, -0.2));
        path.lineTo(corner(7.2, 0.2));
        path.lineTo(corner(5.3, 0.3));
    }
    path.closeSubpath();
    return path;
}

QPainterPath keyboard()
{
    QPainterPath path;
    path.addRoundedRect(QRectF(1.8, 4.2, 14.4, 9.6), 1.8, 1.8);
    for (const double x : {4.8, 7.6, 10.4, 13.2}) {
        path.addPath(polyline({{x, 7.2}, {x, 7.25}}));
    }
    path.addPath(polyline({{6, 10.8}, {12, 10.8}}));
    return path;
}

QPainterPath paletteShape()
{
    QPainterPath path(QPointF(9, 2.2));
    path.cubicTo(QPointF(4.9, 2.2), QPointF(1.9, 5.2), QPointF(1.9, 9));
    path.cubicTo(QPointF(1.9, 12.8), QPointF(4.9, 15.8), QPointF(8.6, 15.8));
    path.cubicTo(QPointF(10.6, 15.8), QPointF(10.2, 14.2), QPointF(9.8, 13.2));
    path.cubicTo(QPointF(9.3, 11.9), QPointF(10.3, 11), QPointF(11.5, 11));
    path.lineTo(QPointF(13.4, 11));
    path.cubicTo(QPointF(15.2, 11), QPointF(16.1, 10), QPointF(16.1, 8.4));
    path.cubicTo(QPointF(16.1, 4.8), QPointF(13, 2.2), QPointF(9, 2.2));
    for (const QPointF& dot : {QPointF(5.4, 8.4), QPointF(7.6, 5.4), QPointF(11.4, 5.6)}) {
        path.addPath(polyline({dot, dot + QPointF(0.05, 0)}));
    }
    return path;
}

QPainterPath pin()
{
    QPainterPath path = polyline({{6, 2.4}, {12, 2.4}});
    path.addPath(polyline({{7, 2.4}, {7, 7}, {4.6, 10.4}, {13.4, 10.4}, {11, 7}, {11, 2.4}}));
    path.addPath(polyline({{9, 10.4}, {9, 16}}));
    return path;
}

QPainterPath bulb()
{
    QPainterPath path(QPointF(6.9, 12.2));
    path.cubicTo(QPointF(6.6, 10.6), QPointF(4.4, 9.6), QPointF(4.4, 6.6));
    path.cubicTo(QPointF(4.4, 4), QPointF(6.4, 2), QPointF(9, 2));
    path.cubicTo(QPointF(11.6, 2), QPointF(13.6, 4), QPointF(13.6, 6.6));
    path.cubicTo(QPointF(13.6, 9.6), QPointF(11.4, 10.6), QPointF(11.1, 12.2));
    path.closeSubpath();
    path.addPath(polyline({{7, 14.3}, {11, 14.3}}));
    path.addPath(polyline({{8, 16.3}, {10, 16.3}}));
    return path;
}

QPainterPath refresh()
{
    const QRectF circle(3, 3, 12, 12);
    QPainterPath path;
    path.arcMoveTo(circle, 165);
    path.arcTo(circle, 165, -130);
    const QPointF upper = path.currentPosition();
    path.addPath(polyline({upper + QPointF(0.6, -3.6), upper, upper + QPointF(-3.6, 0.1)}));
    path.arcMoveTo(circle, -15);
    path.arcTo(circle, -15, -130);
    const QPointF lower = path.currentPosition();
    path.addPath(polyline({lower + QPointF(-0.6, 3.6), lower, lower + QPointF(3.6, -0.1)}));
    return path;
}

QPainterPath archive()
{
    QPainterPath path;
    path.addRoundedRect(QRectF(2, 3, 14, 3.8), 1, 1);
    path.addPath(polyline({{3.3, 6.8}, {3.3, 15}, {14.7, 15}, {14.7, 6.8}}));
    path.addPath(polyline({{7, 9.8}, {11, 9.8}}));
    return path;
}

QPainterPath info()
{
    QPainterPath path;
    path.addEllipse(middle, 7, 7);
    path.addPath(polyline({{9, 8.4}, {9, 12.6}}));
    path.addPath(polyline({{9, 5.6}, {9, 5.65}}));
    return path;
}

QPainterPath shape(LineSymbol symbol)
{
    QPainterPath path;
    switch (symbol) {
    case LineSymbol::gear:
        return gear();
    case LineSymbol::keyboard:
        return keyboard();
    case LineSymbol::ring:
        path.addEllipse(middle, 7, 7);
        path.addEllipse(middle, 3.2, 3.2);
        return path;
    case LineSymbol::palette:
        return paletteShape();
    case LineSymbol::pin:
        return pin();
    case LineSymbol::bulb:
        return bulb();
    case LineSymbol::refresh:
        return refresh();
    case LineSymbol::archive:
        return archive();
    case LineSymbol::info:
        return info();
    case LineSymbol::plus:
        path = polyline({{9, 4}, {9, 14}});
        [[fallthrough]];
    case LineSymbol::minus:
        path.addPath(polyline({{4, 9}, {14, 9}}));
        return path;
    case LineSymbol::up:
        return polyline({{4.5, 11.3}, {9, 6.8}, {13.5, 11.3}});
    case LineSymbol::down:
        return polyline({{4.5, 6.8}, {9, 11.3}, {13.5, 6.8}});
    case LineSymbol::search:
        path.addEllipse(QPointF(7.8, 7.8), 4.8, 4.8);
        path.addPath(polyline({{11.4, 11.4}, {15, 15}}));
        return path;
    case LineSymbol::grip:
        for (const double y : {6.0, 9.0, 12.0}) {
            path.addPath(polyline({{4, y}, {14, y}}));
        }
        return path;
    case LineSymbol::warning:
        path = polyline({{9, 2.8}, {16.2, 15}, {1.8, 15}});
        path.closeSubpath();
        path.addPath(polyline({{9, 7.4}, {9, 10.6}}));
        path.addPath(polyline({{9, 12.8}, {9, 12.85}}));
        return path;
    case LineSymbol::check:
        return polyline({{4, 9.6}, {7.4, 13}, {14, 5.6}});
    case LineSymbol::screen:
        path.addRoundedRect(QRectF(2, 3, 14, 9.6), 1.4, 1.4);
        path.addPath(polyline({{9, 12.6}, {9, 15.2}}));
        path.addPath(polyline({{5.6, 15.2}, {12.4, 15.2}}));
        return path;
    }
    return path;
}

} // namespace

void paintSymbol(QPainter& painter, LineSymbol symbol, const QRectF& rect, const QColor& color)
{
    const double scale = std::min(rect.width(), rect.height()) / side;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(rect.center() - middle * scale);
    painter.scale(scale, scale);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(shape(symbol));
    painter.restore();
}

} // namespace Tavik
