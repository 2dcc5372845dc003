// SPDX-License-Identifier: MIT
#include <TavikLauncher/Ring/RingGeometry.h>

#include <QRectF>

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

double radians(double degrees)
{
    return degrees * std::numbers::pi / 180.0;
}

QRectF circleBounds(QPointF center, double radius)
{
    return {center.x() - radius, center.y() - radius, 2 * radius, 2 * radius};
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
    geometry.fullCount = std::max(measures.fullCount, geometry.slotCount);
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

double RingGeometry::iconDistance() const
{
    // Two icons are as far apart as they can be.
    return 2 * iconRadius * std::sin(std::numbers::pi / std::max(fullCount, 2));
}

double RingGeometry::drawnIconSize() const
{
    const double beside = std::max(iconDistance(), leastIconSize);
    return std::min({effectiveIconSize, 2 * roomAroundIcon() / selectedScale, beside});
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

QPainterPath RingGeometry::wedgeShape(double centerDegrees) const
{
    const double sector = sectorDegrees();
    if (sector >= 360.0) {
        return donutShape();
    }
    // The toolkit counts angles counter-clockwise.
    const double start = -(centerDegrees - sector / 2);
    QPainterPath path;
    path.arcMoveTo(circleBounds(center, outerRadius), start);
    path.arcTo(circleBounds(center, outerRadius), start, -sector);
    path.arcTo(circleBounds(center, innerRadius), start - sector, sector);
    path.closeSubpath();
    return path;
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
