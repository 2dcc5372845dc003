// SPDX-License-Identifier: MIT
#include "RingFixture.h"
#include <TavikLauncher/Ring/RingGeometry.h>
#include <TavikLauncher/Ring/RingInteraction.h>

#include <QSignalSpy>
#include <QTest>

using namespace Tavik;
using namespace Qt::StringLiterals;
using namespace Tavik::Test;

namespace {

/// Five applications run; the ring shows A to E.
struct Interacting : RingFixture
{
    Interacting()
    {
        for (const QString& name : {u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"E"_s}) {
            workspace.launch(path(name));
        }
        settings.showsLaunchHints.set(false);
        commands.pinForSearch = [this] {
            ++pins;
        };
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
    void hover(QPointF point) { ring.hoverAt(point, geometry()); }

    int pins = 0;
    int closes = 0;
    RingInteraction ring{{catalog,
                          launcher,
                          settings,
                          recents,
                          workspace,
                          fileManager,
                          commands,
                          presentation,
                          mainQueue},
                         ownIdentifier,
                         [this] {
                             ++closes;
                         }};
};

} // namespace

class RingInteractionTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void selectionTurnsAroundTheRing()
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
    }

    void returnLaunchesTheSelectionAndCloses()
    {
        Interacting fixture;
        fixture.commands.moveSelectionRight();
        fixture.commands.activate();
        QCOMPARE(fixture.workspace.opened, QStringList{fixture.path(u"B"_s)});
        QCOMPARE(fixture.closes, 1);
        QCOMPARE(fixture.recents.recentPaths(), QStringList{fixture.path(u"B"_s)});
    }

    void returnOnAnEmptyRingDoesNothing()
    {
        Interacting fixture;
        fixture.type(u"zzz"_s);
        QVERIFY(fixture.ring.ringApps().isEmpty());
        QCOMPARE(fixture.ring.selectedIndex(), 0);
        fixture.commands.activate();
        fixture.commands.moveSelectionRight();
        QCOMPARE(fixture.closes, 0);
    }

    void digitsLaunchTheirSlot()
    {
        Interacting fixture;
        fixture.commands.quickLaunchAtIndex(6);
        fixture.commands.quickLaunchAtIndex(0);
        QCOMPARE(fixture.closes, 0);
        fixture.commands.moveSelectionRight();
        fixture.commands.quickLaunchAtIndex(1);
        QCOMPARE(fixture.workspace.opened, QStringList{fixture.path(u"A"_s)});
    }

    void typingFiltersAtOnceAndDeletingRestores()
    {
        Interacting fixture;
        fixture.commands.moveSelectionRight();
        fixture.type(u"c"_s);
        QCOMPARE(names(fixture.ring.ringApps()), u"C"_s);
        QCOMPARE(fixture.ring.debouncedQuery(), u"c"_s);
        QCOMPARE(fixture.ring.selectedIndex(), 0);
        QVERIFY(fixture.ring.isPinnedForSearch());
        QCOMPARE(fixture.pins, 1);

        fixture.commands.deleteBackward();
        QCOMPARE(fixture.ring.query(), QString());
        QCOMPARE(names(fixture.ring.ringApps()), u"A B C D E"_s);
        QVERIFY(fixture.ring.isPinnedForSearch());
        QCOMPARE(fixture.pins, 2);
        fixture.commands.deleteBackward();
        QCOMPARE(fixture.pins, 2);
    }

    void deletingTakesAWholeCharacter()
    {
        Interacting fixture;
        fixture.type(u"a"_s);
        fixture.type(u"e\u0301"_s);
        fixture.type(u"👨‍👩‍👧"_s);
        fixture.commands.deleteBackward();
        QCOMPARE(fixture.ring.query(), u"ae\u0301"_s);
        fixture.commands.deleteBackward();
        QCOMPARE(fixture.ring.query(), u"a"_s);
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
        fixture.hover(right + QPointF(6, 0));
        QCOMPARE(fixture.ring.selectedIndex(), 0);
        fixture.hover(right + QPointF(6.01, 0));
        QCOMPARE(fixture.ring.selectedIndex(), 1);
        fixture.hover(QPointF(160, 160));
        QCOMPARE(fixture.ring.selectedIndex(), 1);
        fixture.hover(fixture.geometry().slotCenter(3));
        QCOMPARE(fixture.ring.selectedIndex(), 3);

        fixture.ring.prepareForShow(true);
        fixture.hover(right);
        QCOMPARE(fixture.ring.selectedIndex(), 0);
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

        QSignalSpy refreshed(&fixture.ring, &RingInteraction::ringChanged);
        fixture.workspace.center.post(Workspace::didActivateApplication, fixture.path(u"A"_s));
        fixture.settings.ringOpacity.set(0.5);
        QCOMPARE(refreshed.count(), 0);
    }

    void prepareForShowForgetsTheLastSummon()
    {
        Interacting fixture;
        fixture.type(u"b"_s);
        fixture.commands.prepareForShow(true);
        QCOMPARE(fixture.ring.query(), QString());
        QCOMPARE(names(fixture.ring.ringApps()), u"A B C D E"_s);
        QVERIFY(!fixture.ring.isPinnedForSearch());
        QVERIFY(!fixture.ring.hasActiveSelection());
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

        fixture.settings.launchHintInterval.set(5);
        for (int summon = 2; summon <= 5; ++summon) {
            fixture.commands.prepareForShow(true);
        }
        QVERIFY(fixture.ring.launchHint());
        fixture.commands.prepareForShow(false);
        QVERIFY(!fixture.ring.launchHint());
        QCOMPARE(fixture.defaults.values.value(u"LauncherSettings.ringLaunchCount"_s),
                 QVariant(5LL));
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
