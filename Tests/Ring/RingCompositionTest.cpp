// SPDX-License-Identifier: MIT
#include "RingFixture.h"

#include <QTest>

using namespace Tavik;
using namespace Qt::StringLiterals;
using namespace Tavik::Test;

namespace {

struct Composed : RingFixture
{
    RingComposition composition{{catalog, settings, recents, workspace, fileManager},
                                ownIdentifier};

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
        ring.pin({ring.path(u"C"_s), ring.path(u"A"_s)});
        ring.workspace.launch(ring.path(u"E"_s));
        ring.workspace.launch(ring.path(u"A"_s));
        ring.recents.recordLaunch(ring.path(u"E"_s));
        ring.recents.recordLaunch(ring.path(u"B"_s));
        QCOMPARE(ring.ring(), u"C A E B"_s);

        ring.settings.fillsRingWithRecentApps.set(false);
        QCOMPARE(ring.ring(), u"C A E"_s);
    }

    void agentsAndApplicationsWithoutABundleStayOut()
    {
        Composed ring;
        ring.workspace.launch(ring.path(u"B"_s));
        ring.workspace.running.append(
            {.activationPolicy = RunningApplication::ActivationPolicy::accessory,
             .bundleIdentifier = u"id.C"_s,
             .bundlePath = ring.path(u"C"_s)});
        ring.workspace.running.append({.bundleIdentifier = u"id.D"_s});
        QCOMPARE(ring.ring(), u"B"_s);
        const RingComposition::RunningSets running = ring.composition.runningApplications();
        QCOMPARE(running.paths, QSet<QString>{ring.path(u"B"_s)});
        QCOMPARE(running.bundleIdentifiers, QSet<QString>{u"id.D"_s});
    }

    void launcherItselfAppearsOnlyWhenPinned()
    {
        Composed ring;
        ring.install(u"/other/Launcher.desktop"_s, u"Copy"_s);
        ring.fileManager.bundles[u"/other/Launcher.desktop"_s].identifier = ring.ownIdentifier;
        ring.install(ring.ownPath, u"Own"_s);
        ring.walk();
        ring.workspace.launch(ring.ownPath);
        ring.workspace.launch(u"/other/Launcher.desktop"_s);
        ring.recents.recordLaunch(ring.ownPath);
        QCOMPARE(ring.ring(), QString());
        ring.pin({ring.ownPath});
        QCOMPARE(ring.ring(), u"Own"_s);
    }

    void missingApplicationsAreSkippedAndTheOthersMoveUp()
    {
        Composed ring;
        ring.pin({u"/gone.desktop"_s, ring.path(u"B"_s)});
        ring.defaults.values.insert(u"RecentAppsPaths"_s, 7);
        QCOMPARE(ring.ring(), u"B"_s);
    }

    void applicationsOutsideTheCatalogAreReadOnceUntilInvalidated()
    {
        Composed ring;
        Bundle bundle;
        bundle.name = u"Outside"_s;
        ring.fileManager.bundles.insert(u"/elsewhere/x.desktop"_s, bundle);
        ring.pin({u"/elsewhere/x.desktop"_s});
        QCOMPARE(ring.ring(), u"Outside"_s);
        const int reads = ring.fileManager.bundleReads;
        QCOMPARE(ring.ring(), u"Outside"_s);
        QCOMPARE(ring.fileManager.bundleReads, reads);

        ring.fileManager.bundles.remove(u"/elsewhere/x.desktop"_s);
        ring.composition.invalidateOutsideRecords();
        QCOMPARE(ring.ring(), QString());
    }

    void capacityIsAtLeastOne_data()
    {
        QTest::addColumn<int>("maximum");
        QTest::addColumn<QString>("ring");
        QTest::newRow("two") << 2 << u"A B"_s;
        QTest::newRow("one") << 1 << u"A"_s;
        QTest::newRow("zero") << 0 << u"A"_s;
        QTest::newRow("negative") << -3 << u"A"_s;
        QTest::newRow("more than there are") << 24 << u"A B C"_s;
    }
    void capacityIsAtLeastOne()
    {
        QFETCH(int, maximum);
        Composed ring;
        ring.pin({ring.path(u"A"_s), ring.path(u"B"_s), ring.path(u"C"_s)});
        ring.settings.maxVisibleApps.set(maximum);
        QTEST(ring.ring(), "ring");
    }

    void typedTextSearchesTheRingOrTheWholeCatalog()
    {
        Composed ring;
        ring.workspace.launch(ring.path(u"B"_s));
        QCOMPARE(ring.ring(u"d"_s, u"d"_s), QString());
        QCOMPARE(ring.ring(u"b"_s, u"b"_s), u"B"_s);
        ring.settings.searchesAllApps.set(true);
        QCOMPARE(ring.ring(u"d"_s, u"d"_s), u"D"_s);
        QCOMPARE(ring.ring(u"d"_s, u" e "_s), u"E"_s);
        QCOMPARE(ring.ring(u"d"_s), u"D"_s);
        QCOMPARE(ring.ring(u"d"_s, u"  "_s), u"B"_s);
    }
};

QTEST_APPLESS_MAIN(RingCompositionTest)
#include "RingCompositionTest.moc"
