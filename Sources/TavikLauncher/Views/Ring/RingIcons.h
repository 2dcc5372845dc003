// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Catalog/AppIconCache.h>
#include <TavikLauncher/Views/Ring/IconSpriteDecoder.h>
#include <TavikLauncherCore/IndexedApp.h>

#include <QList>

namespace Tavik {

/// Applications' icons at the sizes the ring draws them in, decoded before they are needed. Lengths
/// are in points, ratios in device pixels per point.
class RingIcons
{
public:
    enum class Size {
        resting,
        selected
    };
    /// What the size of an icon on the screen depends on.
    struct Measures
    {
        double side = 0;
        double ratio = 1;
    };

    /// Both services outlive the icons and their background work.
    RingIcons(IconDecoder& decoder, WorkQueue& workQueue);

    /// Tells when more icons are there.
    [[nodiscard]] AppIconCache& cache() { return m_cache; }
    /// Null while it is not decoded yet.
    [[nodiscard]] QImage image(const IndexedApp& app, Size size, const Measures& measures);

    /// For a ring that is shown.
    void prefetch(const QList<IndexedApp>& ring, const Measures& measures);
    /// For the next ring, on whatever screen it will be, and the first page of a search.
    void prefetchAhead(const QList<IndexedApp>& ring,
                       const QList<IndexedApp>& search,
                       const Measures& measures);

private:
    IconSpriteDecoder m_sprites;
    AppIconCache m_cache;
};

} // namespace Tavik
