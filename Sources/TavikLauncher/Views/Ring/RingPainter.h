// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Views/Ring/RingScene.h>

#include <QImage>
#include <QRegion>

class QPainter;

namespace Tavik::RingPainter {

/// All painting here is in the panel's own plane: points, y down, the ring centred in a square of
/// `RingGeometry::panelSide` points.

/// Band, outline and shadow: what stays the same while the ring is used, at device resolution.
[[nodiscard]] QImage bandImage(const RingScene& scene);
/// The whole scene at rest, at device resolution, for the opening animation to scale.
[[nodiscard]] QImage ringImage(const RingScene& scene, const QImage& band);
/// Draws the scene over a transparent background; what lies outside `dirty` may be left out.
void paint(QPainter& painter, const RingScene& scene, const QImage& band, const QRegion& dirty);
struct Flight
{
    double scale = 1; ///< About the panel's centre.
    double opacity = 1;
};
/// Draws the image of the whole scene at one moment of the opening animation.
void paintInFlight(QPainter& painter,
                   const RingScene& scene,
                   const QImage& ring,
                   const Flight& flight);
/// What must be repainted when the highlight, a slot or the centre changes from `before` to `now`.
[[nodiscard]] QRegion dirtyRegion(const RingScene& before, const RingScene& now);
/// Where the desktop shines through the band, in device pixels.
[[nodiscard]] QRegion bandRegion(const RingScene& scene);
/// The visible part of the panel, for a desktop that does not blend windows; device pixels.
[[nodiscard]] QRegion shape(const RingScene& scene);

} // namespace Tavik::RingPainter
