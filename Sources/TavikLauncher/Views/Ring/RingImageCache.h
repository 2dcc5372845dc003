// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Views/Ring/RingScene.h>

#include <QImage>

namespace Tavik {

/// The two images that a ring is drawn from, each kept for as long as the scene that it was drawn
/// from stays the same: the band at rest, and the whole ring for the opening animation.
class RingImageCache
{
public:
    [[nodiscard]] const QImage& band(const RingScene& scene);
    [[nodiscard]] const QImage& wholeRing(const RingScene& scene);
    /// The band is as large as the whole ring, and not needed before the ring is at rest.
    void forgetBand() { m_band = {}; }

private:
    QImage m_band;
    RingScene m_bandScene;
    QImage m_wholeRing;
    RingScene m_wholeRingScene;
};

} // namespace Tavik
