// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Symbol.h>

#include <QPainter>
#include <QPainterPath>
#include <QPainterPathStroker>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace Tavik {

namespace {

// Every symbol is a filled shape on a square of 24 by 24.
constexpr double grid = 24;
constexpr double lineWidth = 1.8;

QPainterPath stroked(const QPainterPath& path, double width = lineWidth)
{
    QPainterPathStroker stroker;
    stroker.setWidth(width);
    stroker.setCapStyle(Qt::RoundCap);
    stroker.setJoinStyle(Qt::RoundJoin);
    return stroker.createStroke(path).simplified();
}

QPainterPath polyline(std::initializer_list<QPointF> points)
{
    QPainterPath path;
    path.moveTo(*points.begin());
    for (const QPointF& point : points) {
        path.lineTo(point);
    }
    return path;
}

QPainterPath cycle()
{
    constexpr double radius = 8;
    constexpr double sweep = 128;
    const QRectF circle(12 - radius, 12 - radius, 2 * radius, 2 * radius);
    QPainterPath shape;
    for (const double start : {172.0, -8.0}) {
        QPainterPath arc;
        arc.arcMoveTo(circle, start);
        arc.arcTo(circle, start, -sweep);
        shape |= stroked(arc);
        // The head points along the tangent at the arc's end.
        const double end = (start - sweep) * std::numbers::pi / 180;
        const QPointF tip(12 + radius * std::cos(end), 12 - radius * std::sin(end));
        const QPointF along(std::sin(end), std::cos(end));
        const QPointF aside(std::cos(end), -std::sin(end));
        QPainterPath head;
        head.moveTo(tip + 4.6 * along);
        head.lineTo(tip - 0.6 * along + 3.6 * aside);
        head.lineTo(tip - 0.6 * along - 3.6 * aside);
        head.closeSubpath();
        shape |= head;
    }
    return shape;
}

QPainterPath checkmarkCircle()
{
    QPainterPath disc;
    disc.addEllipse(QPointF(12, 12), 11, 11);
    return disc - stroked(polyline({{7, 12.6}, {10.6, 16.2}, {17, 8.4}}), 2.2);
}

QPainterPath keyboard()
{
    QPainterPath body;
    body.addRoundedRect(QRectF(1.9, 5.4, 20.2, 13.2), 2.8, 2.8);
    QPainterPath shape = stroked(body);
    for (const double y : {9.0, 12.0}) {
        for (int key = 0; key < 5; ++key) {
            shape.addRoundedRect(QRectF(4.9 + key * 3.05, y - 0.9, 1.9, 1.8), 0.5, 0.5);
        }
    }
    shape.addRoundedRect(QRectF(7.6, 14.4, 8.8, 1.8), 0.7, 0.7);
    return shape;
}

QPainterPath typing()
{
    QPainterPath arrow = polyline(
        {{3, 3.4}, {3, 16.6}, {6.2, 13.6}, {8.4, 18.6}, {10.7, 17.6}, {8.5, 12.7}, {12.9, 12.4}});
    arrow.closeSubpath();
    QPainterPath shape = arrow | stroked(arrow, 0.8);
    shape |= stroked(polyline({{18.2, 6.6}, {18.2, 20.2}}));
    QPainterPath serifs = polyline({{16, 5}, {18.2, 6.6}, {20.4, 5}});
    serifs.addPath(polyline({{16, 21.8}, {18.2, 20.2}, {20.4, 21.8}}));
    return shape | stroked(serifs);
}

QPainterPath pin()
{
    QPainterPath head = polyline({{8.2, 2.6},
                                  {15.8, 2.6},
                                  {15.8, 4.4},
                                  {14.6, 5.4},
                                  {15, 10},
                                  {17.8, 12.6},
                                  {17.8, 14.4},
                                  {6.2, 14.4},
                                  {6.2, 12.6},
                                  {9, 10},
                                  {9.4, 5.4},
                                  {8.2, 4.4}});
    head.closeSubpath();
    return head | stroked(head, 1) | stroked(polyline({{12, 14.4}, {12, 21.6}}));
}

QPainterPath sliders()
{
    struct Row
    {
        double y;
        double knob;
    };
    constexpr std::array rows{Row{5.4, 15.6}, Row{12, 8.4}, Row{18.6, 14}};
    constexpr double knobRadius = 2.5;
    constexpr double clearRadius = knobRadius + 1.3;
    QPainterPath shape;
    for (const Row& row : rows) {
        QPainterPath line = stroked(polyline({{3, row.y}, {21, row.y}}));
        QPainterPath clear;
        clear.addEllipse(QPointF(row.knob, row.y), clearRadius, clearRadius);
        shape |= line - clear;
        shape.addEllipse(QPointF(row.knob, row.y), knobRadius, knobRadius);
    }
    return shape;
}

QPainterPath keyboardBadge()
{
    constexpr QPointF center(19.2, 17.6);
    QPainterPath clear;
    clear.addEllipse(center, 5.6, 5.6);
    QPainterPath badge;
    badge.addEllipse(center, 4.5, 4.5);
    for (const double x : {-2.1, 0.0, 2.1}) {
        QPainterPath dot;
        dot.addEllipse(center + QPointF(x, 0), 0.75, 0.75);
        badge -= dot;
    }
    return (keyboard() - clear) | badge;
}

QPainterPath arrowSquare()
{
    QPainterPath square;
    square.addRoundedRect(QRectF(3.5, 3.5, 17, 17), 3.2, 3.2);
    QPainterPath arrow = polyline({{8.4, 15.6}, {15.4, 8.6}});
    arrow.addPath(polyline({{10, 8.4}, {15.6, 8.4}, {15.6, 14}}));
    return stroked(square) | stroked(arrow);
}

QPainterPath warningTriangle()
{
    QPainterPath triangle = polyline({{12, 4.2}, {21, 19.6}, {3, 19.6}});
    triangle.closeSubpath();
    QPainterPath mark = stroked(polyline({{12, 9.8}, {12, 13.8}}), 2);
    mark.addEllipse(QPointF(12, 17), 1.2, 1.2);
    return (triangle | stroked(triangle, 2.4)) - mark;
}

QPainterPath drive()
{
    QPainterPath body;
    body.addRoundedRect(QRectF(2.6, 12.4, 18.8, 7), 2.2, 2.2);
    QPainterPath shape
        = stroked(body) | stroked(polyline({{3.4, 13.2}, {6.8, 4.8}, {17.2, 4.8}, {20.6, 13.2}}));
    shape.addEllipse(QPointF(17.6, 15.9), 1.1, 1.1);
    return shape;
}

QPainterPath figure()
{
    QPainterPath shape;
    shape.addEllipse(QPointF(12, 4.6), 2.5, 2.5);
    QPainterPath limbs = polyline({{12, 9.2}, {12, 14.6}});
    limbs.addPath(polyline({{5.6, 12.2}, {12, 10}, {17.4, 8.6}, {19.6, 4.4}}));
    limbs.addPath(polyline({{8.4, 21.2}, {12, 14.6}, {15.6, 21.2}}));
    return shape | stroked(limbs, 2.2);
}

QPainterPath triangleDown()
{
    QPainterPath triangle = polyline({{4, 6.5}, {20, 6.5}, {12, 18.5}});
    triangle.closeSubpath();
    return triangle | stroked(triangle, 1.6);
}

QPainterPath makeShape(Symbol symbol)
{
    switch (symbol) {
    case Symbol::cycle:
        return cycle();
    case Symbol::checkmarkCircle:
        return checkmarkCircle();
    case Symbol::keyboard:
        return keyboard();
    case Symbol::typing:
        return typing();
    case Symbol::pin:
        return pin();
    case Symbol::sliders:
        return sliders();
    case Symbol::keyboardBadge:
        return keyboardBadge();
    case Symbol::arrowSquare:
        return arrowSquare();
    case Symbol::warningTriangle:
        return warningTriangle();
    case Symbol::drive:
        return drive();
    case Symbol::figure:
        return figure();
    case Symbol::chevronRight:
        return stroked(polyline({{9, 5}, {16, 12}, {9, 19}}), 2.2);
    case Symbol::triangleDown:
        break;
    }
    return triangleDown();
}

/// Made once: cutting paths out of each other takes longer than a frame may.
const QPainterPath& shapeOf(Symbol symbol)
{
    static std::array<QPainterPath, static_cast<std::size_t>(Symbol::triangleDown) + 1> shapes;
    QPainterPath& shape = shapes.at(static_cast<std::size_t>(symbol));
    if (shape.isEmpty()) {
        shape = makeShape(symbol);
    }
    return shape;
}

} // namespace

void paintSymbol(QPainter& painter, Symbol symbol, const QRectF& rect, const QColor& color)
{
    const double side = std::min(rect.width(), rect.height());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(rect.center() - QPointF(side / 2, side / 2));
    painter.scale(side / grid, side / grid);
    painter.fillPath(shapeOf(symbol), color);
    painter.restore();
}

} // namespace Tavik
