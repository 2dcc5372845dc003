// SPDX-License-Identifier: MIT
#include "UpdaterBench.h"
#include <TavikLauncherPlatform/Linux/Updates/AppImage.h>

#include <QRegularExpression>

#include <Support/Table.h>
#include <Support/Warnings.h>

using namespace Tavik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Answer = Test::UpdateServer::Answer;
using Item = Test::UpdaterBench::Item;
using Test::fetch;
using Test::Table;

namespace {

constexpr double day = 24 * 3600;
const QByteArray image = Test::UpdaterBench::image("new");

} // namespace

/// When the updater looks, what it says and remembers, and how the new version comes in place.
class UpdaterTest final : public QObject
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
        QVERIFY(m_bench->play([this] { return m_bench->feedRequests() == 2; }, 1));
    }

    void whatIsNewerOrCriticalTakesAReminderOver_data()
    {
        // What the feed says next day; what is reminded of then; what is logged.
        const Table<Item, QString, QString> row;
        row("nothing else", {}, {}, {});
        row("newer", {.version = "2.2"}, u"found 2.2"_s, {});
        row("critical now", {.more = "<s:criticalUpdate/>"}, u"found 2.1"_s, {});
        row("withdrawn", {.version = "2.0"}, {}, u"older than one seen before"_s);
    }
    void whatIsNewerOrCriticalTakesAReminderOver()
    {
        const auto [next, reminder, warning] = fetch<Item, QString, QString>();
        m_bench->driver.reminds = true;
        startWithSchedule();
        QVERIFY(m_bench->play([this] { return calls().size() == 1; }, 0.05));
        m_bench->offer(next);
        const auto seen = [this](const char* what) {
            return m_bench->defaults.values.value(u"Updater.newestSeen"_s + QLatin1String(what));
        };
        const QVariant timeBefore = seen("Time");
        if (!warning.isEmpty()) {
            Test::expectWarning(warning);
        }
        m_bench->mainQueue.advance(day - 60);
        while (m_bench->mainQueue.pendingTasks() == 1) {
            m_bench->mainQueue.advance(5);
        }
        QVERIFY(m_bench->play([this] { return m_bench->mainQueue.pendingTasks() == 1; }));
        QCOMPARE(m_bench->feedRequests(), 2);
        // What was refused is not remembered as seen.
        QCOMPARE(seen("Version").toByteArray(), warning.isEmpty() ? next.version : "2.1");
        QCOMPARE(seen("Time") == timeBefore, !warning.isEmpty());
        QCOMPARE(calls().mid(1), reminder.isEmpty() ? QStringList() : QStringList{reminder});
        m_bench->driver.reminds = false; // The user is looking at it.
        m_bench->mainQueue.advance(10 * day);
        QCOMPARE(m_bench->feedRequests(), 2);
    }

    void userJoinsACheckThatIsUnderWay()
    {
        m_bench->server.answer("/feed", {{.stalls = true}});
        startWithSchedule();
        QVERIFY(m_bench->play([this] { return m_bench->feedRequests() == 1; }, 0.05));
        m_bench->updater->checkForUpdates();
        m_bench->updater->checkForUpdates();
        m_bench->driver.cancelCheck();
        m_bench->driver.cancelCheck();
        QCOMPARE(calls(), (QStringList{u"checking"_s, u"in focus"_s, u"over"_s}));
    }

    void checksKeepTheirRhythmAcrossRestartsAndSleep()
    {
        m_bench->offer({.version = "2.0"});
        startWithSchedule();
        QVERIFY(checksWithin(6));
        QCOMPARE(calls(), QStringList{u"over"_s}); // Without news it is silent.
        m_bench->mainQueue.advance(day / 2);
        startWithSchedule();
        m_bench->mainQueue.advance(day / 2 - 120);
        QCOMPARE(m_bench->feedRequests(), 1);
        QVERIFY(checksWithin(240));
        m_bench->secondsAsleep += 3 * day;
        QVERIFY(checksWithin(3600));
        m_bench->secondsAsleep -= 365 * day; // The clock was a year ahead.
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
        QVERIFY(!m_bench->isFetching());
        m_bench->network->set(true);
        m_bench->mainQueue.advance(9);
        QVERIFY(!m_bench->isFetching());
        m_bench->mainQueue.advance(2);
        QVERIFY(m_bench->isFetching());
        m_bench->updater->stopUpdater();
        QVERIFY(!m_bench->isFetching());
    }

    void failedScheduledCheckIsOneLineInTheLogAndTriedAgain()
    {
        const char* line = "Tavik Launcher: the scheduled check for updates failed: The server "
                           "answered with an error (503).";
        m_bench->server.answer("/feed", {{.status = "503 Busy"}});
        startWithSchedule();
        for (const double pause : {0, 15 * 60, 30 * 60, 60 * 60}) {
            QTest::ignoreMessage(QtWarningMsg, line);
            QVERIFY(!checksWithin(pause - 30));
            QVERIFY(checksWithin(60));
        }
        QCOMPARE(calls(), QStringList(4, u"over"_s));
        // The user is told, and changes nothing about the rhythm.
        QVERIFY(m_bench->checkToTheEnd());
        QCOMPARE(calls(), (QStringList{u"checking"_s, u"error"_s, u"over"_s}));
        QCOMPARE(m_bench->defaults.values.value(u"Updater.failedChecks"_s), QVariant(4LL));
        m_bench->offer({.version = "2.0"});
        QVERIFY(m_bench->checkToTheEnd());
        QCOMPARE(calls(), (QStringList{u"checking"_s, u"not found"_s, u"over"_s}));
        QVERIFY(m_bench->driver.reason.startsWith(u"You're up to date."_s));
        QVERIFY(!m_bench->defaults.values.contains(u"Updater.failedChecks"_s));
    }

    void skippedVersionIsOfferedToTheUserOnly()
    {
        startWithSchedule();
        m_bench->updater->setAutomaticallyChecksForUpdates(false);
        m_bench->driver.choice = UpdateChoice::skip;
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(m_bench->mainQueue.pendingTasks(), 0); // Nothing wakes up by itself.
            QVERIFY(m_bench->checkToTheEnd());
            QVERIFY(calls().contains(u"found 2.1 for the user"_s));
        }
        startWithSchedule();
        m_bench->mainQueue.advance(day - 60);
        QVERIFY(checksWithin(120));
        QVERIFY(!calls().contains(u"found 2.1"_s));
    }

    void linkedNotesFollow()
    {
        const auto file = Test::UpdateServer::file;
        for (const Answer& answer : {file("<p>New</p>", "text/html"),
                                     file("GIF", "image/gif"),
                                     file(QByteArray(1'000'001, 'x'), "text/html")}) {
            const QString call = answer.body == "<p>New</p>" ? u"notes"_s : u"no notes"_s;
            m_bench->offer({.more = "<s:releaseNotesLink>/notes</s:releaseNotesLink>"});
            m_bench->server.answer("/notes", {answer});
            m_bench->start().checkForUpdates();
            QVERIFY(m_bench->playUntil(call));
            QCOMPARE(calls(), (QStringList{u"checking"_s, u"found 2.1 for the user"_s, call}));
            QVERIFY(call != u"notes"_s || m_bench->driver.notes.text == u"<p>New</p>"_s);
            m_bench->driver.choose(UpdateChoice::remindLater);
            QCOMPARE(m_bench->mainQueue.pendingTasks(), 0);
        }
    }

    void buildsSayWhatTheyLack()
    {
        const QString feed = u"https://example.org/feed.xml"_s;
        const QString key = QString::fromLatin1(QByteArray(32, 'k').toBase64());
        const auto lack = [](const QString& feedUrl, const QString& publicKey) {
            return AppcastUpdater::whyNotUpdating({.feedUrl = feedUrl, .publicKey = publicKey})
                .value_or(QString());
        };
        QCOMPARE(lack(feed, key), QString());
        QVERIFY(lack({}, key).contains(u"without an update feed."));
        QVERIFY(lack(feed, {}).contains(u"without a key"));
        QVERIFY(lack(u"http://example.org/feed.xml"_s, key).contains(u"not safe"));
        QVERIFY(lack(feed, u"c2hvcnQ="_s).contains(u"with a key for updates that is none"));
    }

    void whateverIsCutShortLeavesNoTrace_data()
    {
        const Table<bool> row; // Whether the user cancels, or the program ends.
        row("checking", false);
        row("found 2.1 for the user", false);
        row("downloading", true);
        row("verifying", false);
        row("ready", true);
        row("ready ", false);
        row("installing", false);
    }

    void whateverIsCutShortLeavesNoTrace()
    {
        const auto [isCancelled] = fetch<bool>();
        const QString last = QString::fromLatin1(QTest::currentDataTag()).trimmed();
        Test::FakeUpdateUserDriver& driver = m_bench->driver;
        driver.choice = UpdateChoice::install;
        driver.onCall = [&, cancels = isCancelled](const QString& call) {
            if (call != last) {
                return;
            }
            if (!cancels) {
                m_bench->updater->stopUpdater();
            } else if (call == u"ready") {
                driver.install(UpdateChoice::remindLater); // The first answer counts.
            } else {
                driver.cancelDownload();
            }
        };
        m_bench->start().checkForUpdates();
        QVERIFY(m_bench->playUntil(last));
        const qsizetype callsBefore = calls().size();
        driver.cancelCheck(); // Windows that are still there.
        QTest::qWait(10);
        m_bench->workQueue.runAll();
        m_bench->mainQueue.advance(2 * day);
        QCOMPARE(calls().size(), callsBefore);
        QCOMPARE(calls().endsWith(u"over"_s), isCancelled);
        QVERIFY(m_bench->isClean(Test::UpdaterBench::image("old")));
        QCOMPARE(m_bench->updater->programToRelaunch(), std::nullopt);
        QCOMPARE(m_bench->mainQueue.pendingTasks(), 0);
    }

    void fileIsVerifiedOnceMoreWhenTheAnswerComes()
    {
        m_bench->start().checkForUpdates();
        QVERIFY(m_bench->playUntil(u"found 2.1 for the user"_s));
        m_bench->driver.choose(UpdateChoice::install);
        QVERIFY(m_bench->playUntil(u"ready"_s));
        QFile part(AppImage::partFile(m_bench->imagePath)); // It may have lain there for days.
        QVERIFY(part.open(QIODevice::WriteOnly));
        part.write(Test::UpdaterBench::image("neu"));
        part.close();
        m_bench->driver.install(UpdateChoice::install);
        QVERIFY(m_bench->playUntil(u"over"_s));
        QVERIFY(m_bench->driver.reason.contains(u"is not signed by the makers"_s));
        QVERIFY(m_bench->isClean(Test::UpdaterBench::image("old")));
    }

    void foldersAreLookedAtBeforeTheDownload()
    {
        QFile half(AppImage::partFile(m_bench->imagePath));
        QVERIFY(half.open(QIODevice::WriteOnly));
        m_bench->tree.write(u"cache/Updates/update.part"_s, "half");
        m_bench->offer({.version = "2.0"});
        m_bench->start();
        QVERIFY(m_bench->checkToTheEnd());
        QVERIFY(m_bench->isClean(Test::UpdaterBench::image("old")));

        // An image that is gone is told before anything is fetched.
        m_bench->offer({});
        m_bench->driver.choice = UpdateChoice::install;
        QVERIFY(QFile::remove(m_bench->imagePath));
        m_bench->server.requests.clear();
        QVERIFY(m_bench->checkToTheEnd());
        QVERIFY(m_bench->driver.reason.contains(u"is no longer there"_s));
        QCOMPARE(m_bench->server.requests.size(), 1);
    }

    void packageIsHandedToTheInstaller()
    {
        const QString package = m_bench->tree.path(u"cache/Updates/TavikLauncher-update.deb"_s);
        m_bench->driver.choice = UpdateChoice::install;
        m_bench->runsFromImage = false;
        m_bench->openFault = u"Nobody takes it."_s;
        m_bench->offer({.path = "/name-of-the-feed.deb", .file = "package"});
        m_bench->start();
        QVERIFY(m_bench->checkToTheEnd());
        QCOMPARE(m_bench->driver.reason, u"Nobody takes it."_s);
        QVERIFY(!QFile::exists(package));

        m_bench->openFault.reset();
        QVERIFY(m_bench->checkToTheEnd());
        QCOMPARE(calls().last(2), (QStringList{u"handed over"_s, u"over"_s}));
        QCOMPARE(m_bench->opened.last(), QUrl::fromLocalFile(package));
        QCOMPARE(Test::FileTree::contents(package), "package");
        QCOMPARE(m_bench->updater->programToRelaunch(), std::nullopt);
    }

    void whatCannotBeInstalledHereOpensItsPage_data()
    {
        const Table<QByteArray, bool, bool> row; // Runs from an image; there is an installer.
        row("information", {}, true, true);
        row("package, but runs from an image", "/a.deb", true, true);
        row("image, but runs from none", "/a.AppImage", false, true);
        row("package without installer", "/a.deb", false, false);
    }

    void whatCannotBeInstalledHereOpensItsPage()
    {
        const auto [path, runsFromImage, hasInstaller] = fetch<QByteArray, bool, bool>();
        m_bench->driver.choice = UpdateChoice::install;
        m_bench->runsFromImage = runsFromImage;
        m_bench->hasInstaller = hasInstaller;
        m_bench->offer({.path = path, .more = "<link>http://localhost/new</link>"});
        m_bench->start();
        QVERIFY(m_bench->checkToTheEnd());
        QCOMPARE(calls(), (QStringList{u"checking"_s, u"found 2.1 for the user"_s, u"over"_s}));
        QVERIFY(m_bench->driver.item.isInformationOnly);
        QCOMPARE(m_bench->driver.item.contentLength, 0);
        QCOMPARE(m_bench->opened, QList<QUrl>{QUrl(u"http://localhost/new"_s)});

        m_bench->offer({.path = path});
        QVERIFY(m_bench->checkToTheEnd());
        // Without file and page the feed is at fault, not this system.
        QVERIFY(calls().contains(path.isEmpty() ? u"error"_s : u"not found"_s));
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

QTEST_GUILESS_MAIN(UpdaterTest)
#include "UpdaterTest.moc"
