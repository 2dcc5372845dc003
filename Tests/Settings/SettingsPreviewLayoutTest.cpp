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
};

QTEST_APPLESS_MAIN(SettingsPreviewLayoutTest)

#include "SettingsPreviewLayoutTest.moc"
