// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/CatalogCache.h>

#include <QFile>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QTest>

#include <Fuzz/Mutator.h>
#include <Support/FakeFileManager.h>
#include <Support/StepWorkQueue.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

class CacheFuzzTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void damagedCachesYieldExistingApplicationsOrNothing()
    {
        QLoggingCategory::setFilterRules(u"tavik.catalog.warning=false"_s);
        const QTemporaryDir folder;
        FakeFileManager files;
        StepWorkQueue queue;
        files.support = {.path = folder.path(), .error = {}};
        QList<IndexedApp> apps;
        for (int number = 0; number < 40; ++number) {
            const QString path = u"/Applications/App %1.app"_s.arg(number);
            files.existing.insert(path);
            apps.append(IndexedApp(u"Näme \"%1\""_s.arg(number), u"org.example.x"_s, path, {}));
        }
        CatalogCache::saveCachedApplications(files, queue, apps);
        queue.runAll();
        QFile file(*CatalogCache::cacheURL(files));
        QVERIFY(file.open(QIODevice::ReadWrite));
        const QByteArray wellFormed = file.readAll();

        tryDamaged(7, wellFormed, 1500, [&](const QByteArray& damaged, int& understood) {
            QVERIFY(file.resize(0) && file.seek(0));
            QCOMPARE(file.write(damaged), damaged.size());
            QVERIFY(file.flush());
            const QList<IndexedApp> loaded = CatalogCache::loadCachedApplications(files);
            understood += loaded.isEmpty() ? 0 : 1;
            for (const IndexedApp& app : loaded) {
                QVERIFY(files.existing.contains(app.path()));
            }
        });
    }
};

QTEST_GUILESS_MAIN(CacheFuzzTest)
#include "CacheFuzzTest.moc"
