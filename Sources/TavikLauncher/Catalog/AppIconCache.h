// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherCore/AppIcon.h>

#include <QCache>
#include <QImage>
#include <QList>
#include <QObject>
#include <QSet>

#include <optional>

namespace Tavik {

class IconDecoder;
class WorkQueue;

/// Decoded icons at the sizes they are drawn. Decodes in the background only, so asking never
/// blocks. Forgets the icons drawn longest ago when they take too much memory, but not the ones
/// prefetched last. Main thread only.
class AppIconCache final : public QObject
{
    Q_OBJECT

public:
    /// Both services outlive the cache and its background work.
    AppIconCache(IconDecoder& decoder, WorkQueue& workQueue, QObject* parent = nullptr);

    /// The icon fitted into a square of `sidePixels` device pixels on a screen with `scale` device
    /// pixels per point. Null when it is not decoded yet; then `imageReady` follows.
    [[nodiscard]] QImage image(const AppIcon& icon, int sidePixels, double scale);
    /// Decodes `icons` ahead, the first ones first, but after what `image` asks for.
    void prefetch(const QList<AppIcon>& icons, int sidePixels, double scale);
    /// For a change of the installed icons: every image is decoded anew, the prefetched ones at
    /// once. Until then the old ones stand in.
    void invalidate();

Q_SIGNALS:
    /// More images are there, or all have to be asked for again; once per batch.
    void imageReady();

private:
    struct Key
    {
        QString source;
        int side = 0;
        double scale = 1;

        bool operator==(const Key&) const = default;
    };
    friend size_t qHash(const Key& key, size_t seed);
    struct Decoded
    {
        Key key;
        QImage image;
    };

    Key keyFor(const AppIcon& icon, int sidePixels, double scale);
    void startJobs();
    QList<Key> takeBatch();
    void finishBatch(const QList<Decoded>& batch, int generation);
    void keepPrefetched();
    [[nodiscard]] bool isUnderWay(const Key& key) const;
    [[nodiscard]] bool isCurrent(const Key& key) const;

    IconDecoder& m_decoder;
    WorkQueue& m_workQueue;
    QCache<Key, QImage> m_images; ///< Its cost is in bytes.
    QSet<Key> m_outdated; ///< Of the images, those from before the last invalidation.
    double m_largestScale = 1;
    QList<Key> m_prefetched; ///< The latest first; they fit into half of the cache.
    QList<Key> m_wanted; ///< Asked for to be drawn, waiting for a job.
    QList<Key> m_ahead; ///< Asked for ahead, waiting for a job.
    QSet<Key> m_decoding; ///< Handed to a job.
    int m_runningJobs = 0;
    int m_generation = 0; ///< Tells results from before the last invalidation.
};

} // namespace Tavik
