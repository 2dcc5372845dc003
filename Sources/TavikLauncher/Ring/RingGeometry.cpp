// SPDX-License-Identifier: MIT
#include <TavikLauncher/Ring/RingGeometry.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Tavik {

namespace {

constexpr double smallestInnerRadius = 84.0;
constexpr double outerInset = 2.0;
constexpr double leastIconSize = 28.0;
constexpr double mostHaloRoom = 18.0;
constexpr double topDegrees = -90.0;
/// Less than a twentieth of a point beside the arc in the largest ring.
constexpr double degreesPerPiece = 1.5;

double radians(double degrees)
{
    return degrees * std::numbers::pi / 180.0;
}

} // namespace

RingGeometry RingGeometry::make(const Measures& measures)
{
    const double radius = std::min(measures.area.width(), measures.area.height()) / 2;
    const double thickness = measures.ringThickness;

    RingGeometry geometry;
    geometry.center = {measures.area.width() / 2, measures.area.height() / 2};
    geometry.innerRadius = std::max(radius - thickness, smallestInnerRadius);
    geometry.outerRadius = radius - outerInset;
    geometry.iconRadius = (geometry.innerRadius + geometry.outerRadius) / 2;
    geometry.effectiveIconSize
        = std::min(std::max(thickness - 18, leastIconSize), measures.iconSize);
    geometry.haloSize = std::min(std::max(geometry.effectiveIconSize, thickness - 10),
                                 geometry.effectiveIconSize + mostHaloRoom);
    geometry.slotCount = std::max(measures.slotCount, 0);
    return geometry;
}

double RingGeometry::sectorDegrees() const
{
    return 360.0 / std::max(slotCount, 1);
}

double RingGeometry::slotAngle(int slot, int count)
{
    return static_cast<double>(slot) / std::max(count, 1) * 360.0 + topDegrees;
}

double RingGeometry::roomAroundIcon() const
{
    const double diameter = 2 * std::min(center.x(), center.y());
    return std::max(panelSide(diameter) / 2 - iconRadius, 0.0);
}

double RingGeometry::drawnIconSize() const
{
    return std::min(effectiveIconSize, 2 * roomAroundIcon() / selectedScale);
}

double RingGeometry::drawnHaloSize() const
{
    return std::min({haloSize, 2 * roomAroundIcon(), drawnIconSize() + mostHaloRoom});
}

QPointF RingGeometry::slotCenter(int slot) const
{
    const double angle = radians(slotAngle(slot));
    return center + QPointF(std::cos(angle), std::sin(angle)) * iconRadius;
}

std::optional<int> RingGeometry::slotAt(QPointF point) const
{
    const QPointF offset = point - center;
    const double distance = std::hypot(offset.x(), offset.y());
    if (slotCount == 0 || distance < innerRadius || distance > outerRadius) {
        return std::nullopt;
    }
    const double angle = std::atan2(offset.y(), offset.x()) * 180.0 / std::numbers::pi;
    const double sector = sectorDegrees();
    const double fromSlotZero = std::fmod(angle - topDegrees + sector / 2 + 360.0, 360.0);
    return static_cast<int>(std::floor(fromSlotZero / sector)) % slotCount;
}

QPainterPath RingGeometry::donutShape() const
{
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    path.addEllipse(center, outerRadius, outerRadius);
    path.addEllipse(center, innerRadius, innerRadius);
    return path;
}

/// In straight pieces: the highlight is drawn anew in every frame of its way, and the toolkit takes
/// several times as long for curves.
QPolygonF RingGeometry::arc(double radius, double from, double to) const
{
    const int pieces = static_cast<int>(std::ceil(std::abs(to - from) / degreesPerPiece));
    QPolygonF points;
    points.reserve(pieces + 1);
    for (int i = 0; i <= pieces; ++i) {
        const double angle = radians(from + (to - from) * i / std::max(pieces, 1));
        points.append(center + QPointF(std::cos(angle), std::sin(angle)) * radius);
    }
    return points;
}

QPainterPath RingGeometry::wedgeShape(double centerDegrees) const
{
    const double half = sectorDegrees() / 2;
    if (half >= 180.0) {
        return donutShape();
    }
    QPainterPath path;
    path.addPolygon(arc(outerRadius, centerDegrees - half, centerDegrees + half)
                    + arc(innerRadius, centerDegrees + half, centerDegrees - half));
    path.closeSubpath();
    return path;
}

QList<QLineF> RingGeometry::wedgeOutline(double centerDegrees, double width) const
{
    const double half = sectorDegrees() / 2;
    const bool isWhole = half >= 180.0;
    QList<QLineF> lines;
    for (const double radius : {outerRadius, innerRadius}) {
        // The straight sides have the corners; what is drawn twice would be brighter.
        const double corner
            = isWhole ? 0 : std::asin(std::min(width / 2 / radius, 1.0)) * 180 / M_PI;
        const QPolygonF points
            = arc(radius, centerDegrees - half + corner, centerDegrees + half - corner);
        for (qsizetype i = 1; i < points.size(); ++i) {
            lines.append({points.at(i - 1), points.at(i)});
        }
    }
    for (const double side : {-half, half}) {
        if (!isWhole) {
            const double angle = radians(centerDegrees + side);
            const QPointF out(std::cos(angle), std::sin(angle));
            lines.append({center + out * (innerRadius - width / 2),
                          center + out * (outerRadius + width / 2)});
        }
    }
    return lines;
}

double nearestEquivalentAngle(double target, double current)
{
    while (target - current > 180.0) {
        target -= 360.0;
    }
    while (target - current < -180.0) {
        target += 360.0;
    }
    return target;
}

} // namespace Tavik
