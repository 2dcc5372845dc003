// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/AppIconCache.h>
#include <TavikLauncherPlatform/IconDecoder.h>
#include <TavikLauncherPlatform/WorkQueue.h>

#include <QHashFunctions>
#include <QPointer>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Tavik {

namespace {

constexpr double bytesAtScaleOne = 8.0 * 1024 * 1024;
constexpr int bytesPerPixel = 4;
/// A quarter of the smallest cache, so that no single icon can push out all others.
constexpr int maxSide = 724;
constexpr double maxScale = 4;
constexpr qsizetype batchSize = 8;
constexpr int maxRunningJobs = 2;
/// Fast typing through a long catalog asks for icons that are out of sight before their turn comes.
constexpr qsizetype maxWanted = 256;

/// What an image that is not there yet will take up, at most.
qsizetype expectedCost(int sidePixels, double scale)
{
    // A decoder may draw a shadow around the icon, which at small sizes doubles the image's area.
    constexpr double shadowMargin = 8; // Points.
    const auto side = sidePixels + static_cast<qsizetype>(std::ceil(2 * shadowMargin * scale));
    return side * side * bytesPerPixel;
}

QImage transparentImage(int side)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

} // namespace

size_t qHash(const AppIconCache::Key& key, size_t seed)
{
    return qHashMulti(seed, key.source, key.side, key.scale);
}

AppIconCache::AppIconCache(IconDecoder& decoder, WorkQueue& workQueue, QObject* parent)
    : QObject(parent)
    , m_decoder(decoder)
    , m_workQueue(workQueue)
    , m_images(static_cast<qsizetype>(bytesAtScaleOne))
{ }

QImage AppIconCache::image(const AppIcon& icon, int sidePixels, double scale)
{
    const Key key = keyFor(icon, sidePixels, scale);
    const QImage* known = m_images.object(key);
    const QImage image = known ? *known : QImage();
    if (isCurrent(key)) {
        return image;
    }
    m_ahead.removeOne(key);
    if (!isUnderWay(key)) {
        m_wanted.append(key);
        if (m_wanted.size() > maxWanted) {
            m_wanted.removeFirst();
        }
        startJobs();
    }
    return image;
}

void AppIconCache::prefetch(const QList<AppIcon>& icons, int sidePixels, double scale)
{
    QList<Key> candidates;
    for (const AppIcon& icon : icons) {
        candidates.append(keyFor(icon, sidePixels, scale));
    }
    candidates.append(std::exchange(m_prefetched, {}));

    qsizetype room = m_images.maxCost() / 2;
    QSet<Key> seen;
    for (const Key& key : candidates) {
        const qsizetype cost = expectedCost(key.side, key.scale);
        if (seen.contains(key) || cost > room) {
            continue;
        }
        seen.insert(key);
        room -= cost;
        m_prefetched.append(key);
        if (!isCurrent(key) && !m_ahead.contains(key) && !isUnderWay(key)) {
            m_ahead.append(key);
        }
    }
    startJobs();
}

void AppIconCache::invalidate()
{
    ++m_generation;
    m_decoder.reload();
    const QList<Key> known = m_images.keys();
    m_outdated = QSet<Key>(known.cbegin(), known.cend());
    m_decoding.clear();
    m_wanted.clear();
    m_ahead = m_prefetched;
    startJobs();
    Q_EMIT imageReady();
}

AppIconCache::Key AppIconCache::keyFor(const AppIcon& icon, int sidePixels, double scale)
{
    const double sensibleScale = std::clamp(std::isfinite(scale) ? scale : 1.0, 1.0, maxScale);
    if (sensibleScale > m_largestScale) {
        m_largestScale = sensibleScale;
        m_images.setMaxCost(
            static_cast<qsizetype>(bytesAtScaleOne * m_largestScale * m_largestScale));
    }
    return {
        .source = icon.source, .side = std::clamp(sidePixels, 1, maxSide), .scale = sensibleScale};
}

void AppIconCache::startJobs()
{
    while (m_runningJobs < maxRunningJobs && !(m_wanted.isEmpty() && m_ahead.isEmpty())) {
        ++m_runningJobs;
        m_workQueue.run(
            WorkPriority::userInitiated,
            [&decoder = m_decoder, keys = takeBatch()] {
                QList<Decoded> batch;
                for (const Key& key : keys) {
                    batch.append({key, decoder.decode(AppIcon{key.source}, key.side, key.scale)});
                }
                return batch;
            },
            [cache = QPointer(this), generation = m_generation](const QList<Decoded>& batch) {
                if (cache) {
                    cache->finishBatch(batch, generation);
                }
            });
    }
}

QList<AppIconCache::Key> AppIconCache::takeBatch()
{
    QList<Key>& source = m_wanted.isEmpty() ? m_ahead : m_wanted;
    const QList<Key> batch = source.first(std::min(source.size(), batchSize));
    source.remove(0, batch.size());
    for (const Key& key : batch) {
        m_decoding.insert(key);
    }
    return batch;
}

void AppIconCache::finishBatch(const QList<Decoded>& batch, int generation)
{
    --m_runningJobs;
    if (generation == m_generation) {
        for (const auto& [key, image] : batch) {
            m_decoding.remove(key);
            m_outdated.remove(key);
            keepPrefetched();
            // An empty image would be asked for, and decoded, again and again.
            const QImage kept = image.isNull() ? transparentImage(key.side) : image;
            m_images.insert(
                key, new QImage(kept), std::min(kept.sizeInBytes(), m_images.maxCost()));
        }
    }
    startJobs();
    if (generation == m_generation) {
        Q_EMIT imageReady();
    }
}

/// Makes the prefetched images the ones used last, so that others are pushed out before them.
void AppIconCache::keepPrefetched()
{
    const auto atLatest = m_prefetched.crend();
    for (auto key = m_prefetched.crbegin(); key != atLatest; ++key) {
        std::ignore = m_images.object(*key);
    }
}

bool AppIconCache::isUnderWay(const Key& key) const
{
    return m_decoding.contains(key) || m_wanted.contains(key);
}

bool AppIconCache::isCurrent(const Key& key) const
{
    return m_images.contains(key) && !m_outdated.contains(key);
}

} // namespace Tavik
