// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Views/Ring/CenterLayout.h>
#include <TavikLauncher/Views/Ring/CenterPainter.h>
#include <TavikLauncher/Views/Ring/RingPainter.h>
#include <TavikLauncher/Views/Ring/SlotPainter.h>

#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>

namespace Tavik {

bool RingIcon::operator==(const RingIcon& other) const
{
    return center == other.center && icon.cacheKey() == other.icon.cacheKey()
        && emphasizedIcon.cacheKey() == other.emphasizedIcon.cacheKey()
        && emphasis == other.emphasis && isRunning == other.isRunning
        && isStarting == other.isStarting && dimsWhenNotRunning == other.dimsWhenNotRunning;
}

namespace RingPainter {

namespace {

constexpr double outlineOpacity = 0.16;
constexpr double wedgeOutlineOpacity = 0.22;
constexpr double materialOpacity = 0.45;
constexpr QColor materialColor(40, 40, 42);
constexpr QColor opaqueBase(28, 28, 30);
constexpr double shadowReach = 0.05; // Of the diameter: all the room the panel leaves.

double margin(const RingScene& scene)
{
    return (RingGeometry::panelSide(scene.diameter) - scene.diameter) / 2;
}

QRectF wedgeBounds(const RingScene& scene)
{
    const double offset = margin(scene);
    return scene.geometry.wedgeShape(scene.wedgeDegrees)
        .boundingRect()
        .adjusted(-1, -1, 1, 1)
        .translated(offset, offset);
}

QRectF slotBounds(const RingScene& scene, const RingIcon& icon)
{
    return SlotPainter::bounds(scene, icon).translated(margin(scene), margin(scene));
}

/// In device pixels of the panel.
QRegion circleRegion(const RingScene& scene, double radius)
{
    const QPointF center = scene.geometry.center + QPointF(margin(scene), margin(scene));
    const QRectF bounds(center.x() - radius, center.y() - radius, 2 * radius, 2 * radius);
    const double ratio = scene.devicePixelRatio;
    return {QRectF(bounds.topLeft() * ratio, bounds.size() * ratio).toAlignedRect(),
            QRegion::Ellipse};
}

/// A drawing surface of the panel's size, with its painter's plane moved to the ring's.
QImage transparentImage(const RingScene& scene)
{
    const double side = RingGeometry::panelSide(scene.diameter);
    const int pixels = std::max(1, static_cast<int>(std::ceil(side * scene.devicePixelRatio)));
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scene.devicePixelRatio);
    image.fill(Qt::transparent);
    return image;
}

/// Falls off like the edge of a blurred disc; `strength` is the darkness at the edge itself.
void addShadowStops(QGradient& gradient, double edge, double reach, double strength, bool outwards)
{
    constexpr int steps = 8;
    for (int i = 0; i <= steps; ++i) {
        const double t = static_cast<double>(i) / steps;
        const double falloff = (1 - t) * (1 - t) * strength;
        gradient.setColorAt(std::clamp(edge + (outwards ? t : -t) * reach, 0.0, 1.0),
                            withOpacity(Qt::black, falloff));
    }
}

void paintShadow(QPainter& painter, const RingScene& scene)
{
    const RingGeometry& ring = scene.geometry;
    const double reach = scene.diameter * shadowReach;
    const double outermost = ring.outerRadius + reach;
    const QPointF below(0, reach * 0.2);

    painter.setPen(Qt::NoPen);
    QRadialGradient outside(ring.center + below, outermost);
    addShadowStops(outside, ring.outerRadius / outermost, reach / outermost, 0.34, true);
    QPainterPath surroundings;
    surroundings.addEllipse(ring.center + below, outermost, outermost);
    QPainterPath disc;
    disc.addEllipse(ring.center, ring.outerRadius, ring.outerRadius);
    painter.fillPath(surroundings.subtracted(disc), outside);

    QRadialGradient inside(ring.center + below, ring.innerRadius + below.y());
    const double innermost = ring.innerRadius + below.y();
    addShadowStops(inside, 1.0, std::min(reach / innermost, 1.0), 0.16, false);
    QPainterPath hole;
    hole.addEllipse(ring.center, ring.innerRadius, ring.innerRadius);
    painter.fillPath(hole, inside);
}

void paintBand(QPainter& painter, const RingScene& scene)
{
    const RingGeometry& ring = scene.geometry;
    const QPainterPath donut = ring.donutShape();
    if (scene.isOpaque) {
        // Past the smooth edges: a pixel that is only half the ring's would turn black, unless it
        // is known what its other half is.
        const double past = scene.hasHardEdge() ? 2 : 0;
        QPainterPath base;
        base.addEllipse(ring.center, ring.outerRadius + past, ring.outerRadius + past);
        base.addEllipse(ring.center, ring.innerRadius - past, ring.innerRadius - past);
        painter.fillPath(base, opaqueBase);
    }
    painter.fillPath(donut, withOpacity(materialColor, materialOpacity));

    QLinearGradient fill(ring.center.x(),
                         ring.center.y() - ring.outerRadius,
                         ring.center.x(),
                         ring.center.y() + ring.outerRadius);
    fill.setColorAt(0, scene.style.bandTop);
    fill.setColorAt(1, scene.style.bandBottom);
    painter.fillPath(donut, fill);

    painter.setPen(QPen(withOpacity(Qt::white, outlineOpacity), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(ring.center, ring.outerRadius, ring.outerRadius);
    painter.drawEllipse(ring.center, ring.innerRadius, ring.innerRadius);
}

void paintWedge(QPainter& painter, const RingScene& scene)
{
    const QPainterPath wedge = scene.geometry.wedgeShape(scene.wedgeDegrees);
    const QRectF bounds = wedge.boundingRect();
    QLinearGradient fill(bounds.topLeft(), bounds.bottomLeft());
    fill.setColorAt(0, scene.style.highlightTop);
    fill.setColorAt(1, scene.style.highlightBottom);
    painter.fillPath(wedge, fill);
    // Lines one by one are drawn in a third of the time that a path takes.
    painter.setPen(
        QPen(withOpacity(Qt::white, wedgeOutlineOpacity), 1, Qt::SolidLine, Qt::FlatCap));
    painter.drawLines(scene.geometry.wedgeOutline(scene.wedgeDegrees, 1));
}

} // namespace

QImage bandImage(const RingScene& scene)
{
    QImage image = transparentImage(scene);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawImage(QPointF(), scene.behind);
    painter.translate(margin(scene), margin(scene));
    if (scene.geometry.outerRadius <= scene.geometry.innerRadius) {
        return image; // A preview without room.
    }
    if (!scene.isOpaque) {
        paintShadow(painter, scene);
    }
    paintBand(painter, scene);
    return image;
}

QImage ringImage(const RingScene& scene, const QImage& band)
{
    QImage image = transparentImage(scene);
    QPainter painter(&image);
    const double side = RingGeometry::panelSide(scene.diameter);
    paint(painter, scene, band, QRectF(0, 0, side, side).toAlignedRect());
    return image;
}

void paint(QPainter& painter, const RingScene& scene, const QImage& band, const QRegion& dirty)
{
    const double offset = margin(scene);
    painter.drawImage(QPointF(0, 0), band);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform
                           | QPainter::TextAntialiasing);
    painter.translate(offset, offset);
    const IsDirty isDirty = [&](const QRectF& rect) {
        return dirty.intersects(rect.translated(offset, offset).toAlignedRect());
    };
    if (scene.showsWedge && dirty.intersects(wedgeBounds(scene).toAlignedRect())) {
        paintWedge(painter, scene);
    }
    SlotPainter::paintSlots(painter, scene, isDirty);
    CenterPainter::paint(painter, scene, isDirty);
    painter.translate(-offset, -offset);
}

void paintInFlight(QPainter& painter,
                   const RingScene& scene,
                   const QImage& ring,
                   const Flight& flight)
{
    const QSizeF size = ring.deviceIndependentSize();
    const QSizeF scaled = size * flight.scale;
    const QPointF corner((size.width() - scaled.width()) / 2,
                         (size.height() - scaled.height()) / 2);
    painter.setOpacity(flight.opacity);
    if (flight.scale > 1 && !scene.isOpaque) {
        // The panel leaves room for the ring's overshoot, but not for its shadow's, which would be
        // cut off to a square. The shadow stays as it is at rest, and the ring grows over it.
        const double reach = scene.geometry.outerRadius * flight.scale;
        const QPointF center(size.width() / 2, size.height() / 2);
        QPainterPath disc;
        disc.addEllipse(center, reach, reach);
        QPainterPath surroundings;
        surroundings.addRect(QRectF(QPointF(), size));
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setClipPath(surroundings.subtracted(disc));
        painter.drawImage(QPointF(), ring);
        painter.restore();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setClipPath(disc);
    }
    // Also the fastest way: the toolkit's plain scaling takes four times as long.
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(corner, scaled), ring);
}

QRegion dirtyRegion(const RingScene& before, const RingScene& now)
{
    if (before.icons.size() != now.icons.size()) {
        const double side = RingGeometry::panelSide(now.diameter);
        return QRectF(0, 0, side, side).toAlignedRect();
    }
    QRegion dirty;
    if (before.wedgeDegrees != now.wedgeDegrees || before.showsWedge != now.showsWedge) {
        dirty += wedgeBounds(before).toAlignedRect();
        dirty += wedgeBounds(now).toAlignedRect();
    }
    for (qsizetype slot = 0; slot < now.icons.size(); ++slot) {
        const bool changesPlace = before.selectedSlot != now.selectedSlot
            && (slot == before.selectedSlot || slot == now.selectedSlot);
        if (changesPlace || !(before.icons.at(slot) == now.icons.at(slot))) {
            dirty += slotBounds(now, now.icons.at(slot)).toAlignedRect();
        }
    }
    if (!(before.center == now.center)) {
        const double reach = now.geometry.innerRadius;
        QRectF hole(0, 0, 2 * reach, 2 * reach);
        hole.moveCenter(now.geometry.center + QPointF(margin(now), margin(now)));
        dirty += hole.toAlignedRect();
    }
    return dirty;
}

QRegion bandRegion(const RingScene& scene)
{
    const RingGeometry& ring = scene.geometry;
    // A little inside the outline, so that no unsmoothed edge shows.
    return ring.outerRadius > ring.innerRadius
        ? circleRegion(scene, ring.outerRadius - 1) - circleRegion(scene, ring.innerRadius + 1)
        : QRegion();
}

QRegion shape(const RingScene& scene)
{
    const RingGeometry& ring = scene.geometry;
    // With all pixels that are partly the ring's once their other part is known, and before that
    // without them, so that it can be seen.
    const double past = scene.hasHardEdge() ? -1.5 : 1.5;
    QRegion region = circleRegion(scene, ring.outerRadius + past)
        - circleRegion(scene, ring.innerRadius - past);
    const double ratio = scene.devicePixelRatio;
    for (const CenterLayout::Label& label : CenterLayout::visibleLabels(scene)) {
        const double corner = std::max(label.cornerRadius + past, 0.0) * ratio;
        const QRectF rect = label.rect.translated(margin(scene), margin(scene))
                                .adjusted(-past, -past, past, past);
        QPainterPath outline;
        outline.addRoundedRect(QRectF(rect.topLeft() * ratio, rect.size() * ratio), corner, corner);
        region += QRegion(outline.toFillPolygon().toPolygon());
    }
    return region;
}

} // namespace RingPainter

} // namespace Tavik
