// SPDX-License-Identifier: MIT
#include <TavikLauncher/Ring/PanelPlacement.h>

#include <QTest>

using namespace Tavik;
using namespace Tavik::PanelPlacement;

namespace {

constexpr QSizeF panel(352, 352);

/// A main screen with a panel of 40 points at its top, and a screen to its right that lies higher.
QList<Screen> twoScreens()
{
    return {{QRectF(0, 0, 1920, 1080), QRectF(0, 0, 1920, 1040)},
            {QRectF(1920, 200, 1280, 1024), QRectF(1920, 200, 1280, 1024)}};
}

} // namespace

class PanelPlacementTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void centersAtThePointInsideTheVisibleFrame_data()
    {
        QTest::addColumn<QPointF>("pointer");
        QTest::addColumn<QPointF>("origin");
        QTest::newRow("in the middle") << QPointF(960, 540) << QPointF(784, 364);
        QTest::newRow("lower left corner") << QPointF(0, 1) << QPointF(0, 0);
        QTest::newRow("upper left, below the bar") << QPointF(0, 1080) << QPointF(0, 1040 - 352);
        QTest::newRow("right edge stays on its screen")
            << QPointF(1919, 540) << QPointF(1920 - 352, 364);
        QTest::newRow("first column of the next screen")
            << QPointF(1920, 700) << QPointF(1920, 524);
        QTest::newRow("far corner") << QPointF(3199, 1224) << QPointF(3200 - 352, 1224 - 352);
        QTest::newRow("nowhere, nearest screen") << QPointF(2500, -500) << QPointF(2500 - 176, 200);
    }
    void centersAtThePointInsideTheVisibleFrame()
    {
        QFETCH(QPointF, pointer);
        QTEST(originCenteredAt(pointer, panel, twoScreens()), "origin");
    }

    void panelLargerThanTheScreenLinesUpWithTheFarEdge()
    {
        const QList<Screen> small{{QRectF(0, 0, 300, 200), QRectF(0, 0, 300, 200)}};
        QCOMPARE(originCenteredAt({150, 100}, panel, small), QPointF(300 - 352, 200 - 352));
    }

    void withoutScreensNothingIsClamped()
    {
        QCOMPARE(originCenteredAt({-50, 10}, panel, {}), QPointF(-226, -166));
    }

    void equallyNearScreensGiveTheFirst()
    {
        const QList<Screen> apart{{QRectF(0, 0, 100, 100), {}}, {QRectF(200, 0, 100, 100), {}}};
        QCOMPARE(screenFor({150, 50}, apart), &apart.at(0));
    }

    void withoutAPointStandsAboveTheMiddle()
    {
        QCOMPARE(originOnScreen(QRectF(0, 0, 1920, 1040), panel, {}), QPointF(784, 592));
        QCOMPARE(originOnScreen(QRectF(0, 0, 1920, 1040), panel, {QRectF()}), QPointF(784, 592));
    }

    void keepsClearOfAWindow_data()
    {
        QTest::addColumn<QRectF>("window");
        QTest::addColumn<QPointF>("origin");
        const double gap = 32;
        QTest::newRow("right of it") << QRectF(300, 200, 960, 700) << QPointF(1260 + gap, 374);
        QTest::newRow("no room right: left of it")
            << QRectF(900, 200, 960, 700) << QPointF(900 - gap - 352, 374);
        QTest::newRow("as wide as the screen: above it")
            << QRectF(0, 0, 1920, 500) << QPointF(784, 500 + gap);
        QTest::newRow("as wide as the screen, high up: below it")
            << QRectF(0, 540, 1920, 500) << QPointF(784, 540 - gap - 352);
    }
    void keepsClearOfAWindow()
    {
        QFETCH(QRectF, window);
        QTEST(originOnScreen(QRectF(0, 0, 1920, 1040), panel, {window}), "origin");
    }

    void withNoFreePlaceTakesTheOneWithTheMostFreeArea()
    {
        // Everything is covered but a strip of 100 points at the left edge.
        const QRectF screen(0, 0, 1000, 700);
        const QRectF window(132, 32, 836, 636);
        QCOMPARE(avoidingWindows({500, 100}, panel, screen, {window}), QPointF(0, 174));
    }

    void secondWindowIsAvoidedToo()
    {
        const QRectF screen(0, 0, 1920, 1040);
        const QRectF settings(500, 200, 600, 600);
        const QRectF right(1150, 100, 700, 800);
        QCOMPARE(avoidingWindows({784, 592}, panel, screen, {settings, right}),
                 QPointF(500 - 32 - 352, 324));
    }
};

QTEST_APPLESS_MAIN(PanelPlacementTest)
#include "PanelPlacementTest.moc"
