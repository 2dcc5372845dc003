// SPDX-License-Identifier: MIT
#include "RingFixture.h"
#include <TavikLauncher/Ring/RingGeometry.h>

#include <QSignalSpy>
#include <QTest>

#include <Support/Counting.h>

using namespace Tavik;
using namespace Qt::StringLiterals;
using namespace Tavik::Test;

namespace {

struct Composed : RingFixture
{
    OutsideApps outside{fileManager, workQueue};
    RingComposition composition{{catalog, settings, recents, workspace, outside}, ownIdentifier};

    [[nodiscard]] QString ring(const QString& query = {}, const QString& debounced = {}) const
    {
        return names(composition.defaultRingApps(composition.baseList(query, debounced)));
    }
};

/// Five applications run; the ring shows A to E.
struct Interacting : RingFixture
{
    Interacting()
    {
        launch(all);
        settings.showsLaunchHints.set(false);
        commands.pinForSearch = counting(pins);
        commands.close = [] {
        };
        ring.appear();
    }
    void type(const QString& text) { commands.insertText(text); }
    [[nodiscard]] RingGeometry geometry() const
    {
        return RingGeometry::make({.area = QSizeF(320, 320),
                                   .ringThickness = 80,
                                   .iconSize = 50,
                                   .slotCount = static_cast<int>(ring.ringApps().size())});
    }
    /// What is selected when the pointer is there.
    int hover(QPointF point)
    {
        ring.hoverAt(point, geometry());
        return ring.selectedIndex();
    }

    int pins = 0;
    int closes = 0;
    RingInteraction ring{ringDependencies(), ownIdentifier, counting(closes)};
};

} // namespace

class RingInteractionTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pinnedThenRunningThenRecentWithoutRepeats()
    {
        Composed ring;
        ring.pin(ring.paths(u"gone C A"_s));
        ring.launch(u"E A"_s);
        ring.recents.recordLaunch(ring.path(u"E"_s));
        ring.recents.recordLaunch(ring.path(u"B"_s));
        QCOMPARE(ring.ring(), u"C A E B"_s);

        ring.defaults.values.insert(u"RecentAppsPaths"_s, 7);
        QCOMPARE(ring.ring(), u"C A E"_s);
        ring.recents.recordLaunch(ring.path(u"B"_s));
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

    void drivesComeAndGoWithoutBeingWaitedFor()
    {
        Interacting it;
        const QString path = u"/drive/x.desktop"_s;
        const auto shown = [&it](bool isSummon) {
            it.commands.prepareForShow(isSummon);
            const int reads = it.fileManager.bundleReads;
            it.ring.refreshRing();
            return it.fileManager.bundleReads == reads && it.workQueue.waiting() == 1;
        };
        Bundle bundle;
        bundle.name = u"Outside"_s;
        bundle.isHidden = true; // The user asked for it by name.
        it.fileManager.bundles.insert(path, bundle);
        const int reads = it.fileManager.bundleReads;
        it.pin({path});
        QCOMPARE(names(it.ring.ringApps()), it.all);
        QCOMPARE(it.fileManager.bundleReads, reads);
        it.workQueue.runAll();
        QCOMPARE(names(it.ring.ringApps()), u"Outside "_s + it.all);

        it.fileManager.bundles.remove(path);
        QVERIFY(shown(true));
        it.commands.moveSelectionRight();
        it.workQueue.runAll();
        QCOMPARE(names(it.ring.ringApps()), u"Outside "_s + it.all); // It is being chosen from.
        QVERIFY(shown(false));
        QCOMPARE(names(it.ring.ringApps()), it.all);
    }

    void capacityIsAtLeastOne()
    {
        Composed ring;
        ring.pin(ring.paths(u"A B C"_s));
        for (const auto& [maximum, shown] :
             {std::pair(24, u"A B C"_s), {2, u"A B"_s}, {0, u"A"_s}, {-3, u"A"_s}}) {
            ring.settings.maxVisibleApps.set(maximum);
            QCOMPARE(ring.ring(), shown);
        }
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

    void selectionTurnsAroundTheRingAndLaunches()
    {
        Interacting fixture;
        const RingInteraction& ring = fixture.ring;
        QVERIFY(!ring.hasActiveSelection());
        fixture.commands.moveSelectionUp();
        QCOMPARE(ring.selectedIndex(), 4);
        QCOMPARE(ring.highlightedAngleDegrees(), -90.0 - 72);
        fixture.commands.moveSelectionDown();
        fixture.commands.moveSelectionRight();
        QCOMPARE(ring.selectedIndex(), 1);
        fixture.commands.moveSelectionLeft();
        QCOMPARE(ring.selectedIndex(), 0);
        QVERIFY(ring.hasActiveSelection());

        fixture.commands.quickLaunchAtIndex(6);
        fixture.commands.quickLaunchAtIndex(0);
        QCOMPARE(fixture.closes, 0);
        fixture.commands.activate();
        fixture.commands.quickLaunchAtIndex(3);
        QCOMPARE(fixture.workspace.opened, fixture.paths(u"A C"_s));
        QCOMPARE(fixture.closes, 2);
        QCOMPARE(fixture.recents.recentPaths(), fixture.paths(u"C A"_s));
    }

    void typingFiltersAtOnceAndDeletingRestores()
    {
        Interacting fixture;
        const RingInteraction& ring = fixture.ring;
        fixture.commands.moveSelectionRight();
        fixture.type(u"c"_s);
        QCOMPARE(names(ring.ringApps()), u"C"_s);
        QCOMPARE(ring.selectedIndex(), 0);
        QVERIFY(ring.isPinnedForSearch());

        // Nothing is found: there is nothing to launch or to turn to.
        for (const QString& character : {u"e\u0301"_s, u"👨‍👩‍👧"_s}) {
            fixture.type(character);
        }
        QVERIFY(ring.ringApps().isEmpty());
        fixture.commands.activate();
        fixture.commands.moveSelectionRight();
        QCOMPARE(ring.selectedIndex(), 0);
        QCOMPARE(fixture.closes, 0);

        fixture.commands.deleteBackward();
        QCOMPARE(ring.query(), u"ce\u0301"_s);
        fixture.commands.deleteBackward();
        fixture.commands.deleteBackward();
        QCOMPARE(ring.query(), QString());
        QCOMPARE(names(ring.ringApps()), fixture.all);
        QVERIFY(ring.isPinnedForSearch());
        QCOMPARE(fixture.pins, 6);
        fixture.commands.deleteBackward();
        QCOMPARE(fixture.pins, 6);
    }

    void fieldEditsFilterOnceAfterAPause()
    {
        Interacting fixture;
        fixture.commands.moveSelectionRight();
        QSignalSpy refreshed(&fixture.ring, &RingInteraction::ringChanged);
        fixture.ring.editQuery(u"d"_s);
        fixture.mainQueue.advance(0.1);
        fixture.ring.editQuery(u"e"_s);
        fixture.mainQueue.advance(0.11);
        QCOMPARE(refreshed.count(), 0);
        QVERIFY(fixture.ring.isPinnedForSearch());
        fixture.mainQueue.advance(0.02);
        QCOMPARE(refreshed.count(), 1);
        QCOMPARE(names(fixture.ring.ringApps()), u"E"_s);
        QCOMPARE(fixture.ring.selectedIndex(), 0);

        fixture.ring.editQuery(u"x"_s);
        fixture.ring.prepareForShow(true);
        fixture.mainQueue.advance(1);
        QCOMPARE(fixture.ring.debouncedQuery(), QString());
    }

    void restingPointerSelectsNothing()
    {
        Interacting fixture;
        const QPointF right = fixture.geometry().slotCenter(1);
        fixture.presentation.setAcceptsHover(false);
        fixture.hover(right + QPointF(50, 0));
        fixture.presentation.setAcceptsHover(true);
        fixture.hover(right);
        QCOMPARE(fixture.hover(right + QPointF(6, 0)), 0);
        QCOMPARE(fixture.hover(right + QPointF(6.01, 0)), 1);
        QCOMPARE(fixture.hover(QPointF(160, 160)), 1);
        QCOMPARE(fixture.hover(fixture.geometry().slotCenter(3)), 3);

        fixture.ring.prepareForShow(true);
        QCOMPARE(fixture.hover(right), 0);
    }

    void ringFollowsTheWorkspaceTheCatalogAndTheSettings()
    {
        Interacting fixture;
        fixture.commands.moveSelectionLeft();
        fixture.workspace.running.removeLast();
        fixture.workspace.center.post(Workspace::didTerminateApplication, fixture.path(u"E"_s));
        QCOMPARE(names(fixture.ring.ringApps()), u"A B C D"_s);
        QCOMPARE(fixture.ring.selectedIndex(), 3);

        fixture.settings.maxVisibleApps.set(2);
        QCOMPARE(names(fixture.ring.ringApps()), u"A B"_s);
        fixture.settings.maxVisibleApps.set(15);
        fixture.fileManager.bundles[fixture.path(u"A"_s)].name = u"Renamed"_s;
        fixture.walk();
        QCOMPARE(names(fixture.ring.ringApps()), u"Renamed B C D"_s);
        fixture.workspace.launch(fixture.path(u"E"_s));
        QCOMPARE(names(fixture.ring.ringApps()), u"Renamed B C D E"_s);

        QSignalSpy refreshed(&fixture.ring, &RingInteraction::ringChanged);
        fixture.workspace.center.post(Workspace::didActivateApplication, fixture.path(u"A"_s));
        fixture.settings.ringOpacity.set(0.5);
        QCOMPARE(refreshed.count(), 0);
    }

    void prepareForShowForgetsTheLastSummon()
    {
        Interacting fixture;
        fixture.commands.moveSelectionLeft();
        fixture.type(u"b"_s);
        fixture.commands.prepareForShow(true);
        QCOMPARE(names(fixture.ring.ringApps()), fixture.all);
        QVERIFY(!fixture.ring.isPinnedForSearch() && !fixture.ring.hasActiveSelection());
        QCOMPARE(fixture.ring.highlightedAngleDegrees(), -90.0);
    }

    void launchHintLivesSixSecondsAndOnlyOnTheUsersSummon()
    {
        Interacting fixture;
        fixture.settings.showsLaunchHints.set(true);
        fixture.commands.prepareForShow(true);
        QVERIFY(fixture.ring.launchHint()->startsWith(u"Helpful hints"));
        fixture.mainQueue.advance(5.9);
        QVERIFY(fixture.ring.launchHint());
        fixture.mainQueue.advance(0.2);
        QVERIFY(!fixture.ring.launchHint());

        // Using the ring ends it; and what was gone in a blink was not seen.
        Interacting other;
        other.settings.showsLaunchHints.set(true);
        for (const bool isSeen : {false, false, true}) {
            other.commands.prepareForShow(true);
            QVERIFY(other.ring.launchHint());
            other.mainQueue.advance(isSeen ? 2 : 0.2);
            if (isSeen) {
                other.commands.moveSelectionRight();
            } else {
                other.commands.prepareForShow(false);
            }
            QVERIFY(!other.ring.launchHint());
        }
        other.commands.prepareForShow(true);
        QVERIFY(!other.ring.launchHint());
        other.settings.launchHintInterval.set(1);
        other.commands.prepareForShow(true);
        QVERIFY(other.ring.launchHint());
        other.type(u"a"_s);
        QVERIFY(!other.ring.launchHint());

        // The next showing without a hint of its own ends it at once.
        for (const bool isUserSummon : {true, false}) {
            fixture.settings.launchHintInterval.set(1);
            fixture.commands.prepareForShow(true);
            QVERIFY(fixture.ring.launchHint());
            fixture.settings.launchHintInterval.set(isUserSummon ? 50 : 1);
            fixture.commands.prepareForShow(isUserSummon);
            QVERIFY(!fixture.ring.launchHint());
        }
    }

    void disappearingEmptiesTheCommandsButForThePin()
    {
        Interacting fixture;
        fixture.ring.disappear();
        QVERIFY(fixture.commands.pinForSearch);
        QVERIFY(!fixture.commands.close);
        QVERIFY(!fixture.commands.activate);
        QVERIFY(!fixture.commands.prepareForShow);
        QSignalSpy refreshed(&fixture.ring, &RingInteraction::ringChanged);
        fixture.workspace.launch(fixture.path(u"A"_s));
        QCOMPARE(refreshed.count(), 0);
    }
};

QTEST_GUILESS_MAIN(RingInteractionTest)
#include "RingInteractionTest.moc"
