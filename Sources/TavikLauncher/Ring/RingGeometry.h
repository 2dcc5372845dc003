// SPDX-License-Identifier: MIT
#pragma once

#include <QLineF>
#include <QList>
#include <QPainterPath>
#include <QPointF>
#include <QPolygonF>
#include <QSizeF>

#include <optional>

namespace Tavik {

/// Where everything of the ring lies. Points in the drawing area's own plane, origin top left, y
/// growing downwards; angles in degrees, 0 along +x, positive clockwise on screen. Slot 0 is at the
/// top, the others follow clockwise.
struct RingGeometry
{
    struct Measures
    {
        QSizeF area; ///< The square the ring is drawn in.
        double ringThickness = 0;
        double iconSize = 0;
        int slotCount = 0;
    };

    QPointF center;
    double innerRadius = 0;
    double outerRadius = 0;
    double iconRadius = 0; ///< Distance of each icon's centre from `center`.
    double effectiveIconSize = 0;
    double haloSize = 0;
    int slotCount = 0;

    /// How much larger the selected icon is.
    static constexpr double selectedScale = 1.08;

    [[nodiscard]] static RingGeometry make(const Measures& measures);
    /// Side of the panel's square for a ring of `diameter`: room for shadow and overshoot.
    [[nodiscard]] static double panelSide(double diameter) { return diameter * 1.1; }

    /// The angle of a slot's centre among `count` slots, −90 for slot 0.
    [[nodiscard]] static double slotAngle(int slot, int count);

    /// The side at which icons are drawn: the effective one, unless the panel's edge would cut off
    /// a selected icon.
    [[nodiscard]] double drawnIconSize() const;
    /// The halo's diameter, likewise inside the panel.
    [[nodiscard]] double drawnHaloSize() const;
    /// Degrees per slot; 360 for an empty ring.
    [[nodiscard]] double sectorDegrees() const;
    [[nodiscard]] double slotAngle(int slot) const { return slotAngle(slot, slotCount); }
    [[nodiscard]] QPointF slotCenter(int slot) const;
    /// The slot whose wedge lies under `point`; absent in the hole, outside, or for an empty ring.
    /// A point on the boundary of two wedges belongs to the later one.
    [[nodiscard]] std::optional<int> slotAt(QPointF point) const;
    /// The band: the area between the two radii.
    [[nodiscard]] QPainterPath donutShape() const;
    /// The wedge of one sector around `centerDegrees`; the whole band for a single slot.
    [[nodiscard]] QPainterPath wedgeShape(double centerDegrees) const;
    /// The same wedge's edge in short pieces, for a line of `width` with flat ends.
    [[nodiscard]] QList<QLineF> wedgeOutline(double centerDegrees, double width) const;

    bool operator==(const RingGeometry&) const = default;

private:
    /// From an icon's centre to the panel's edge, where it is nearest.
    [[nodiscard]] double roomAroundIcon() const;
    [[nodiscard]] QPolygonF arc(double radius, double from, double to) const;
};

/// The angle equivalent to `target` that lies within half a turn of `current`, so that a highlight
/// sweeps the shorter way. Degrees; not normalised into a fixed range.
[[nodiscard]] double nearestEquivalentAngle(double target, double current);

} // namespace Tavik
