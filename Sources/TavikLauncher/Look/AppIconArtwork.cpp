// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/AppIconArtwork.h>

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace Tavik::AppIconArtwork {

namespace {

constexpr QColor tileTop(0x3A, 0x45, 0x6B);
constexpr QColor tileBottom(0x12, 0x16, 0x2A);

constexpr int dots = 6;
/// Around the wheel, clockwise from the top.
constexpr std::array hues{QColor(0x4F, 0xC3, 0xFF),
                          QColor(0x4C, 0x7D, 0xFF),
                          QColor(0x9B, 0x5C, 0xFF),
                          QColor(0xFF, 0x5C, 0xA8),
                          QColor(0xFF, 0x8F, 0x4D),
                          QColor(0xFF, 0xCF, 0x4D),
                          QColor(0x45, 0xDD, 0xA8)};

/// How the drawing changes with the size, as fractions of the side.
struct Proportions
{
    double margin;
    double wheelRadius;
    double stroke;
    double dotRadius;
    double hubRadius;
};

Proportions proportions(double side)
{
    if (side < 24) {
        return {.margin = 0, .wheelRadius = 0.28, .stroke = 0.17, .dotRadius = 0, .hubRadius = 0.1};
    }
    if (side < 40) {
        return {.margin = 0.03,
                .wheelRadius = 0.275,
                .stroke = 0.16,
                .dotRadius = 0.045,
                .hubRadius = 0.085};
    }
    return {.margin = 0.04,
            .wheelRadius = 0.275,
            .stroke = 0.15,
            .dotRadius = 0.042,
            .hubRadius = 0.075};
}

/// A point at `turn`, in turns clockwise from the top.
QPointF around(QPointF center, double radius, double turn)
{
    const double angle = turn * 2 * std::numbers::pi;
    return center + QPointF(radius * std::sin(angle), -radius * std::cos(angle));
}

void paintTile(QPainter& painter, double side, double margin)
{
    const QRectF tile = QRectF(0, 0, side, side).adjusted(margin, margin, -margin, -margin);
    const double corner = tile.width() * 0.225;
    QLinearGradient fill(tile.topLeft(), tile.bottomLeft());
    fill.setColorAt(0, tileTop);
    fill.setColorAt(1, tileBottom);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawRoundedRect(tile, corner, corner);

    // Light that falls on the upper edge. Filled, as some vector formats draw no line in a
    // gradient.
    const double line = std::max(side / 128, 0.75);
    const QRectF inner = tile.adjusted(line, line, -line, -line);
    QLinearGradient gleam(tile.topLeft(), tile.bottomLeft());
    gleam.setColorAt(0, QColor(255, 255, 255, 90));
    gleam.setColorAt(0.5, QColor(255, 255, 255, 18));
    gleam.setColorAt(1, QColor(255, 255, 255, 10));
    QPainterPath edge;
    edge.addRoundedRect(tile, corner, corner);
    edge.addRoundedRect(inner, corner - line, corner - line);
    painter.setBrush(gleam);
    painter.drawPath(edge);
}

QColor mixed(const QColor& from, const QColor& to, double part)
{
    const auto channel = [part](int first, int second) {
        return static_cast<int>(std::lround(first + (second - first) * part));
    };
    return {channel(from.red(), to.red()),
            channel(from.green(), to.green()),
            channel(from.blue(), to.blue())};
}

QColor hueAt(double turn)
{
    const double position = turn * static_cast<double>(hues.size());
    const auto index = static_cast<std::size_t>(position);
    return mixed(hues.at(index % hues.size()),
                 hues.at((index + 1) % hues.size()),
                 position - std::floor(position));
}

/// The part of a ring between two angles, in turns clockwise from the top.
QPainterPath ringPart(QPointF center, double outer, double inner, double start, double end)
{
    const auto circle = [center](double radius) {
        return QRectF(center.x() - radius, center.y() - radius, 2 * radius, 2 * radius);
    };
    QPainterPath part;
    part.arcMoveTo(circle(outer), 90 - start * 360);
    part.arcTo(circle(outer), 90 - start * 360, (start - end) * 360);
    part.arcTo(circle(inner), 90 - end * 360, (end - start) * 360);
    part.closeSubpath();
    return part;
}

/// So many short strokes that the eye sees one hue go over into the next: vector formats have no
/// gradient that goes round, and a gradient for each stroke is kept by the toolkit for good.
void paintStrokes(QPainter& painter, QPointF center, double radius, double width)
{
    // None shorter than a pixel, so that the rim of a small ring is not painted over and over.
    const double length = 2 * std::numbers::pi * radius;
    const int strokes = std::clamp(static_cast<int>(length / 1.6), 28, 120);
    // A pixel or so of each stroke lies under the next, so that no seam shines through.
    const double overlap = std::max(0.004, 1.2 / length);
    for (int i = 0; i < strokes; ++i) {
        const double start = static_cast<double>(i) / strokes;
        const double end = static_cast<double>(i + 1) / strokes;
        painter.setBrush(hueAt((start + end) / 2));
        painter.drawPath(
            ringPart(center, radius + width / 2, radius - width / 2, start, end + overlap));
    }
}

void paintDots(QPainter& painter, QPointF center, double radius, double dot)
{
    for (int i = 0; i < dots; ++i) {
        painter.drawEllipse(around(center, radius, static_cast<double>(i) / dots), dot, dot);
    }
}

} // namespace

void paint(QPainter& painter, double side)
{
    const Proportions part = proportions(side);
    const QPointF center(side / 2, side / 2);
    painter.setRenderHint(QPainter::Antialiasing);
    paintTile(painter, side, std::round(part.margin * side));

    const double radius = part.wheelRadius * side;
    paintStrokes(painter, center, radius, part.stroke * side);
    painter.setBrush(Qt::white);
    if (part.dotRadius > 0) {
        paintDots(painter, center, radius, part.dotRadius * side);
    }
    painter.drawEllipse(center, part.hubRadius * side, part.hubRadius * side);
}

void paintSymbolic(QPainter& painter, double side)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    paintDots(painter, QPointF(side / 2, side / 2), 0.36 * side, 0.115 * side);
}

} // namespace Tavik::AppIconArtwork
