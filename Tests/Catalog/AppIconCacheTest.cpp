// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/AppIconCache.h>
#include <TavikLauncherPlatform/IconDecoder.h>

#include <QSignalSpy>
#include <QStringList>
#include <QTest>

#include <Support/StepWorkQueue.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

/// Paints no icon, but remembers in which order they were asked for.
class FakeDecoder final : public IconDecoder
{
public:
    [[nodiscard]] QImage decode(const AppIcon& icon, int side, double) const override
    {
        decoded.append(icon.source);
        return icon.source == u"null"_s ? QImage()
                                        : QImage(side, side, QImage::Format_ARGB32_Premultiplied);
    }
    void reload() override { ++reloads; }
    mutable QStringList decoded;
    int reloads = 0;
};

QList<AppIcon> numbered(int count, const QString& prefix = u"icon"_s)
{
    QList<AppIcon> icons;
    for (int number = 0; number < count; ++number) {
        icons.append(AppIcon{prefix + QString::number(number)});
    }
    return icons;
}

} // namespace

class AppIconCacheTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_decoder = std::make_unique<FakeDecoder>();
        m_work = std::make_unique<StepWorkQueue>();
        m_cache = std::make_unique<AppIconCache>(*m_decoder, *m_work);
    }

    void anIconIsDecodedInTheBackgroundOnce()
    {
        QSignalSpy ready(m_cache.get(), &AppIconCache::imageReady);
        const AppIcon icon{u"a"_s};
        for (int frame = 0; frame < 3; ++frame) {
            QVERIFY(m_cache->image(icon, 50, 1).isNull());
        }
        m_cache->prefetch({icon}, 50, 1);
        QVERIFY(m_decoder->decoded.isEmpty());
        m_work->runAll();
        QCOMPARE(m_decoder->decoded, {u"a"_s});
        QCOMPARE(ready.count(), 1);
        QCOMPARE(m_cache->image(icon, 50, 1).size(), QSize(50, 50));
        QCOMPARE(m_work->waiting(), 0U);
    }

    void whatIsDrawnComesBeforeWhatIsPrefetched()
    {
        m_cache->prefetch(numbered(40), 50, 1);
        QCOMPARE(m_work->waiting(), 2U); // No more than the background has threads.
        draw({AppIcon{u"icon39"_s}, AppIcon{u"seen"_s}});
        m_work->runAll();
        QCOMPARE(m_decoder->decoded.size(), 41);
        QCOMPARE(m_decoder->decoded.first(2), QStringList({u"icon0"_s, u"icon1"_s}));
        // Sixteen had been handed out before.
        QCOMPARE(m_decoder->decoded.sliced(16, 2), QStringList({u"icon39"_s, u"seen"_s}));
    }

    void theCacheStaysBoundedAndKeepsThePrefetchedIcons()
    {
        constexpr int side = 128; // 64 KiB each, so 128 of them fill the cache.
        const QList<AppIcon> ring = numbered(24, u"ring"_s);
        m_cache->prefetch(ring, side, 1);
        m_work->runAll();
        const QList<AppIcon> searched = numbered(400, u"found"_s);
        for (qsizetype first = 0; first < searched.size(); first += 20) {
            draw(searched.sliced(first, 20), side);
            m_work->runAll();
        }
        for (const AppIcon& icon : ring) {
            QVERIFY(!m_cache->image(icon, side, 1).isNull());
        }
        qsizetype kept = 0;
        for (const AppIcon& icon : searched) {
            kept += m_cache->image(icon, side, 1).isNull() ? 0 : 1;
        }
        QVERIFY(kept > 0 && kept + ring.size() <= 128);
        QVERIFY(!m_cache->image(searched.last(), side, 1).isNull());
    }

    void aThemeChangeDecodesAnew()
    {
        m_cache->prefetch({AppIcon{u"ring"_s}}, 50, 1);
        m_work->runAll();
        draw({AppIcon{u"late"_s}});
        const WorkQueue::Done outdated = m_work->startAt(0);
        QSignalSpy ready(m_cache.get(), &AppIconCache::imageReady);
        m_cache->invalidate();
        QCOMPARE(ready.count(), 1);
        QCOMPARE(m_decoder->reloads, 1);
        // No gap in the ring meanwhile.
        QVERIFY(!m_cache->image(AppIcon{u"ring"_s}, 50, 1).isNull());
        StepWorkQueue::finish(outdated);
        QVERIFY(m_cache->image(AppIcon{u"late"_s}, 50, 1).isNull());
        m_work->runAll();
        QVERIFY(!m_cache->image(AppIcon{u"late"_s}, 50, 1).isNull());
        QVERIFY(!m_cache->image(AppIcon{u"ring"_s}, 50, 1).isNull());
        QCOMPARE(m_decoder->decoded.count(u"ring"_s), 2);
    }

    void anIconThatCannotBeDecodedIsAskedForOnce()
    {
        draw({AppIcon{u"null"_s}});
        m_work->runAll();
        QVERIFY(!m_cache->image(AppIcon{u"null"_s}, 50, 1).isNull());
        QCOMPARE(m_work->waiting(), 0U);
    }

    void resultsOutliveTheCache()
    {
        draw(numbered(3));
        m_cache.reset();
        m_work->runAll();
        QCOMPARE(m_work->waiting(), 0U);
    }

private:
    void draw(const QList<AppIcon>& icons, int side = 50)
    {
        for (const AppIcon& icon : icons) {
            std::ignore = m_cache->image(icon, side, 1);
        }
    }

    std::unique_ptr<FakeDecoder> m_decoder;
    std::unique_ptr<StepWorkQueue> m_work;
    std::unique_ptr<AppIconCache> m_cache;
};

QTEST_GUILESS_MAIN(AppIconCacheTest)
#include "AppIconCacheTest.moc"
