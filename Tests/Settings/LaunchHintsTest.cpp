// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/LaunchHints.h>

#include <QMap>
#include <QTest>

#include <Support/MemoryUserDefaults.h>
#include <limits>

using namespace Tavik;
using namespace Qt::StringLiterals;

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

class LaunchHintsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
        QTest::addColumn<QVariant>("count");
        QTest::addColumn<QVariant>("index");
        QTest::addColumn<int>("interval");
        using Range = std::numeric_limits<qlonglong>;
        QTest::newRow("highest") << QVariant(Range::max()) << QVariant(Range::max()) << 5;
        QTest::newRow("lowest") << QVariant(Range::min()) << QVariant(Range::min()) << 5;
        QTest::newRow("other types") << QVariant(u"many"_s) << QVariant(2.5) << 5;
        QTest::newRow("no interval") << QVariant() << QVariant() << 0;
        QTest::newRow("negative interval") << QVariant() << QVariant() << -5;
    }

    void strangeCountersNeitherCrashNorSilence()
    {
        QFETCH(const QVariant, count);
        QFETCH(const QVariant, index);
        QFETCH(const int, interval);
        Test::MemoryUserDefaults defaults;
        defaults.values = {{countKey, count}, {indexKey, index}, {introductionKey, true}};
        const QMap<int, QString> hints = hintsDuring(12, defaults, {.interval = interval});
        QVERIFY(hints.size() >= 2);
        QVERIFY(!hints.values().contains(QString()));
    }
};

QTEST_APPLESS_MAIN(LaunchHintsTest)

#include "LaunchHintsTest.moc"
