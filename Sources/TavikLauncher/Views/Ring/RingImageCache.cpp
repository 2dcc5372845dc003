// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/Ring/RingImageCache.h>
#include <TavikLauncher/Views/Ring/RingPainter.h>

namespace Tavik {

namespace {

/// The part of the scene that the band depends on.
RingScene bandPart(const RingScene& scene)
{
    RingScene part;
    part.geometry = scene.geometry;
    part.geometry.slotCount = 0;
    part.style = scene.style;
    part.diameter = scene.diameter;
    part.devicePixelRatio = scene.devicePixelRatio;
    part.isOpaque = scene.isOpaque;
    part.behind = scene.behind;
    return part;
}

} // namespace

const QImage& RingImageCache::band(const RingScene& scene)
{
    const RingScene part = bandPart(scene);
    if (m_band.isNull() || !(part == m_bandScene)) {
        m_band = RingPainter::bandImage(part);
        m_bandScene = part;
    }
    return m_band;
}

const QImage& RingImageCache::wholeRing(const RingScene& scene)
{
    if (m_wholeRing.isNull() || !(scene == m_wholeRingScene)) {
        m_wholeRing = {}; // Not two of them at any time.
        m_wholeRing = RingPainter::ringImage(scene, band(scene));
        m_wholeRingScene = scene;
    }
    return m_wholeRing;
}

} // namespace Tavik
