// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/ColorText.h>
#include <TavikLauncher/Settings/LaunchHints.h>
#include <TavikLauncher/Settings/SettingsPreviewLayout.h>
#include <TavikLauncher/Settings/ThemePreset.h>

#include <QMap>
#include <QTest>

#include <Support/MemoryUserDefaults.h>
#include <Support/Table.h>
#include <cmath>
#include <limits>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;
using namespace SettingsPreviewLayout;

Q_DECLARE_METATYPE(Result)

namespace {

const QString countKey = u"LauncherSettings.ringLaunchCount"_s;
const QString introductionKey = u"LauncherSettings.hasShownLaunchHintIntro"_s;
const QString indexKey = u"LauncherSettings.launchHintIndex"_s;

/// The hints of the next `summons` summons, by number of summon.
QMap<int, QString>
hintsDuring(int summons, UserDefaults& defaults, const LaunchHints::Preferences& preferences)
{
    QMap<int, QString> hints;
    for (int summon = 1; summon <= summons; ++summon) {
        if (const auto hint = LaunchHints::nextHint(defaults, preferences)) {
            hints.insert(summon, *hint);
        }
    }
    return hints;
}

} // namespace

class SettingsRulesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void colorTextIsReadLeniently()
    {
        const QColor fallback(1, 2, 3, 4);
        for (const auto& text : {u"#0A84FF"_s, u"0a84ff"_s, u"##0A84fF##"_s}) {
            QCOMPARE(ColorText::color(text, fallback), QColor(0x0A, 0x84, 0xFF));
        }
        const QString bad
            = u"#0A84F|#0A84FFF|#GG0000|+0A84F|-0A84F|0x0A84| A84FF|#0A#4FF|٠٠٠٠٠٠||#"_s;
        for (const auto& text : bad.split(u'|')) {
            QCOMPARE(ColorText::color(text, fallback), fallback);
        }
    }

    void themesHaveTheirNumbers()
    {
        QStringList themes;
        for (const ThemePreset& preset : ThemePreset::presets()) {
            themes << u"%1 %2 %3 %4 %5 %6"_s.arg(preset.id, preset.ringColorHex)
                          .arg(preset.ringOpacity)
                          .arg(preset.highlightColorHex)
                          .arg(preset.highlightOpacity)
                          .arg(preset.pillOpacity);
        }
        QCOMPARE(themes.join(u'\n'),
                 u"tavik-classic #000000 0.82 #0A84FF 0.72 0.94\n"
                 "midnight-cyan #050A12 0.88 #00C7D9 0.76 0.94\n"
                 "graphite-ember #151515 0.84 #FF6A3D 0.78 0.95\n"
                 "forest-signal #07150F 0.84 #34C759 0.72 0.93\n"
                 "plum-neon #16091E 0.86 #BF5AF2 0.74 0.94\n"
                 "glass-graphite #202124 0.56 #64D2FF 0.62 0.9"_s);
    }

    void colorTextComesFromEveryColor()
    {
        using ColorText::hexString;
        QCOMPARE(hexString(QColor(0, 1, 15, 9)), u"#00010F"_s);
        QCOMPARE(hexString(QColor::fromRgbF(0.499F, 0.998F, 0.9999F)), u"#7FFEFF"_s);
        QCOMPARE(hexString(QColor::fromHsv(120, 255, 255)), u"#00FF00"_s);
        QCOMPARE(hexString(QColor::fromRgbF(1.5F, -0.5F, 0.0F)), u"#FF0000"_s); // Beyond sRGB.
    }

    void introductionComesFirstAndTipsAtTheInterval()
    {
        Test::MemoryUserDefaults defaults;
        const QMap<int, QString> hints = hintsDuring(60, defaults, {});
        QCOMPARE(hints.keys(), (QList<int>{1, 25, 50}));
        QCOMPARE(
            hints[1],
            u"Helpful hints will appear here every 25 launches. Adjust or turn them off in Settings."_s);
        QCOMPARE(hints[25],
                 u"Some features are off by default — explore Settings to enable more."_s);
        QCOMPARE(hints[50], u"Type any letters to filter the ring by app name."_s);
        QCOMPARE(defaults.values,
                 (QVariantMap{{countKey, 60LL}, {introductionKey, true}, {indexKey, 2LL}}));
    }

    void rotationStartsAgainAfterTheLastTip()
    {
        Test::MemoryUserDefaults defaults;
        defaults.values.insert(introductionKey, true);
        const QMap<int, QString> hints = hintsDuring(55, defaults, {.interval = 5});
        QCOMPARE(hints.keys(), (QList<int>{5, 10, 15, 20, 25, 30, 35, 40, 45, 50, 55}));
        QCOMPARE(hints[50], u"A dot inside the menu-bar wheel means an update is ready."_s);
        QCOMPARE(hints[55], hints[5]);
        QCOMPARE(QSet<QString>(hints.begin(), hints.end()).size(), 10);
    }

    void silenceStillCounts()
    {
        for (const LaunchHints::Preferences& silent :
             {LaunchHints::Preferences{.showsLaunchHints = false},
              LaunchHints::Preferences{.keepsCenterHintVisible = true}}) {
            Test::MemoryUserDefaults defaults;
            QVERIFY(hintsDuring(30, defaults, silent).isEmpty());
            QCOMPARE(defaults.values, (QVariantMap{{countKey, 30LL}}));
            // Afterwards the introduction comes at once, and the next tip by the running count.
            QCOMPARE(hintsDuring(25, defaults, {}).keys(), (QList<int>{1, 20}));
        }
    }

    void strangeCountersNeitherCrashNorSilence_data()
    {
        const Table<QVariant, QVariant, int> row;
        using Range = std::numeric_limits<qlonglong>;
        row("highest", Range::max(), Range::max(), 5);
        row("lowest", Range::min(), Range::min(), 5);
        row("other types", u"many"_s, 2.5, 5);
        row("no interval", {}, {}, 0);
        row("negative interval", {}, {}, -5);
    }

    void strangeCountersNeitherCrashNorSilence()
    {
        const auto [count, index, interval] = fetch<QVariant, QVariant, int>();
        Test::MemoryUserDefaults defaults;
        defaults.values = {{countKey, count}, {indexKey, index}, {introductionKey, true}};
        const QMap<int, QString> hints = hintsDuring(12, defaults, {.interval = interval});
        QVERIFY(hints.size() >= 2);
        QVERIFY(!hints.values().contains(QString()));
    }

    void computePlacesWindowAndRing_data()
    {
        const Table<QRectF, Result> row;
        using enum Tier;
        row("elsewhere", {-2560, 100, 2560, 1400}, {big, {-1680, 500, 800, 600}, {-565, 800}, 550});
        row("wide enough", {0, 0, 1980, 1000}, {big, {590, 200, 800, 600}, {1705, 500}, 550});
        row("less", {0, 0, 1979, 1000}, {tight, {294.5, 200, 800, 600}, {1409.5, 500}, 550});
        row("filled", {0, 0, 1390, 1000}, {tight, {0, 200, 800, 600}, {1115, 500}, 550});
        row("narrower window", {10, 0, 1200, 1000}, {tight, {10, 200, 610, 600}, {935, 500}, 550});
        row("smaller ring", {0, 0, 1000, 1000}, {tooTight, {0, 200, 560, 600}, {800, 500}, 400});
        row("no room", {0, 0, 500, 1000}, {tooTight, {0, 200, 560, 600}, {600, 500}, 0});
        row("low screen", {0, 40, 2560, 500}, {big, {880, -10, 800, 600}, {1995, 290}, 550});
    }

    void computePlacesWindowAndRing()
    {
        const auto [visible, expected] = fetch<QRectF, Result>();
        const Result result
            = compute({.visibleFrame = visible, .dialogSize = {800, 600}, .dialogMinWidth = 560});
        QCOMPARE(result.tier, expected.tier);
        QCOMPARE(result.dialogFrame, expected.dialogFrame);
        QCOMPARE(result.ringCenter, expected.ringCenter);
        QCOMPARE(result.ringDiameterCap, expected.ringDiameterCap);
    }

    void followingKeepsTheRingBesideAMovedWindow_data()
    {
        const Table<QRectF, double, QPointF, double> row;
        row("as placed", {55, 200, 800, 600}, 320, {1170, 500}, 550);
        row("as placed, rounded", {54, 201, 801, 600}, 320, {1170, 500}, 550);
        row("a little aside", {95, 230, 800, 600}, 320, {1210, 530}, 527.27);
        row("less room than the largest needs", {260, 200, 800, 600}, 320, {1300, 500}, 363.64);
        row("less than this ring needs", {320, 200, 800, 600}, 400, {1330, 500}, 309.09);
        row("more at the left", {500, 200, 800, 600}, 320, {230, 500}, 418.18);
        row("half off the screen", {1100, 200, 800, 600}, 320, {785, 500}, 550);
        row("as wide as the screen, high up", {0, 500, 1500, 500}, 320, {750, 230}, 418.18);
        row("as large as the screen", {0, 0, 1500, 1000}, 320, {1540, 500}, 0);
    }

    void followingKeepsTheRingBesideAMovedWindow()
    {
        const auto [window, wanted, center, cap] = fetch<QRectF, double, QPointF, double>();
        const Result result = following(
            {.visibleFrame = {0, 0, 1500, 1000}, .dialogSize = {800, 600}, .dialogMinWidth = 560},
            window,
            wanted);
        QCOMPARE(result.ringCenter, center);
        QCOMPARE(std::round(result.ringDiameterCap * 100) / 100, cap);
    }

    void aNarrowScreenShowsTheRingAboveTheWindowOrNotAtAll()
    {
        Request request{
            .visibleFrame = {0, 0, 1080, 1920}, .dialogSize = {960, 720}, .dialogMinWidth = 860};
        const Result high = following(request, {0, 600, 860, 720}, 320);
        QCOMPARE(high.ringCenter, QPointF(430, 1635));
        QVERIFY(high.ringDiameterCap > 320);
        request.visibleFrame = {0, 0, 1024, 720};
        QCOMPARE(following(request, {0, 0, 860, 720}, 320).ringDiameterCap, 0);
        request.visibleFrame = {0, 0, 1093, 614}; // 1366 pixels at a scale of 1.25.
        QCOMPARE(following(request, {0, 0, 860, 614}, 320).ringDiameterCap, 193);
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

QTEST_APPLESS_MAIN(SettingsRulesTest)
#include "SettingsRulesTest.moc"
