// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/AppCatalog.h>
#include <TavikLauncher/Catalog/CatalogCache.h>

#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <Support/AppNames.h>
#include <Support/FakeFileManager.h>
#include <Support/StepWorkQueue.h>
#include <Support/Table.h>
#include <Support/VirtualMainQueue.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

/// Each test starts with a cache that knows one application and a disk that has another.
class AppCatalogTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(u".*"_s));
        m_catalog.reset();
        m_files = std::make_unique<FakeFileManager>();
        m_work = std::make_unique<StepWorkQueue>();
        m_main = std::make_unique<VirtualMainQueue>();
        m_files->support = {.path = m_folder.path(), .error = {}};
        installOnDisk({u"Cached"_s});
        CatalogCache::saveCachedApplications(
            *m_files, *m_work, {IndexedApp(u"Cached"_s, std::nullopt, u"/A/Cached.app"_s, {})});
        m_work->runAll();
        installOnDisk({u"Walked"_s});
        makeCatalog();
    }

    void theCacheIsReadAndTheWalkReplacesIt()
    {
        QSignalSpy appsChanged(m_catalog.get(), &AppCatalog::appsChanged);
        QVERIFY(m_catalog->apps().isEmpty() && !m_catalog->isIndexing());
        m_catalog->reindex();
        QCOMPARE(m_work->waiting(), 1U); // The walk begins with what the cache knows.
        m_work->runAt(0);
        QCOMPARE(names(), {u"Cached"_s});
        QCOMPARE(appsChanged.count(), 1);
        QVERIFY(m_catalog->isIndexing());

        QSignalSpy indexing(m_catalog.get(), &AppCatalog::isIndexingChanged);
        connect(m_catalog.get(), &AppCatalog::appsChanged, this, [this] {
            QVERIFY(!m_catalog->isIndexing());
        });
        m_work->runAll();
        QCOMPARE(names(), {u"Walked"_s});
        QCOMPARE(indexing.count(), 1);
        // What was walked is what the next run begins with.
        makeCatalog();
        m_work->runAll();
        QCOMPARE(names(), {u"Walked"_s});
    }

    void aWalkThatFindsNothingLeavesNothing()
    {
        installOnDisk({});
        m_catalog->reindex();
        m_work->runAll();
        QCOMPARE(names(), {});
    }

    void theKeptOrderHoldsUnlessTheUserAsksOrHasAnotherLanguage_data()
    {
        // The language of what is kept, whether the user asks, the order after the walk.
        const Table<QByteArray, bool, QString> row;
        row("kept", "en", false, u"C A New"_s);
        row("asked for", "en", true, u"A C New"_s);
        row("another language", "sv", false, u"A C New"_s);
    }

    void theKeptOrderHoldsUnlessTheUserAsksOrHasAnotherLanguage()
    {
        const auto [language, isAskedFor, order] = fetch<QByteArray, bool, QString>();
        const QStringList kept{u"C"_s, u"A"_s};
        installOnDisk(kept);
        const auto app = [](const QString& name) {
            return IndexedApp(name, std::nullopt, u"/A/%1.app"_s.arg(name), {});
        };
        CatalogCache::saveCachedApplications(*m_files, *m_work, {app(u"C"_s), app(u"A"_s)});
        m_work->runAll();
        QByteArray& content
            = m_files->contents[m_folder.filePath(u"TavikLauncher/app_index.json"_s)];
        content.replace("\"en\"", "\"" + language + "\"");
        makeCatalog();
        m_work->runAt(0);
        QCOMPARE(names(), kept);
        // Only an order that is known to be right decides between equals.
        QCOMPARE(namesOf(m_catalog->results(u"-"_s, 9)),
                 language == "en" ? kept : QStringList({u"A"_s, u"C"_s}));
        installOnDisk({u"New"_s, u"A"_s, u"C"_s});
        isAskedFor ? m_catalog->reindexFromScratch() : m_catalog->reindex();
        m_work->runAll();
        QCOMPARE(names().join(u' '), order);
    }

    void oneWalkRunsAtATime()
    {
        m_work->runAll();
        QSignalSpy indexing(m_catalog.get(), &AppCatalog::isIndexingChanged);
        m_catalog->reindex();
        m_catalog->reindex();
        m_catalog->reindexIfStale(std::chrono::seconds(0));
        QCOMPARE(m_work->waiting(), 1U);
        QCOMPARE(indexing.count(), 1);
        m_work->runAt(0);
        QVERIFY(!m_catalog->isIndexing());
        QCOMPARE(m_work->waiting(), 1U); // The cache write; no second walk was kept.
    }

    void aStaleCatalogIsWalkedAgain()
    {
        m_catalog->reindexIfStale(std::chrono::seconds(300));
        QVERIFY(m_catalog->isIndexing()); // There was no walk yet.
        m_main->advance(5000); // The age counts from the end of the walk.
        m_work->runAll();
        for (const bool isStale : {false, true}) {
            m_main->advance(isStale ? 1 : 299);
            m_catalog->reindexIfStale(std::chrono::seconds(300));
            QCOMPARE(m_catalog->isIndexing(), isStale);
        }
    }

    void changedFoldersAreWalkedAgainAlsoAfterAWalkThatMissedThem()
    {
        m_catalog->watchFolders();
        QCOMPARE(m_files->watched, QStringList{u"/A"_s});
        QSignalSpy foldersChanged(m_catalog.get(), &AppCatalog::foldersChanged);
        m_catalog->reindex();
        m_work->runAt(0);
        const WorkQueue::Done walk = m_work->startAt(0);
        installOnDisk({u"Walked"_s, u"New"_s});
        m_files->folderChanged({});
        m_files->folderChanged({});
        StepWorkQueue::finish(walk);
        QCOMPARE(names(), {u"Walked"_s});
        m_work->runAll();
        QCOMPARE(names(), QStringList({u"New"_s, u"Walked"_s}));
        QVERIFY(!m_catalog->isIndexing());
        QCOMPARE(foldersChanged.count(), 2);
    }

    void whatHasChangedIsLookedAtAloneAndNeverOverWhatAWalkHasFound()
    {
        m_catalog->watchFolders();
        m_catalog->reindex();
        m_work->runAt(0);
        const WorkQueue::Done walk = m_work->startAt(0);
        installOnDisk({u"New"_s, u"Walked"_s});
        m_files->folderChanged({u"/A/New.app"_s});
        StepWorkQueue::finish(walk);
        m_files->bundleReads = 0;
        m_work->runAll();
        QCOMPARE(names(), QStringList({u"New"_s, u"Walked"_s}));
        QCOMPARE(m_files->bundleReads, 1);

        installOnDisk({u"New"_s});
        m_files->folderChanged({u"/A/Walked.app"_s});
        const WorkQueue::Done update = m_work->startAt(0);
        installOnDisk({u"Last"_s});
        m_catalog->reindex();
        m_work->runAll();
        StepWorkQueue::finish(update);
        QCOMPARE(names(), {u"Last"_s});
    }

    void resultsOutliveTheCatalog()
    {
        m_catalog->reindex();
        m_catalog.reset();
        m_work->runAll(); // Must neither crash nor store a list that nobody took.
        QCOMPARE(m_work->waiting(), 0U);
    }

private:
    void makeCatalog()
    {
        m_catalog
            = std::make_unique<AppCatalog>(AppCatalog::Dependencies{*m_files, *m_work, *m_main});
    }
    void installOnDisk(const QStringList& names)
    {
        m_files->items[u"/A"_s].clear();
        for (const QString& name : names) {
            const QString path = u"/A/%1.app"_s.arg(name);
            m_files->items[u"/A"_s].append({.path = path, .isSymbolicLink = false, .ownerId = 0});
            m_files->existing.insert(path);
        }
    }
    [[nodiscard]] QStringList names() const { return namesOf(m_catalog->apps()); }

    QTemporaryDir m_folder;
    std::unique_ptr<FakeFileManager> m_files;
    std::unique_ptr<StepWorkQueue> m_work;
    std::unique_ptr<VirtualMainQueue> m_main;
    std::unique_ptr<AppCatalog> m_catalog;
};

QTEST_GUILESS_MAIN(AppCatalogTest)
#include "AppCatalogTest.moc"
