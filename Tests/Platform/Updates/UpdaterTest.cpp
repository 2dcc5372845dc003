// SPDX-License-Identifier: MIT
#include "UpdaterBench.h"
#include <TavikLauncherPlatform/Linux/Updates/AppImage.h>

#include <QRegularExpression>

#include <Support/Table.h>

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

/// What is wrong with one of them.
struct Fault
{
    QString reason; ///< A part of it.
    Item item;
    std::optional<Answer> feed; ///< In place of the one with the item.
    std::optional<Answer> package; ///< In place of the item's file.
    QByteArray seenBefore; ///< Version.
};

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
        QCOMPARE(calls().last(), u"over"_s);
        QVERIFY(m_bench->play([this] { return m_bench->feedRequests() == 2; }, 1));
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
        QCOMPARE(m_bench->workQueue.waiting(), 0U); // Where a proxy would be looked for.
        m_bench->network->set(true);
        m_bench->mainQueue.advance(9);
        QCOMPARE(m_bench->workQueue.waiting(), 0U);
        m_bench->mainQueue.advance(2);
        QCOMPARE(m_bench->workQueue.waiting(), 1U);
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

    void skippedVersionIsOfferedToTheUserOnly()
    {
        m_bench->start();
        m_bench->driver.choice = UpdateChoice::skip;
        for (int i = 0; i < 2; ++i) {
            QVERIFY(m_bench->checkToTheEnd());
            QVERIFY(calls().contains(u"found 2.1 for the user"_s));
        }
        startWithSchedule();
        m_bench->mainQueue.advance(day - 60);
        QVERIFY(checksWithin(120));
        QVERIFY(!calls().contains(u"found 2.1"_s));
    }

    void linkedNotesFollow_data()
    {
        const Table<Answer, QString> row;
        const auto file = Test::UpdateServer::file;
        row("fetched", file("<p>New</p>", "text/html"), u"notes"_s);
        row("picture", file("GIF", "image/gif"), u"no notes"_s);
        row("huge", file(QByteArray(1'000'001, 'x'), "text/html"), u"no notes"_s);
    }

    void linkedNotesFollow()
    {
        const auto [answer, call] = fetch<Answer, QString>();
        m_bench->offer({.more = "<s:releaseNotesLink>/notes</s:releaseNotesLink>"});
        m_bench->server.answer("/notes", {answer});
        m_bench->start().checkForUpdates();
        QVERIFY(m_bench->playUntil(call));
        QCOMPARE(calls(), (QStringList{u"checking"_s, u"found 2.1 for the user"_s, call}));
        QVERIFY(call != u"notes"_s || m_bench->driver.notes.text == u"<p>New</p>"_s);
        m_bench->driver.choose(UpdateChoice::remindLater);
        QCOMPARE(m_bench->mainQueue.pendingTasks(), 0);
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
        QVERIFY(isClean(Test::UpdaterBench::image("old")));
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
        QVERIFY(isClean(Test::UpdaterBench::image("old")));
    }

    void leftoversOfAKilledSessionGoWithTheNextCheck()
    {
        QFile half(AppImage::partFile(m_bench->imagePath));
        QVERIFY(half.open(QIODevice::WriteOnly));
        m_bench->tree.write(u"cache/Updates/update.part"_s, "half");
        m_bench->offer({.version = "2.0"});
        m_bench->start();
        QVERIFY(m_bench->checkToTheEnd());
        QVERIFY(isClean(Test::UpdaterBench::image("old")));
    }

    void hostileFeedsAndPackagesAreRefused_data()
    {
        const Table<Fault> row;
        const auto file = [](const QByteArray& bytes) {
            return Test::UpdateServer::file(bytes, "application/octet-stream");
        };
        const QString other = u"The update on the server is not the one that was announced"_s;
        const QString foreign = u"The downloaded update is not signed by the makers"_s;
        const QString unprotected = u"The server wanted to go on over an unprotected connection"_s;
        const QString stopped = u"The server stopped answering."_s;
        const Answer plain{.status = "302 Found", .headers = {"Location: http://192.0.2.1/"}};
        Answer slow = file(image);
        slow.stalls = true;
        slow.endsAfter = 1;
        slow.headers.clear();
        row("feed not there",
            {u"The list of updates is not on the server."_s, {}, Answer{.status = "404 No"}});
        row("feed malformed", {u"The list of updates is damaged"_s, {}, file("<rss><channel>")});
        row("feed of another type", {u"something other than a list"_s, {}, file("GIF89a")});
        row("feed huge", {u"larger than the 5 MB"_s, {}, file(QByteArray(5'000'001, ' '))});
        row("feed stalled", {stopped, {}, slow});
        row("feed to plain HTTP", {unprotected, {}, plain});
        row("feed older than one before", {u"older than one seen before"_s, {}, {}, {}, "2.2"});
        row("no signature", {u"2.1 is available. The update is not signed"_s, {.signature = " "}});
        row("damaged signature", {u"The update's signature"_s, {.signature = "abc"}});
        row("foreign signature", {foreign, {.signature = Test::Signer().sign(image)}});
        row("another package", {foreign, {}, {}, file(Test::UpdaterBench::image("neu"))});
        row("package longer", {other, {}, {}, file(image + 'x')});
        row("package shorter", {other, {}, {}, file(image.chopped(1))});
        row("package without end", {other, {}, {}, Answer{.body = image, .isEndless = true}});
        row("package not there", {u"The update is not on"_s, {}, {}, Answer{.status = "404 No"}});
        row("too long for us", {u"The update is larger than 500 MB"_s, {.length = 500'000'001}});
        row("package to plain HTTP", {unprotected, {}, {}, plain});
        row("package stalled", {stopped, {}, {}, slow});
        row("package no image", {u"is not an AppImage"_s, {.file = "#!/bin/sh\necho signed\n"}});
    }

    void hostileFeedsAndPackagesAreRefused()
    {
        const auto [fault] = fetch<Fault>();
        if (!fault.seenBefore.isEmpty()) {
            m_bench->offer({.version = fault.seenBefore});
            m_bench->driver.choice = UpdateChoice::remindLater;
            m_bench->start();
            QVERIFY(m_bench->checkToTheEnd());
        }
        m_bench->driver.choice = UpdateChoice::install;
        m_bench->offer(fault.item);
        if (fault.feed) {
            m_bench->server.answer("/feed", {*fault.feed});
        }
        if (fault.package) {
            m_bench->server.answer(fault.item.path, {*fault.package});
        }
        m_bench->start().setAutomaticallyChecksForUpdates(true);
        QVERIFY(m_bench->checkToTheEnd(fault.reason.contains(u"stopped") ? 0.5 : 0.02));
        QCOMPARE(calls().count(u"error"_s), 1);
        QVERIFY2(m_bench->driver.reason.contains(fault.reason), qPrintable(m_bench->driver.reason));
        QVERIFY(isClean(Test::UpdaterBench::image("old")));
        QCOMPARE(m_bench->updater->programToRelaunch(), std::nullopt);
        QCOMPARE(m_bench->mainQueue.pendingTasks(), 1); // The next check.

        m_bench->offer({.version = "2.3"});
        QVERIFY(m_bench->checkToTheEnd());
        QVERIFY(isClean(image));
        QVERIFY(calls().endsWith(u"terminate"_s));
        QCOMPARE(m_bench->updater->programToRelaunch(), m_bench->imagePath);
    }

    void certificateErrorsAreToldApart()
    {
        const Test::UpdateServer selfSigned(Test::UpdateServer::Protection::selfSigned);
        m_bench->feedUrl = selfSigned.url("/feed");
        m_bench->start();
        QVERIFY(m_bench->checkToTheEnd());
        QVERIFY(m_bench->driver.reason.contains(u"its certificate is not valid here"_s));
        QVERIFY(selfSigned.requests.isEmpty());
    }

    void imageThatCannotBeReplacedIsToldBeforeTheDownload()
    {
        m_bench->driver.choice = UpdateChoice::install;
        m_bench->start();
        QVERIFY(QFile::remove(m_bench->imagePath));
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
        QCOMPARE(m_bench->contents(package), "package");
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
    /// Nothing but that image is anywhere.
    [[nodiscard]] bool isClean(const QByteArray& expected) const
    {
        return m_bench->contents(m_bench->imagePath) == expected
            && m_bench->files(m_bench->tree.path(u"apps"_s)) == QStringList{u"my.AppImage"_s}
        && m_bench->files(m_bench->tree.path(u"cache/Updates"_s)).isEmpty();
    }
    void startWithSchedule()
    {
        m_bench->start().setAutomaticallyChecksForUpdates(true);
        m_bench->updater->setUpdateCheckInterval(24h);
    }
    /// Lets the time pass until a check begins, and then the answer come.
    [[nodiscard]] bool checksWithin(double seconds)
    {
        constexpr double step = 5; // Less than what a server is waited for.
        constexpr int tasksOfCheck = 3; // The schedule alone has one.
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
