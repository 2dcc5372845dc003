// SPDX-License-Identifier: MIT
#include "UpdaterBench.h"
#include <TavikLauncherPlatform/Linux/Updates/UpdateDocument.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateDownload.h>

#include <QRegularExpression>

#include <Support/FullDisk.h>
#include <Support/Table.h>

using namespace Tavik;
using namespace Qt::StringLiterals;
using Answer = Test::UpdateServer::Answer;
using Item = Test::UpdaterBench::Item;
using Test::fetch;
using Test::Table;

namespace {

const QByteArray image = Test::UpdaterBench::image("new");

/// What is wrong with one of them.
struct Fault
{
    QString reason; ///< A part of it.
    Item item;
    std::optional<Answer> feed; ///< In place of the one with the item.
    std::optional<Answer> package; ///< In place of the item's file.
};

/// Bytes of which no two pieces are alike.
QByteArray package()
{
    QByteArray bytes;
    for (int i = 0; bytes.size() < 300'000; ++i) {
        bytes += QByteArray::number(i) + ' ';
    }
    return bytes;
}

} // namespace

/// What servers do wrong, and the download that copes with it.
class TransferTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(u".*"_s));
        m_fixture = std::make_unique<Test::UpdateFixture>();
        m_reason.reset();
        m_progress.clear();
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
        const Answer missing{.status = "404 No"};
        row("feed not there", {u"The list of updates is not on the server."_s, {}, missing});
        row("feed stalled", {stopped, {}, slow});
        const Answer endless{.body = QByteArray(99'999, 'x'), .isEndless = true};
        row("feed without end", {u"larger than the 5 MB"_s, {}, endless});
        row("feed too slow",
            {u"The server is too slow."_s, {}, Answer{.body = "x", .isEndless = true}});
        const Answer packed{.headers = {"Content-Encoding: gzip"}, .body = "x"};
        row("feed packed", {u"something packed"_s, {}, packed});
        const Answer refusal{
            .status = "401 Who", .body = QByteArray(999'999, 'x'), .isEndless = true};
        if (FetchProgram::isLimited) {
            row("refusal without end", {u"sent far more than it was asked for"_s, {}, refusal});
        }
        const Answer circle{.status = "302 Found", .headers = {"Location: /feed"}};
        row("feed in a circle", {u"only points from one address to the next"_s, {}, circle});
        row("feed to plain HTTP", {unprotected, {}, plain});
        row("foreign signature", {foreign, {.signature = Test::Signer().sign(image)}});
        row("another package", {foreign, {}, {}, file(Test::UpdaterBench::image("neu"))});
        row("package longer", {other, {}, {}, file(image + 'x')});
        row("package to plain HTTP", {unprotected, {}, {}, plain});
        row("package no image", {u"is not an AppImage"_s, {.file = "#!/bin/sh\necho signed\n"}});
    }

    void hostileFeedsAndPackagesAreRefused()
    {
        const auto [fault] = fetch<Fault>();
        Test::UpdaterBench bench;
        bench.driver.choice = UpdateChoice::install;
        bench.offer(fault.item);
        if (fault.feed) {
            bench.server.answer("/feed", {*fault.feed});
        }
        if (fault.package) {
            bench.server.answer(fault.item.path, {*fault.package});
        }
        bench.start().setAutomaticallyChecksForUpdates(true);
        const bool isWaitedFor
            = fault.reason.contains(u"stopped") || fault.reason.contains(u"too slow");
        QVERIFY(bench.checkToTheEnd(isWaitedFor ? 0.2 : 0.02));
        QCOMPARE(bench.driver.calls.count(u"error"_s), 1);
        QVERIFY2(bench.driver.reason.contains(fault.reason), qPrintable(bench.driver.reason));
        QVERIFY(bench.isClean(Test::UpdaterBench::image("old")));
        // A feed that was refused is not remembered as seen.
        QCOMPARE(bench.defaults.values.contains(u"Updater.newestSeenVersion"_s),
                 bench.driver.calls.contains(u"downloading"_s));
        QCOMPARE(bench.updater->programToRelaunch(), std::nullopt);
        QCOMPARE(bench.mainQueue.pendingTasks(), 1); // The next check.

        bench.offer({.version = "2.3"});
        QVERIFY(bench.checkToTheEnd());
        QVERIFY(bench.isClean(image));
        QVERIFY(bench.driver.calls.endsWith(u"terminate"_s));
        QCOMPARE(bench.updater->programToRelaunch(), bench.imagePath);
    }

    void serversThatCannotServeAreToldApart()
    {
        Test::UpdaterBench bench;
        bench.offer({});
        Test::UpdateServer selfSigned(Test::UpdateServer::Protection::selfSigned);
        QUrl unprotected = bench.server.url("/feed");
        unprotected.setScheme(u"https"_s);
        QUrl missing = unprotected;
        missing.setPort(1);
        for (const auto& [url, reason] :
             {std::pair(selfSigned.url("/feed"), u"its certificate is not valid here"_s),
              std::pair(unprotected, u"No protected connection to the server"_s),
              std::pair(missing, u"The server “127.0.0.1” cannot be reached."_s)}) {
            bench.feedUrl = url;
            bench.start();
            QVERIFY(bench.checkToTheEnd());
            QVERIFY2(bench.driver.reason.contains(reason), qPrintable(bench.driver.reason));
        }
        QVERIFY(selfSigned.requests.isEmpty());
    }

    void aTrustedServerServesAndLeadsNobodyToThisMachine()
    {
        qputenv(Test::UpdateServer::trustVariable, "1");
        const auto untrust = qScopeGuard([] { qunsetenv(Test::UpdateServer::trustVariable); });
        Test::UpdaterBench bench;
        Test::UpdateServer trusted(Test::UpdateServer::Protection::selfSigned);
        bench.offer({});
        trusted.answer("/feed", {bench.server.answerTo("/feed")});
        trusted.answer("/new.AppImage", {bench.server.answerTo("/new.AppImage")});
        bench.feedUrl = trusted.url("/feed");
        bench.driver.choice = UpdateChoice::install;
        bench.start();
        QVERIFY(bench.checkToTheEnd());
        QVERIFY(bench.isClean(image));

        const QByteArray local = "Location: " + bench.server.url("/feed").toEncoded();
        trusted.answer("/feed", {{.status = "302 Found", .headers = {local}}});
        bench.start();
        QVERIFY(bench.checkToTheEnd());
        QVERIFY(bench.driver.reason.contains(u"over an unprotected connection"_s));
        QVERIFY(bench.server.requests.isEmpty());
    }

    void nothingPrivateIsSent()
    {
        Test::UpdaterBench bench;
        Test::UpdateServer& server = bench.server;
        bench.offer({.path = "new.AppImage"}); // From where the feed is in the end.
        server.answer("/new.AppImage", {Test::UpdateServer::file(image, "a/b")});
        server.answer("/old/feed",
                      {{.status = "301 Moved", .headers = {"Location: /feed", "Set-Cookie: a=b"}}});
        bench.feedUrl = server.url("/old/feed");
        bench.driver.choice = UpdateChoice::install;
        bench.start();
        QVERIFY(bench.checkToTheEnd());
        QVERIFY(bench.isClean(image));
        QCOMPARE(server.requests.size(), 3);
        for (const Test::UpdateServer::Request& request : std::as_const(server.requests)) {
            QCOMPARE(request.headers.keys().join(' '),
                     "accept-encoding accept-language cache-control connection host pragma "
                     "user-agent");
            QCOMPARE(request.headers.value("user-agent") + request.headers.value("accept-language"),
                     "TavikLauncher/2.0en");
        }
    }

    void notesAreReadByTheirType()
    {
        using enum ReleaseNotes::Format;
        const std::tuple<QString, QString, std::optional<ReleaseNotes::Format>> rows[]
            = {{u"text/html"_s, u"/notes.md"_s, html},
               {u"text/markdown"_s, u"/notes"_s, markdown},
               {u"text/plain"_s, u"/notes.MD"_s, markdown},
               {u"application/octet-stream"_s, u"/notes"_s, html},
               {u"image/png"_s, u"/notes.html"_s, std::nullopt}};
        for (const auto& [type, path, format] : rows) {
            UpdateDocument document{
                .bytes = "Grün", .url = QUrl(u"https://example.org"_s + path), .mimeType = type};
            const std::optional<ReleaseNotes> notes = releaseNotes(document);
            QVERIFY2(notes ? notes->format == format && notes->text == u"Grün" : !format,
                     qPrintable(type + path));
            document.bytes.append('\0');
            QVERIFY(!releaseNotes(document));
        }
    }

    void brokenDownloadIsContinued_data()
    {
        const Table<QList<Answer>, QByteArray> row;
        Answer first = cut();
        Answer untagged = first;
        untagged.headers = {"ETag: W/\"weak\""};
        Answer changed = whole();
        changed.headers = {"ETag: \"another\""};
        const Answer noRange{.status = "416 No"};
        const Answer elsewhere{
            .status = "206 Piece",
            .headers = {"Content-Range: bytes 5-9/" + QByteArray::number(m_package.size())},
            .body = "01234"};
        const Answer busy{.status = "503 Busy"};
        const QByteArray rest = "bytes=100000-";
        const QByteArray span
            = "Content-Range: bytes 100000-/" + QByteArray::number(m_package.size());
        const Answer second{
            .status = "206 Piece", .headers = {span}, .body = m_package.mid(100'000)};
        row("again and again", {first, busy, busy, busy, second}, rest);
        row("without a tag", {untagged, whole()}, {});
        row("another file now", {first, changed}, rest);
        row("pieces refused", {first, noRange, whole()}, rest);
        row("another piece", {first, elsewhere, whole()}, rest);
    }

    void brokenDownloadIsContinued()
    {
        const auto [answers, secondRange] = fetch<QList<Answer>, QByteArray>();
        server().answer("/package", answers);
        // A link that waits under the file's name is not written through.
        const QString other = m_fixture->tree.write(u"other"_s, "untouched");
        m_fixture->tree.link(other, u"part"_s);
        download();
        QCOMPARE(m_reason, QString());
        QCOMPARE(Test::FileTree::contents(m_file->path()), m_package);
        QCOMPARE(Test::FileTree::contents(other), "untouched");
        QVERIFY(m_progress.contains(100'000));
        const auto headers = server().requests.at(1).headers;
        QCOMPARE(headers.value("range"), secondRange);
        QCOMPARE(headers.value("if-range"), secondRange.isEmpty() ? "" : "\"tag\"");
        QCOMPARE(QFile::permissions(m_file->path()) & ~QFile::Permissions(0x7000),
                 QFile::ReadUser | QFile::WriteUser);
        m_file.reset();
        QCOMPARE(filesLeft(), QStringList{u"other"_s});
    }

    void downloadThatNeverGetsFurtherIsGivenUp()
    {
        // It cannot be continued.
        server().answer("/package", {{.body = m_package, .endsAfter = 100'000}});
        download(0.1);
        QVERIFY(!m_reason->isEmpty());
        QVERIFY(server().requests.size() <= 7);
        QCOMPARE(filesLeft(), QStringList());
        QCOMPARE(m_fixture->mainQueue.pendingTasks(), 0);
    }

    void diskWithoutRoomEndsTheDownload()
    {
        const QString noRoom = u"There is not enough room for the update in the folder “%1”."_s.arg(
            m_fixture->tree.path());
        download(0.02, qint64(1) << 62);
        QCOMPARE(m_reason, noRoom);
        QVERIFY(server().requests.isEmpty());

        server().answer("/package", {cut(), whole()});
        const std::unique_ptr<UpdateDownload> downloading = begin(u"part"_s);
        QVERIFY(m_fixture->play([this] { return server().requests.size() == 1; }));
        const Test::FullDisk disk(200'000); // It fills meanwhile.
        QVERIFY(m_fixture->play([this] { return m_reason.has_value(); }, 0.05));
        QCOMPARE(m_reason, noRoom);
        QCOMPARE(filesLeft(), QStringList());

        const std::unique_ptr<UpdateDownload> nowhere = begin(u"none/part"_s);
        QVERIFY(m_fixture->play([this] { return m_reason.has_value(); }));
        QVERIFY(m_reason->contains(u"none”: No such file or directory."));
    }

private:
    [[nodiscard]] Test::UpdateServer& server() { return m_fixture->server; }
    [[nodiscard]] Answer whole() const { return Test::UpdateServer::file(m_package, "a/b"); }
    [[nodiscard]] Answer cut() const
    {
        Answer answer = whole();
        answer.endsAfter = 100'000;
        return answer;
    }
    [[nodiscard]] QStringList filesLeft()
    {
        m_fixture->workQueue.runAll();
        return Test::FileTree::names(m_fixture->tree.path());
    }

    [[nodiscard]] std::unique_ptr<UpdateDownload> begin(const QString& name, qint64 length = 0)
    {
        m_reason.reset();
        return std::make_unique<UpdateDownload>(
            m_fixture->transfer(),
            m_fixture->workQueue,
            UpdateDownload::Request{.url = server().url("/package"),
                                    .length = length > 0 ? length : m_package.size(),
                                    .path = m_fixture->tree.path(name)},
            UpdateDownload::Hooks{
                .progress = [this](qint64 received) { m_progress << received; },
                .finish =
                    [this](std::shared_ptr<PartFile> file, const QString& reason) {
                        m_file = std::move(file);
                        m_reason = reason;
                    }});
    }
    void download(double secondsPerTurn = 0.05, qint64 length = 0)
    {
        const std::unique_ptr<UpdateDownload> downloading = begin(u"part"_s, length);
        QVERIFY(m_fixture->play([this] { return m_reason.has_value(); }, secondsPerTurn));
        QCOMPARE(m_file == nullptr, !m_reason->isEmpty());
    }

    const QByteArray m_package = package();
    std::unique_ptr<Test::UpdateFixture> m_fixture;
    std::shared_ptr<PartFile> m_file;
    std::optional<QString> m_reason;
    QList<qint64> m_progress;
};

QTEST_GUILESS_MAIN(TransferTest)
#include "TransferTest.moc"
