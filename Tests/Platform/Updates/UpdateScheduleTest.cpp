// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/UpdateRecord.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateSchedule.h>

#include <QTest>

#include <Support/MemoryUserDefaults.h>

using namespace Tavik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using std::chrono::seconds;

namespace {

const QDateTime noon(QDate(2026, 3, 1), QTime(12, 0), Qt::UTC);

} // namespace

class UpdateScheduleTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nextCheckFollowsTheWallClock_data()
    {
        QTest::addColumn<qint64>("sinceLast");
        QTest::addColumn<int>("failures");
        QTest::addColumn<double>("jitter");
        QTest::addColumn<qint64>("wait");
        const auto row
            = [](const char* name, seconds sinceLast, int failures, double jitter, seconds wait) {
                  QTest::newRow(name)
                      << qint64(sinceLast.count()) << failures << jitter << qint64(wait.count());
              };
        row("just now", 0s, 0, 0, 24h);
        row("after half a day", 12h, 0, 0, 12h);
        row("at its time", 24h, 0, 0, 0s);
        row("after a month asleep", 720h, 0, 0.9, 0s);
        row("a little later than others", 0s, 0, 0.5, 24h + 30min);
        row("one failure", 0s, 1, 0, 15min);
        row("two failures", 10min, 2, 0, 20min);
        row("failures spread too", 0s, 1, 0.5, 15min + 22s);
        row("never rarer than without failures", 0s, 1000, 0, 24h);
        row("clock corrected a little", -5min, 0, 0, 24h + 5min);
        row("clock set back by a year", -8760h, 0, 0, 0s);
    }

    void nextCheckFollowsTheWallClock()
    {
        QFETCH(const qint64, sinceLast);
        QFETCH(const int, failures);
        QFETCH(const double, jitter);
        const auto wait = UpdateSchedule::waitFor({.lastCheck = noon, .failures = failures},
                                                  {.interval = 24h, .jitter = jitter},
                                                  noon.addSecs(sinceLast));
        QTEST(qint64(wait.count()), "wait");
    }

    void firstCheckIsDue()
    {
        QCOMPARE(UpdateSchedule::waitFor({}, {.interval = 24h}, noon).count(), 0);
    }

    void recordSurvivesARestart()
    {
        Test::MemoryUserDefaults defaults;
        UpdateRecord record(defaults, [] { return 0.5; });
        record.setHistory({.lastCheck = noon, .failures = 3});
        record.setSkippedVersion(u"2.1"_s);
        record.setNewestSeenVersion(u"2.2"_s);
        QCOMPARE(record.rolloutGroup(), 3);

        UpdateRecord later(defaults, [] { return 0.0; });
        QCOMPARE(later.history().lastCheck, noon);
        QCOMPARE(later.history().failures, 3);
        QCOMPARE(later.skippedVersion(), u"2.1"_s);
        QCOMPARE(later.newestSeenVersion(), u"2.2"_s);
        QCOMPARE(later.rolloutGroup(), 3);
    }

    void whatMakesNoSenseIsNotStored_data()
    {
        QTest::addColumn<QVariant>("value");
        for (const QVariant& value : {QVariant(),
                                      QVariant(-5LL),
                                      QVariant(std::numeric_limits<qlonglong>::min()),
                                      QVariant(std::numeric_limits<qlonglong>::max()),
                                      QVariant(1.5),
                                      QVariant(true),
                                      QVariant(QByteArray("2.1")),
                                      QVariant(QVariantList{1}),
                                      QVariant(QString(200, u'1'))}) {
            QTest::addRow("%s %.20s", value.typeName(), qPrintable(value.toString())) << value;
        }
    }

    void whatMakesNoSenseIsNotStored()
    {
        QFETCH(const QVariant, value);
        Test::MemoryUserDefaults defaults;
        for (const char* name : {"lastCheckTime",
                                 "failedChecks",
                                 "skippedVersion",
                                 "newestSeenVersion",
                                 "rolloutGroup"}) {
            defaults.values.insert(u"Updater."_s + QString::fromLatin1(name), value);
        }
        UpdateRecord record(defaults, [] { return 0.999; });
        QVERIFY(!record.history().lastCheck.isValid());
        QVERIFY(record.history().failures >= 0 && record.history().failures <= 1000);
        QCOMPARE(record.skippedVersion(), QString());
        QCOMPARE(record.newestSeenVersion(), QString());
        QCOMPARE(record.rolloutGroup(), 6);
        QCOMPARE(defaults.values.value(u"Updater.rolloutGroup"_s), QVariant(6LL));
    }
};

QTEST_APPLESS_MAIN(UpdateScheduleTest)
#include "UpdateScheduleTest.moc"
