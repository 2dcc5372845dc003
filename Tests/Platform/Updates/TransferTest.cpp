// SPDX-License-Identifier: MIT
#include "UpdaterBench.h"
#include <TavikLauncherPlatform/Linux/Updates/UpdateDocument.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateDownload.h>

#include <QRegularExpression>

#include <Support/Table.h>
#include <csignal>

#include <sys/resource.h>

using namespace Tavik;
using namespace Qt::StringLiterals;
using Answer = Test::UpdateServer::Answer;
using Test::fetch;
using Test::Table;

namespace {

/// No file of this process may become larger, as on a disk that is full.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{.rlim_cur = bytes, .rlim_max = m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &m_before); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_before{};
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

/// One file from a server, into memory or to the disk. What the updater makes of the faults is
/// tried with the updater.
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

    void nothingPrivateIsSent()
    {
        server().answer("/old", {{.status = "301 Moved", .headers = {"Location: /a/new.xml"}}});
        server().answer("/a/new.xml",
                        {{.headers = {"Content-Type: Text/XML; charset=utf-8", "Set-Cookie: a=b"},
                          .body = "<rss/>"}});
        for (int i = 0; i < 2; ++i) {
            read(server().url("/old"));
            QCOMPARE(m_reason, QString());
            QCOMPARE(m_document.bytes, "<rss/>");
            QCOMPARE(m_document.mimeType, u"text/xml"_s);
            QCOMPARE(m_document.url, server().url("/a/new.xml"));
        }
        for (const Test::UpdateServer::Request& request : std::as_const(server().requests)) {
            QCOMPARE(request.headers.keys().join(' '),
                     "accept-encoding accept-language cache-control connection host pragma "
                     "user-agent");
            QCOMPARE(request.headers.value("user-agent"), "TavikLauncher/2.0");
            QCOMPARE(request.headers.value("accept-language"), "en");
            QCOMPARE(request.headers.value("accept-encoding"), "identity");
        }
    }

    void answersThatAreNoneAreToldApart_data()
    {
        const Table<Answer, QString> row;
        const QString broken = u"The connection to the server broke off."_s;
        row("gone", {.status = "410 Gone"}, u"The file is not on the server."_s);
        row("password", {.status = "401 Who"}, u"The server answered with an error (401)."_s);
        row("a piece", {.status = "206 Piece"}, u"The server answered with an error (206)."_s);
        row("in a circle",
            {.status = "302 Found", .headers = {"Location: /file"}},
            u"The server only points from one address to the next."_s);
        row("endless",
            {.body = QByteArray(100'001, 'x'), .isEndless = true},
            u"The file is larger than the 1 MB it may have."_s);
        row("endless refusal",
            {.status = "401 Who", .body = QByteArray(1'000'000, 'x'), .isEndless = true},
            u"The server sent far more than it was asked for."_s);
        row("packed",
            {.headers = {"Content-Encoding: gzip"}, .body = "\x1f\x8b"},
            u"The server sent something packed, which was refused."_s);
        row("broken off", {.body = "half of it", .endsAfter = 4}, broken);
    }

    void answersThatAreNoneAreToldApart()
    {
        const auto [answer, reason] = fetch<Answer, QString>();
        server().answer("/file", {answer});
        read(server().url("/file"));
        QCOMPARE(m_reason, reason);
        QCOMPARE(m_fixture->mainQueue.pendingTasks(), 0);
    }

    void serversThatCannotServeAreToldApart()
    {
        QUrl url = server().url("/file");
        server().answer("/file", {{.body = "x", .isEndless = true}});
        read(url, 1, 1 << 30);
        QCOMPARE(m_reason, u"The server is too slow."_s);
        url.setScheme(u"https"_s);
        read(url);
        QCOMPARE(m_reason, u"No protected connection to the server “127.0.0.1” could be made."_s);
        url.setPort(1);
        read(url);
        QCOMPARE(m_reason, u"The server “127.0.0.1” cannot be reached."_s);
        read(QUrl(u"http://example.org/"_s));
        QCOMPARE(m_reason, u"The file would come over an unprotected connection."_s);
    }

    void notesAreReadByTheirType()
    {
        using enum ReleaseNotes::Format;
        const std::tuple<QString, QString, std::optional<ReleaseNotes::Format>> rows[]
            = {{u"text/html"_s, u"/notes.md"_s, html},
               {u"text/markdown"_s, u"/notes"_s, markdown},
               {u"text/plain"_s, u"/notes.MD"_s, markdown},
               {u"text/plain"_s, u"/notes.html"_s, plainText},
               {QString(), u"/notes.txt"_s, plainText},
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
        Answer first = whole();
        first.endsAfter = 100'000;
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
        QCOMPARE(m_fixture->contents(m_file->path()), m_package);
        QCOMPARE(m_fixture->contents(other), "untouched");
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
        const Answer broken{.body = m_package, .endsAfter = 100'000}; // It cannot be continued.
        for (const Answer& answer : {broken, Answer{.status = "503 Busy"}}) {
            server().requests.clear();
            server().answer("/package", {answer});
            download(0.1);
            QVERIFY(!m_reason->isEmpty());
            QVERIFY(server().requests.size() <= 7);
            QCOMPARE(filesLeft(), QStringList());
            QCOMPARE(m_fixture->mainQueue.pendingTasks(), 0);
        }
    }

    void diskWithoutRoomEndsTheDownload()
    {
        const QString noRoom = u"There is not enough room for the update in the folder “%1”."_s.arg(
            m_fixture->tree.path());
        download(0.02, qint64(1) << 62);
        QCOMPARE(m_reason, noRoom);
        QVERIFY(server().requests.isEmpty());

        Answer stalled = whole();
        stalled.endsAfter = 100'000;
        server().answer("/package", {stalled, whole()});
        const std::unique_ptr<UpdateDownload> downloading = begin(u"part"_s);
        QVERIFY(m_fixture->play([this] { return server().requests.size() == 1; }));
        const FullDisk disk(200'000); // It fills meanwhile.
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
    [[nodiscard]] QStringList filesLeft() { return m_fixture->files(m_fixture->tree.path()); }

    /// Afterwards the reason is there, empty when all went well.
    void read(const QUrl& url, double secondsPerTurn = 0.002, qint64 mostBytes = 1'000'000)
    {
        m_reason.reset();
        const UpdateDocumentFetch fetching(
            m_fixture->transfer(),
            {.url = url, .subject = u"The file"_s, .mostBytes = mostBytes},
            [&](const UpdateDocument& document, const std::optional<QString>& why) {
                m_document = document;
                m_reason = why.value_or(QString());
            });
        QVERIFY(m_fixture->play([&] { return m_reason.has_value(); }, secondsPerTurn));
    }
    [[nodiscard]] std::unique_ptr<UpdateDownload> begin(const QString& name, qint64 length = 0)
    {
        m_reason.reset();
        return std::make_unique<UpdateDownload>(
            m_fixture->transfer(),
            UpdateDownload::Request{.url = server().url("/package"),
                                    .length = length > 0 ? length : m_package.size(),
                                    .path = m_fixture->tree.path(name)},
            UpdateDownload::Hooks{
                .progress = [this](qint64 received) { m_progress << received; },
                .finish =
                    [this](std::unique_ptr<PartFile> file, const QString& reason) {
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
    UpdateDocument m_document;
    std::unique_ptr<PartFile> m_file;
    std::optional<QString> m_reason;
    QList<qint64> m_progress;
};

QTEST_GUILESS_MAIN(TransferTest)
#include "TransferTest.moc"
