// SPDX-License-Identifier: MIT
#include <TavikLauncher/Ring/PanelPlacement.h>

#include <algorithm>

namespace Tavik::PanelPlacement {

namespace {

constexpr double distanceKept = 32.0;
constexpr double heightAboveCentreLine = 72.0;

double minX(const QRectF& rect)
{
    return rect.x();
}
double minY(const QRectF& rect)
{
    return rect.y();
}
double maxX(const QRectF& rect)
{
    return rect.x() + rect.width();
}
double maxY(const QRectF& rect)
{
    return rect.y() + rect.height();
}

/// Half open, so that a pixel column or row belongs to one screen only. The pointer's row is
/// measured from below, at its upper edge: the highest row lies on maxY.
bool shows(const Screen& screen, QPointF point)
{
    const QRectF& frame = screen.frame;
    return point.x() >= minX(frame) && point.x() < maxX(frame) && point.y() > minY(frame)
        && point.y() <= maxY(frame);
}

double squaredDistance(const Screen& screen, QPointF point)
{
    const QRectF& frame = screen.frame;
    const double dx = std::max({0.0, minX(frame) - point.x(), point.x() - maxX(frame)});
    const double dy = std::max({0.0, minY(frame) - point.y(), point.y() - maxY(frame)});
    return dx * dx + dy * dy;
}

/// A panel larger than the frame lines up with the frame's far edge.
QPointF clamped(QPointF origin, QSizeF size, const QRectF& frame)
{
    return {std::min(std::max(origin.x(), minX(frame)), maxX(frame) - size.width()),
            std::min(std::max(origin.y(), minY(frame)), maxY(frame) - size.height())};
}

double overlap(const QRectF& left, const QRectF& right)
{
    const double width = std::min(maxX(left), maxX(right)) - std::max(minX(left), minX(right));
    const double height = std::min(maxY(left), maxY(right)) - std::max(minY(left), minY(right));
    return width > 0 && height > 0 ? width * height : 0.0;
}

QList<QPointF> candidatesAround(const QList<QRectF>& frames, QSizeF size)
{
    QList<QPointF> candidates;
    for (const QRectF& frame : frames) {
        const double besideY = frame.center().y() - size.height() / 2;
        const double overX = frame.center().x() - size.width() / 2;
        candidates << QPointF(maxX(frame), besideY) << QPointF(minX(frame) - size.width(), besideY)
                   << QPointF(overX, maxY(frame)) << QPointF(overX, minY(frame) - size.height());
    }
    return candidates;
}

} // namespace

const Screen* screenShowing(QPointF point, const QList<Screen>& screens)
{
    const auto containing = std::ranges::find_if(
        screens, [point](const Screen& screen) { return shows(screen, point); });
    return containing == screens.end() ? nullptr : &*containing;
}

const Screen* screenFor(QPointF point, const QList<Screen>& screens)
{
    if (const Screen* containing = screenShowing(point, screens)) {
        return containing;
    }
    const auto nearest = std::ranges::min_element(
        screens, {}, [point](const Screen& screen) { return squaredDistance(screen, point); });
    return nearest == screens.end() ? nullptr : &*nearest;
}

QPointF originCenteredAt(QPointF point, QSizeF size, const QList<Screen>& screens)
{
    const QPointF origin = point - QPointF(size.width() / 2, size.height() / 2);
    const Screen* screen = screenFor(point, screens);
    return screen ? clamped(origin, size, screen->visibleFrame) : origin;
}

QPointF originOnScreen(const QRectF& visibleFrame, QSizeF size, const QList<QRectF>& avoidedFrames)
{
    const QPointF proposed(visibleFrame.center().x() - size.width() / 2,
                           visibleFrame.center().y() + heightAboveCentreLine);
    // Above the centre line a large ring would leave a low screen.
    return clamped(
        avoidingWindows(proposed, size, visibleFrame, avoidedFrames), size, visibleFrame);
}

QPointF avoidingWindows(QPointF origin,
                        QSizeF size,
                        const QRectF& screenFrame,
                        const QList<QRectF>& avoidedFrames)
{
    QList<QRectF> kept;
    for (const QRectF& frame : avoidedFrames) {
        if (!frame.isEmpty()) {
            kept << frame.adjusted(-distanceKept, -distanceKept, distanceKept, distanceKept);
        }
    }
    if (kept.isEmpty()) {
        return origin;
    }
    QList<QPointF> candidates = candidatesAround(kept, size);
    candidates << origin;

    QPointF best;
    double bestFreeArea = 0;
    bool isFirst = true;
    for (const QPointF& candidate : candidates) {
        const QPointF place = clamped(candidate, size, screenFrame);
        double covered = 0;
        for (const QRectF& frame : kept) {
            covered += overlap(QRectF(place, size), frame);
        }
        if (covered == 0) {
            return place;
        }
        const double freeArea = size.width() * size.height() - covered;
        if (isFirst || freeArea > bestFreeArea) {
            best = place;
            bestFreeArea = freeArea;
            isFirst = false;
        }
    }
    return best;
}

} // namespace Tavik::PanelPlacement
