// SPDX-License-Identifier: MIT
#include "UpdaterBench.h"

#include <QRegularExpression>

#include <sys/stat.h>

using namespace Tavik;
using namespace Qt::StringLiterals;
using Answer = Test::UpdateServer::Answer;
using Item = Test::UpdaterBench::Item;

namespace {

const QByteArray image = Test::UpdaterBench::image("new");

/// What is wrong with one of them.
struct Fault
{
    Item item;
    std::optional<Answer> feed; ///< In place of the one with the item.
    std::optional<Answer> package; ///< In place of the item's file.
    QByteArray seenBefore; ///< Version.
    QString reason; ///< The beginning of it.
};

} // namespace

Q_DECLARE_METATYPE(Fault)

/// From the feed to the new version in place, and all that may go wrong on the way.
class UpdateInstallationTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(u".*"_s));
        m_bench = std::make_unique<Test::UpdaterBench>();
        m_bench->driver.choice = UpdateChoice::install;
    }

    void imageIsReplacedAndStartedAnew()
    {
        QCOMPARE(::chmod(qPrintable(m_bench->imagePath), 0750), 0);
        m_bench->offer({});
        m_bench->start();
        QCOMPARE(m_bench->updater->programToRelaunch(), std::nullopt);
        QVERIFY(m_bench->checkToTheEnd());
        QCOMPARE(m_bench->driver.calls,
                 (QStringList{u"checking"_s,
                              u"found 2.1 for the user"_s,
                              u"downloading"_s,
                              u"verifying"_s,
                              u"ready"_s,
                              u"installing"_s,
                              u"over"_s,
                              u"terminate"_s}));
        QCOMPARE(m_bench->updater->programToRelaunch(), m_bench->imagePath);
        QCOMPARE(m_bench->contents(m_bench->imagePath), image);
        struct stat status = {};
        QCOMPARE(::stat(qPrintable(m_bench->imagePath), &status), 0);
        QCOMPARE(status.st_mode & 07777U, 0750U);
        QVERIFY(isClean());
    }

    void whatIsNotWantedAfterAllLeavesNoTrace_data()
    {
        QTest::addColumn<QString>("last");
        for (const char* call : {"downloading", "verifying", "ready", "installing"}) {
            QTest::newRow(call) << QString::fromLatin1(call);
        }
    }

    void whatIsNotWantedAfterAllLeavesNoTrace()
    {
        QFETCH(const QString, last);
        m_bench->driver.choice.reset();
        m_bench->offer({});
        m_bench->start().checkForUpdates();
        QVERIFY(m_bench->playUntil(u"found 2.1 for the user"_s));
        m_bench->driver.choose(UpdateChoice::install);
        if (last == u"installing"_s) {
            QVERIFY(m_bench->playUntil(u"ready"_s));
            m_bench->driver.install(UpdateChoice::install);
        } else {
            QVERIFY(m_bench->playUntil(last));
        }
        // Where there is nothing to refuse any more, the program ends.
        if (last == u"downloading"_s) {
            m_bench->driver.cancelDownload();
        } else if (last == u"ready"_s) {
            m_bench->driver.install(UpdateChoice::remindLater);
        } else {
            m_bench->updater->stopUpdater();
        }
        m_bench->workQueue.runAll();
        QCOMPARE(m_bench->contents(m_bench->imagePath), Test::UpdaterBench::image("old"));
        QVERIFY(isClean());
        QCOMPARE(m_bench->updater->programToRelaunch(), std::nullopt);
    }

    void leftoversOfAKilledSessionGoWithTheNextCheck()
    {
        m_bench->tree.write(u"apps/.my.AppImage.update"_s, "half");
        m_bench->tree.write(u"cache/Updates/update.part"_s, "half");
        m_bench->offer({.version = "2.0"});
        m_bench->start();
        QVERIFY(m_bench->checkToTheEnd());
        QVERIFY(isClean());
    }

    void hostileFeedsAndPackagesAreRefused_data()
    {
        QTest::addColumn<Fault>("fault");
        const auto row = [](const char* name, const Fault& fault) {
            QTest::newRow(name) << fault;
        };
        const QByteArray foreign = Test::Signer().sign(image);
        const QString unsignedFile = u"The downloaded update is not signed by the makers"_s;
        const QString damaged = u"Tavik Launcher 2.1 is available. The update's signature"_s;
        const QString unprotected = u"The server wanted to go on over an unprotected connection"_s;
        const auto file = [](const QByteArray& bytes) {
            return Test::UpdateServer::file(bytes, "application/octet-stream");
        };
        const Answer plain{.status = "302 Found", .headers = {"Location: http://192.0.2.1/"}};
        Answer slow = file(image);
        slow.stalls = true;
        slow.endsAfter = 1;
        slow.headers.clear();

        row("feed not there",
            {.feed = Answer{.status = "404 No"},
             .reason = u"The list of updates is not on the server."_s});
        row("feed malformed",
            {.feed = file("<rss><channel>"), .reason = u"The list of updates is damaged"_s});
        row("feed of another type",
            {.feed = file("GIF89a"),
             .reason = u"The server answered with something other than a list"_s});
        row("feed huge",
            {.feed = file(QByteArray(5'000'001, ' ')),
             .reason = u"The list of updates is larger than the 5 MB it may have."_s});
        row("feed stalled", {.feed = slow, .reason = u"The server stopped answering."_s});
        row("feed to plain HTTP", {.feed = plain, .reason = unprotected});
        row("feed older than one before",
            {.seenBefore = "2.2",
             .reason = u"The list of updates is older than one seen before"_s});
        row("no signature",
            {.item = {.signature = " "},
             .reason = u"Tavik Launcher 2.1 is available. The update is not signed"_s});
        row("damaged signature", {.item = {.signature = "abc"}, .reason = damaged});
        row("foreign signature", {.item = {.signature = foreign}, .reason = unsignedFile});
        row("another package",
            {.package = file(Test::UpdaterBench::image("neu")), .reason = unsignedFile});
        row("package longer",
            {.package = file(image + 'x'),
             .reason = u"The update on the server is not the one that was announced"_s});
        row("package shorter",
            {.package = file(image.chopped(1)),
             .reason = u"The update on the server is not the one that was announced"_s});
        row("package without end",
            {.package = Answer{.body = image, .isEndless = true},
             .reason = u"The update on the server is not the one that was announced"_s});
        row("length beyond all bounds",
            {.item = {.length = 500'000'001},
             .reason = u"Tavik Launcher 2.1 is available. The update is larger than 500 MB"_s});
        row("package to plain HTTP", {.package = plain, .reason = unprotected});
        row("package stalled", {.package = slow, .reason = u"The server stopped answering."_s});
        row("package no image",
            {.item = {.file = "#!/bin/sh\necho signed, but no image\n"},
             .reason = u"The update is not an AppImage"_s});
    }

    void hostileFeedsAndPackagesAreRefused()
    {
        QFETCH(const Fault, fault);
        m_bench->offer(fault.item);
        if (fault.feed) {
            m_bench->server.answer("/feed", {*fault.feed});
        }
        if (fault.package) {
            m_bench->server.answer(fault.item.path, {*fault.package});
        }
        if (!fault.seenBefore.isEmpty()) {
            m_bench->defaults.setObject(u"Updater.newestSeenVersion"_s,
                                        QString::fromLatin1(fault.seenBefore));
        }
        m_bench->start().setAutomaticallyChecksForUpdates(true);
        m_bench->updater->checkForUpdates();
        const auto isOver = [this] {
            return m_bench->driver.calls.contains(u"over"_s);
        };
        QVERIFY(m_bench->play(isOver, fault.reason.contains(u"stopped"_s) ? 0.5 : 0.02));
        QCOMPARE(m_bench->driver.calls.count(u"error"_s), 1);
        QVERIFY2(m_bench->driver.reason.startsWith(fault.reason),
                 qPrintable(m_bench->driver.reason));
        QCOMPARE(m_bench->contents(m_bench->imagePath), Test::UpdaterBench::image("old"));
        QVERIFY(isClean());
        QCOMPARE(m_bench->updater->programToRelaunch(), std::nullopt);
        QCOMPARE(m_bench->mainQueue.pendingTasks(), 1); // The next check.

        m_bench->offer({.version = "2.3"});
        QVERIFY(m_bench->checkToTheEnd());
        QCOMPARE(m_bench->contents(m_bench->imagePath), image);
    }

    void certificateErrorsAreToldApart()
    {
        Test::UpdateServer selfSigned(Test::UpdateServer::Protection::selfSigned);
        m_bench->feedUrl = selfSigned.url("/feed");
        m_bench->start();
        QVERIFY(m_bench->checkToTheEnd());
        QVERIFY(m_bench->driver.reason.contains(u"its certificate is not valid here"_s));
    }

    void imageThatCannotBeReplacedIsToldBeforeTheDownload()
    {
        m_bench->offer({});
        m_bench->start();
        QVERIFY(QFile::remove(m_bench->imagePath));
        QVERIFY(m_bench->checkToTheEnd());
        QVERIFY2(m_bench->driver.reason.contains(u"is no longer there"_s),
                 qPrintable(m_bench->driver.reason));
        QCOMPARE(m_bench->server.requests.size(), 1);
    }

    void packageIsHandedToTheInstaller()
    {
        m_bench->runsFromImage = false;
        m_bench->offer({.path = "/name-of-the-feed.deb", .file = "package"});
        m_bench->start();
        QVERIFY(m_bench->checkToTheEnd());
        QCOMPARE(m_bench->driver.calls.last(2), (QStringList{u"handed over"_s, u"over"_s}));
        const QString package = m_bench->tree.path(u"cache/Updates/TavikLauncher-update.deb"_s);
        QCOMPARE(m_bench->opened, QList<QUrl>{QUrl::fromLocalFile(package)});
        QCOMPARE(m_bench->contents(package), "package");
        QCOMPARE(m_bench->updater->programToRelaunch(), std::nullopt);
    }

    void packageThatNobodyTakesIsRemoved()
    {
        m_bench->runsFromImage = false;
        m_bench->openFault = u"Nobody takes it."_s;
        m_bench->offer({.path = "/a.rpm"});
        m_bench->start();
        QVERIFY(m_bench->checkToTheEnd());
        QCOMPARE(m_bench->driver.calls.last(2), (QStringList{u"error"_s, u"over"_s}));
        QCOMPARE(m_bench->driver.reason, u"Nobody takes it."_s);
        QVERIFY(isClean());
    }

    void whatCannotBeInstalledHereOpensItsPage_data()
    {
        QTest::addColumn<QByteArray>("path");
        QTest::addColumn<bool>("runsFromImage");
        QTest::addColumn<bool>("hasInstaller");
        QTest::newRow("information") << QByteArray() << true << true;
        QTest::newRow("package, but runs from an image") << QByteArray("/a.deb") << true << true;
        QTest::newRow("image, but runs from none") << QByteArray("/a.AppImage") << false << true;
        QTest::newRow("archive") << QByteArray("/a.tar.gz") << false << true;
        QTest::newRow("package without installer") << QByteArray("/a.deb") << false << false;
    }

    void whatCannotBeInstalledHereOpensItsPage()
    {
        QFETCH(const QByteArray, path);
        QFETCH(const bool, runsFromImage);
        QFETCH(const bool, hasInstaller);
        m_bench->runsFromImage = runsFromImage;
        m_bench->hasInstaller = hasInstaller;
        m_bench->offer({.path = path, .more = "<link>https://example.org/new</link>"});
        m_bench->start();
        QVERIFY(m_bench->checkToTheEnd());
        QCOMPARE(m_bench->driver.calls,
                 (QStringList{u"checking"_s, u"found 2.1 for the user"_s, u"over"_s}));
        QVERIFY(m_bench->driver.item.isInformationOnly);
        QCOMPARE(m_bench->driver.item.contentLength, 0);
        QCOMPARE(m_bench->opened, QList<QUrl>{QUrl(u"https://example.org/new"_s)});
        QVERIFY(isClean());

        m_bench->offer({.path = path});
        QVERIFY(m_bench->checkToTheEnd());
        // Without file and page the feed is at fault, not this system.
        QVERIFY(m_bench->driver.calls.contains(path.isEmpty() ? u"error"_s : u"not found"_s));
    }

private:
    /// Nothing but the image is anywhere.
    [[nodiscard]] bool isClean() const
    {
        return m_bench->files(m_bench->tree.path(u"apps"_s)) == QStringList{u"my.AppImage"_s}
        && m_bench->files(m_bench->tree.path(u"cache/Updates"_s)).isEmpty();
    }

    std::unique_ptr<Test::UpdaterBench> m_bench;
};

QTEST_GUILESS_MAIN(UpdateInstallationTest)
#include "UpdateInstallationTest.moc"
