// SPDX-License-Identifier: MIT
#include "UpdaterBench.h"

#include <QRegularExpression>

using namespace Tavik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr double day = 24 * 3600;

} // namespace

/// When the updater looks, what it says, and what it remembers.
class AppcastUpdaterTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(u".*"_s));
        m_bench = std::make_unique<Test::UpdaterBench>();
        m_bench->offer({});
    }

    void scheduledCheckFindsQuietly()
    {
        startWithSchedule();
        QVERIFY(m_bench->play([this] { return calls().size() == 1; }, 0.05));
        QCOMPARE(calls(), QStringList{u"found 2.1"_s});
        m_bench->updater->checkForUpdates();
        QCOMPARE(calls().last(), u"in focus"_s);
        m_bench->mainQueue.advance(10 * day); // The question is still there.
        QCOMPARE(m_bench->feedRequests(), 1);
        m_bench->driver.choose(UpdateChoice::remindLater);
        QCOMPARE(calls().last(), u"over"_s);
        QVERIFY(m_bench->play([this] { return m_bench->feedRequests() == 2; }, 1));
    }

    void scheduledCheckWithoutNewsIsSilent()
    {
        m_bench->offer({.version = "2.0"});
        startWithSchedule();
        QVERIFY(m_bench->play([this] { return calls().size() == 1; }, 0.05));
        QCOMPARE(calls(), QStringList{u"over"_s});
    }

    void userJoinsACheckThatIsUnderWay()
    {
        m_bench->server.answer("/feed", {{.stalls = true}});
        startWithSchedule();
        QVERIFY(m_bench->play([this] { return m_bench->feedRequests() == 1; }, 0.05));
        m_bench->updater->checkForUpdates();
        m_bench->updater->checkForUpdates();
        QCOMPARE(calls(), (QStringList{u"checking"_s, u"in focus"_s}));
        m_bench->driver.cancelCheck();
        m_bench->driver.cancelCheck();
        QCOMPARE(calls(), (QStringList{u"checking"_s, u"in focus"_s, u"over"_s}));
    }

    void checksKeepTheirRhythmAcrossRestartsAndSleep()
    {
        m_bench->offer({.version = "2.0"});
        startWithSchedule();
        QVERIFY(checksWithin(6));
        m_bench->mainQueue.advance(day / 2);
        startWithSchedule();
        m_bench->mainQueue.advance(day / 2 - 120);
        QCOMPARE(m_bench->feedRequests(), 1);
        QVERIFY(checksWithin(240));
        // After days of sleep, within the hour.
        m_bench->secondsAsleep += 3 * day;
        QVERIFY(checksWithin(3600));
        // A clock that has been a year ahead.
        m_bench->secondsAsleep -= 365 * day;
        QVERIFY(checksWithin(3600));
        m_bench->updater->setUpdateCheckInterval(7 * 24h);
        m_bench->mainQueue.advance(6.9 * day);
        QCOMPARE(m_bench->feedRequests(), 4);
        QVERIFY(checksWithin(0.2 * day));
    }

    void nothingIsAskedOffline()
    {
        m_bench->isOnline = false;
        m_bench->feedUrl = QUrl(u"https://127.0.0.1:1/feed"_s);
        startWithSchedule();
        m_bench->mainQueue.advance(day);
        QCOMPARE(m_bench->workQueue.waiting(), 0U); // Where a proxy would be looked for.
        m_bench->network->set(true);
        m_bench->mainQueue.advance(9);
        QCOMPARE(m_bench->workQueue.waiting(), 0U);
        m_bench->mainQueue.advance(2);
        QCOMPARE(m_bench->workQueue.waiting(), 1U);
    }

    void failedScheduledCheckIsOneLineInTheLogAndTriedAgain()
    {
        m_bench->server.answer("/feed", {{.status = "503 Busy"}});
        startWithSchedule();
        for (const double pause : {0, 15 * 60, 30 * 60, 60 * 60}) {
            QTest::ignoreMessage(QtWarningMsg,
                                 "the scheduled check for updates failed: The server answered with "
                                 "an error (503).");
            QVERIFY(!checksWithin(pause - 30));
            QVERIFY(checksWithin(60));
        }
        QCOMPARE(calls(), QStringList(4, u"over"_s));
        // The user is told, and changes nothing about the rhythm.
        QVERIFY(m_bench->checkToTheEnd());
        QCOMPARE(calls(), (QStringList{u"checking"_s, u"error"_s, u"over"_s}));
        QCOMPARE(m_bench->driver.reason, u"The server answered with an error (503)."_s);
        QCOMPARE(m_bench->defaults.values.value(u"Updater.failedChecks"_s), QVariant(4LL));
        m_bench->offer({.version = "2.0"});
        QVERIFY(m_bench->checkToTheEnd());
        QVERIFY(!m_bench->defaults.values.contains(u"Updater.failedChecks"_s));
    }

    void nothingWakesUpWithoutAutomaticChecks()
    {
        startWithSchedule();
        m_bench->updater->setAutomaticallyChecksForUpdates(false);
        QCOMPARE(m_bench->mainQueue.pendingTasks(), 0);
        m_bench->driver.choice = UpdateChoice::remindLater;
        QVERIFY(m_bench->checkToTheEnd());
        QCOMPARE(calls(), (QStringList{u"checking"_s, u"found 2.1 for the user"_s, u"over"_s}));
        QCOMPARE(m_bench->mainQueue.pendingTasks(), 0);
    }

    void userHearsThatThereIsNothingNewer()
    {
        m_bench->offer({.version = "2.0"});
        m_bench->start();
        QVERIFY(m_bench->checkToTheEnd());
        QCOMPARE(calls(), (QStringList{u"checking"_s, u"not found"_s, u"over"_s}));
        QVERIFY(m_bench->driver.reason.startsWith(u"You're up to date."_s));
    }

    void skippedVersionIsOfferedToTheUserOnly_data()
    {
        QTest::addColumn<QByteArray>("more");
        QTest::addColumn<bool>("isSkipped");
        QTest::newRow("usual") << QByteArray() << true;
        QTest::newRow("critical") << QByteArray("<s:criticalUpdate/>") << false;
    }

    void skippedVersionIsOfferedToTheUserOnly()
    {
        QFETCH(const QByteArray, more);
        QFETCH(const bool, isSkipped);
        m_bench->offer({.more = more});
        m_bench->start();
        m_bench->driver.choice = UpdateChoice::skip;
        for (int i = 0; i < 2; ++i) {
            QVERIFY(m_bench->checkToTheEnd());
            QVERIFY(calls().contains(u"found 2.1 for the user"_s));
        }
        startWithSchedule();
        m_bench->mainQueue.advance(day - 60);
        QVERIFY(checksWithin(120));
        QCOMPARE(calls().contains(u"found 2.1"_s), !isSkipped);
    }

    void linkedNotesFollow_data()
    {
        QTest::addColumn<Test::UpdateServer::Answer>("answer");
        QTest::addColumn<QString>("call");
        QTest::newRow("fetched") << Test::UpdateServer::file("<p>New</p>", "text/html")
                                 << u"notes"_s;
        QTest::newRow("missing") << Test::UpdateServer::Answer{.status = "404 No"} << u"no notes"_s;
        QTest::newRow("picture") << Test::UpdateServer::file("GIF", "image/gif") << u"no notes"_s;
        QTest::newRow("huge") << Test::UpdateServer::file(QByteArray(1'000'001, 'x'), "text/html")
                              << u"no notes"_s;
    }

    void linkedNotesFollow()
    {
        QFETCH(const Test::UpdateServer::Answer, answer);
        QFETCH(const QString, call);
        m_bench->offer({.more = "<s:releaseNotesLink>/notes</s:releaseNotesLink>"});
        m_bench->server.answer("/notes", {answer});
        m_bench->start().checkForUpdates();
        QVERIFY(m_bench->playUntil(call));
        QCOMPARE(calls(), (QStringList{u"checking"_s, u"found 2.1 for the user"_s, call}));
        QVERIFY(call != u"notes"_s || m_bench->driver.notes.text == u"<p>New</p>"_s);
        m_bench->driver.choose(UpdateChoice::remindLater);
        QCOMPARE(m_bench->mainQueue.pendingTasks(), 0);
    }

    void stoppedUpdaterIsSilent()
    {
        m_bench->start().checkForUpdates();
        m_bench->updater->stopUpdater();
        m_bench->updater->checkForUpdates();
        m_bench->driver.cancelCheck();
        QTest::qWait(20);
        m_bench->mainQueue.advance(2 * day);
        QCOMPARE(calls(), QStringList{u"checking"_s});
        QCOMPARE(m_bench->mainQueue.pendingTasks(), 0);
    }

    void buildsSayWhatTheyLack_data()
    {
        QTest::addColumn<QString>("feed");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("lack");
        const QString feed = u"https://example.org/feed.xml"_s;
        const QString key = QString::fromLatin1(QByteArray(32, 'k').toBase64());
        QTest::newRow("nothing") << feed << key << QString();
        QTest::newRow("feed") << QString() << key << u"without an update feed."_s;
        QTest::newRow("key") << feed << QString() << u"without a key"_s;
        QTest::newRow("safe feed") << u"http://example.org/feed.xml"_s << key << u"not safe"_s;
        QTest::newRow("right key")
            << feed << u"c2hvcnQ="_s << u"with a key for updates that is none"_s;
    }

    void buildsSayWhatTheyLack()
    {
        QFETCH(const QString, lack);
        QFETCH(const QString, feed);
        QFETCH(const QString, key);
        const QString why = AppcastUpdater::whyNotUpdating({.feedUrl = feed, .publicKey = key})
                                .value_or(QString());
        QCOMPARE(why.isEmpty(), lack.isEmpty());
        QVERIFY2(why.contains(lack), qPrintable(why));
    }

private:
    [[nodiscard]] const QStringList& calls() const { return m_bench->driver.calls; }
    void startWithSchedule()
    {
        m_bench->start().setAutomaticallyChecksForUpdates(true);
        m_bench->updater->setUpdateCheckInterval(24h);
    }
    /// Lets the time pass until a check begins, and then the answer come.
    [[nodiscard]] bool checksWithin(double seconds)
    {
        constexpr double step = 5; // Less than what a server is waited for.
        constexpr int tasksOfCheck = 2; // The schedule alone has one.
        const qsizetype before = calls().size();
        for (double passed = 0; passed < seconds; passed += step) {
            m_bench->mainQueue.advance(step);
            if (m_bench->mainQueue.pendingTasks() == tasksOfCheck) {
                return m_bench->play([&] { return calls().size() > before; });
            }
        }
        return false;
    }

    std::unique_ptr<Test::UpdaterBench> m_bench;
};

QTEST_GUILESS_MAIN(AppcastUpdaterTest)
#include "AppcastUpdaterTest.moc"
