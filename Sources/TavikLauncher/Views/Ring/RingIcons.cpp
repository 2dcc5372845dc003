// SPDX-License-Identifier: MIT
#include <TavikLauncher/Ring/RingGeometry.h>
#include <TavikLauncher/Views/Ring/RingIcons.h>

#include <QGuiApplication>
#include <QScreen>

#include <cmath>

namespace Tavik {

namespace {

int pixels(RingIcons::Size size, const RingIcons::Measures& measures)
{
    const double scale = size == RingIcons::Size::selected ? RingGeometry::selectedScale : 1;
    return static_cast<int>(std::lround(measures.side * measures.ratio * scale));
}

QList<AppIcon> iconsOf(const QList<IndexedApp>& apps)
{
    QList<AppIcon> icons;
    icons.reserve(apps.size());
    for (const IndexedApp& app : apps) {
        icons << app.icon();
    }
    return icons;
}

} // namespace

RingIcons::RingIcons(IconDecoder& decoder, WorkQueue& workQueue)
    : m_sprites(decoder)
    , m_cache(m_sprites, workQueue)
{ }

QImage RingIcons::image(const IndexedApp& app, Size size, const Measures& measures)
{
    return m_cache.image(app.icon(), pixels(size, measures), measures.ratio);
}

void RingIcons::prefetch(const QList<IndexedApp>& ring, const Measures& measures)
{
    const QList<AppIcon> icons = iconsOf(ring);
    for (const Size size : {Size::selected, Size::resting}) {
        m_cache.prefetch(icons, pixels(size, measures), measures.ratio);
    }
}

void RingIcons::prefetchAhead(const QList<IndexedApp>& ring,
                              const QList<IndexedApp>& search,
                              const Measures& measures)
{
    m_cache.prefetch(iconsOf(search), pixels(Size::resting, measures), measures.ratio);

    // The present screen's icons matter most and come last.
    QList<double> ratios{measures.ratio};
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (!ratios.contains(screen->devicePixelRatio())) {
            ratios.prepend(screen->devicePixelRatio());
        }
    }
    for (const double ratio : ratios) {
        prefetch(ring, {.side = measures.side, .ratio = ratio});
    }
}

} // namespace Tavik
