// SPDX-License-Identifier: MIT
#include "RingFixture.h"

#include <QTest>

using namespace Tavik;
using namespace Tavik::Test;

namespace {

struct Composed : RingFixture
{
    RingComposition composition{{catalog, settings, recents, workspace, fileManager}, own};

    void pin(const QStringList& paths)
    {
        settings.permanentAppPaths.set(paths);
        settings.pinnedPermanentAppPaths.set(paths);
    }
    [[nodiscard]] QString ring(const QString& query = {}, const QString& debounced = {}) const
    {
        return names(composition.defaultRingApps(composition.baseList(query, debounced)));
    }
};

} // namespace

class RingCompositionTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pinnedThenRunningThenRecentWithoutRepeats()
    {
        Composed ring;
        ring.pin({ring.path(u"C"_qs), ring.path(u"A"_qs)});
        ring.workspace.launch(ring.path(u"E"_qs));
        ring.workspace.launch(ring.path(u"A"_qs));
        ring.recents.recordLaunch(ring.path(u"E"_qs));
        ring.recents.recordLaunch(ring.path(u"B"_qs));
        QCOMPARE(ring.ring(), u"C A E B"_qs);

        ring.settings.fillsRingWithRecentApps.set(false);
        QCOMPARE(ring.ring(), u"C A E"_qs);
    }

    void agentsAndApplicationsWithoutABundleStayOut()
    {
        Composed ring;
        ring.workspace.launch(ring.path(u"B"_qs));
        ring.workspace.running.append(
            {.activationPolicy = RunningApplication::ActivationPolicy::accessory,
             .bundleIdentifier = u"id.C"_qs,
             .bundlePath = ring.path(u"C"_qs)});
        ring.workspace.running.append({.bundleIdentifier = u"id.D"_qs});
        QCOMPARE(ring.ring(), u"B"_qs);
        const RingComposition::RunningSets running = ring.composition.runningApplications();
        QCOMPARE(running.paths, QSet<QString>{ring.path(u"B"_qs)});
        QCOMPARE(running.bundleIdentifiers, QSet<QString>{u"id.D"_qs});
    }

    void launcherItselfAppearsOnlyWhenPinned()
    {
        Composed ring;
        ring.install(u"/other/Launcher.desktop"_qs, u"Copy"_qs);
        ring.fileManager.bundles[u"/other/Launcher.desktop"_qs].identifier = ring.own.identifier;
        ring.install(ring.own.path, u"Own"_qs);
        ring.walk();
        ring.workspace.launch(ring.own.path);
        ring.workspace.launch(u"/other/Launcher.desktop"_qs);
        ring.recents.recordLaunch(ring.own.path);
        QCOMPARE(ring.ring(), QString());
        ring.pin({ring.own.path});
        QCOMPARE(ring.ring(), u"Own"_qs);
    }

    void missingApplicationsAreSkippedAndTheOthersMoveUp()
    {
        Composed ring;
        ring.pin({u"/gone.desktop"_qs, ring.path(u"B"_qs)});
        ring.defaults.values.insert(u"RecentAppsPaths"_qs, 7);
        QCOMPARE(ring.ring(), u"B"_qs);
    }

    void applicationsOutsideTheCatalogAreReadOnceUntilInvalidated()
    {
        Composed ring;
        Bundle bundle;
        bundle.name = u"Outside"_qs;
        ring.fileManager.bundles.insert(u"/elsewhere/x.desktop"_qs, bundle);
        ring.pin({u"/elsewhere/x.desktop"_qs});
        QCOMPARE(ring.ring(), u"Outside"_qs);
        const int reads = ring.fileManager.bundleReads;
        QCOMPARE(ring.ring(), u"Outside"_qs);
        QCOMPARE(ring.fileManager.bundleReads, reads);

        ring.fileManager.bundles.remove(u"/elsewhere/x.desktop"_qs);
        ring.composition.invalidateOutsideRecords();
        QCOMPARE(ring.ring(), QString());
    }

    void capacityIsAtLeastOne_data()
    {
        QTest::addColumn<int>("maximum");
        QTest::addColumn<QString>("ring");
        QTest::newRow("two") << 2 << u"A B"_qs;
        QTest::newRow("one") << 1 << u"A"_qs;
        QTest::newRow("zero") << 0 << u"A"_qs;
        QTest::newRow("negative") << -3 << u"A"_qs;
        QTest::newRow("more than there are") << 24 << u"A B C"_qs;
    }
    void capacityIsAtLeastOne()
    {
        QFETCH(int, maximum);
        Composed ring;
        ring.pin({ring.path(u"A"_qs), ring.path(u"B"_qs), ring.path(u"C"_qs)});
        ring.settings.maxVisibleApps.set(maximum);
        QTEST(ring.ring(), "ring");
    }

    void typedTextSearchesTheRingOrTheWholeCatalog()
    {
        Composed ring;
        ring.workspace.launch(ring.path(u"B"_qs));
        QCOMPARE(ring.ring(u"d"_qs, u"d"_qs), QString());
        QCOMPARE(ring.ring(u"b"_qs, u"b"_qs), u"B"_qs);
        ring.settings.searchesAllApps.set(true);
        QCOMPARE(ring.ring(u"d"_qs, u"d"_qs), u"D"_qs);
        QCOMPARE(ring.ring(u"d"_qs, u" e "_qs), u"E"_qs);
        QCOMPARE(ring.ring(u"d"_qs), u"D"_qs);
        QCOMPARE(ring.ring(u"d"_qs, u"  "_qs), u"B"_qs);
    }
};

QTEST_APPLESS_MAIN(RingCompositionTest)
#include "RingCompositionTest.moc"
