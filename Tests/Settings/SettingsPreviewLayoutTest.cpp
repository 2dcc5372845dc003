// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/SettingsPreviewLayout.h>

#include <QTest>

using namespace Tavik;
using namespace SettingsPreviewLayout;

Q_DECLARE_METATYPE(Result)

class SettingsPreviewLayoutTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void computePlacesWindowAndRing_data()
    {
        QTest::addColumn<QRectF>("visible");
        QTest::addColumn<Result>("expected");
        const auto row = [](const char* name, const QRectF& visible, const Result& expected) {
            QTest::newRow(name) << visible << expected;
        };
        using enum Tier;
        row("elsewhere", {-2560, 100, 2560, 1400}, {big, {-1680, 500, 800, 600}, {-565, 800}, 550});
        row("wide enough", {0, 0, 1980, 1000}, {big, {590, 200, 800, 600}, {1705, 500}, 550});
        row("less", {0, 0, 1979, 1000}, {tight, {294.5, 200, 800, 600}, {1409.5, 500}, 550});
        row("filled", {0, 0, 1390, 1000}, {tight, {0, 200, 800, 600}, {1115, 500}, 550});
        row("narrower window", {10, 0, 1200, 1000}, {tight, {10, 200, 610, 600}, {935, 500}, 550});
        row("narrowest window", {0, 0, 1150, 1000}, {tight, {0, 200, 560, 600}, {875, 500}, 550});
        row("smaller ring", {0, 0, 1000, 1000}, {tooTight, {0, 200, 560, 600}, {800, 500}, 400});
        row("no room", {0, 0, 500, 1000}, {tooTight, {0, 200, 560, 600}, {600, 500}, 0});
        row("low screen", {0, 40, 2560, 500}, {big, {880, -10, 800, 600}, {1995, 290}, 550});
    }

    void computePlacesWindowAndRing()
    {
        QFETCH(const QRectF, visible);
        QFETCH(const Result, expected);
        const Result result
            = compute({.visibleFrame = visible, .dialogSize = {800, 600}, .dialogMinWidth = 560});
        QCOMPARE(result.tier, expected.tier);
        QCOMPARE(result.dialogFrame, expected.dialogFrame);
        QCOMPARE(result.ringCenter, expected.ringCenter);
        QCOMPARE(result.ringDiameterCap, expected.ringDiameterCap);
    }

    void followingKeepsTheRingBesideAMovedWindow_data()
    {
        QTest::addColumn<QRectF>("window");
        QTest::addColumn<double>("wanted");
        QTest::addColumn<QPointF>("center");
        QTest::addColumn<double>("cap");
        const auto row =
            [](const char* name, const QRectF& window, double wanted, QPointF center, double cap) {
                QTest::newRow(name) << window << wanted << center << cap;
            };
        row("as placed", {55, 200, 800, 600}, 320, {1170, 500}, 550);
        row("as placed, rounded", {54, 201, 801, 600}, 320, {1170, 500}, 550);
        row("a little aside", {95, 230, 800, 600}, 320, {1210, 530}, 550);
        row("high", {95, 500, 800, 600}, 320, {1210, 725}, 550);
        row("narrower", {105, 200, 700, 600}, 320, {1120, 500}, 550);
        row("less room than the largest ring needs", {260, 200, 800, 600}, 320, {1300, 500}, 400);
        row("less than this ring needs, and less at the left",
            {320, 200, 800, 600},
            400,
            {1330, 500},
            340);
        row("more at the left", {500, 200, 800, 600}, 320, {230, 500}, 460);
        row("half off the screen", {1100, 200, 800, 600}, 320, {785, 500}, 550);
        row("as wide as the screen", {0, 0, 1500, 600}, 320, {750, 820}, 360);
        row("as wide as the screen, high up", {0, 500, 1500, 500}, 320, {750, 230}, 460);
        row("as large as the screen", {0, 0, 1500, 1000}, 320, {1540, 500}, 0);
    }

    void followingKeepsTheRingBesideAMovedWindow()
    {
        QFETCH(const QRectF, window);
        QFETCH(const double, wanted);
        const Result result = following(
            {.visibleFrame = {0, 0, 1500, 1000}, .dialogSize = {800, 600}, .dialogMinWidth = 560},
            window,
            wanted);
        QTEST(result.ringCenter, "center");
        QTEST(result.ringDiameterCap, "cap");
    }

    /// However the window moves, the ring neither covers it nor jumps while it stays at its side.
    void followingNeverCoversTheWindow()
    {
        const Request request{
            .visibleFrame = {0, 0, 1920, 1080}, .dialogSize = {960, 700}, .dialogMinWidth = 860};
        for (double x = -500; x < 1800; x += 7) {
            for (double y = -300; y < 1000; y += 31) {
                const QRectF window(x, y, 960, 700);
                const Result result = following(request, window, 320);
                const double half = result.ringDiameterCap / 2;
                const QRectF ring(result.ringCenter - QPointF(half, half),
                                  QSizeF(2 * half, 2 * half));
                QVERIFY(!ring.intersects(window) || half == 0);
                const Result next = following(request, window.translated(1, 0), 320);
                const double step = std::abs(next.ringCenter.x() - result.ringCenter.x());
                const bool isSameSide = (next.ringCenter.x() > window.center().x())
                    == (result.ringCenter.x() > window.center().x());
                QVERIFY2(step <= 3 || !isSameSide, qPrintable(QString::number(x)));
            }
        }
    }
};

QTEST_APPLESS_MAIN(SettingsPreviewLayoutTest)

#include "SettingsPreviewLayoutTest.moc"
