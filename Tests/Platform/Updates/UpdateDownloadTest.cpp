// SPDX-License-Identifier: MIT
#include "UpdateFixture.h"
#include <TavikLauncherPlatform/Linux/Updates/UpdateDownload.h>

#include <QRegularExpression>

#include <csignal>

#include <sys/resource.h>

using namespace Tavik;
using namespace Qt::StringLiterals;
using Answer = Test::UpdateServer::Answer;

Q_DECLARE_METATYPE(QList<Answer>)

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

const QString otherLength
    = u"The update on the server is not the one that was announced: its length is another."_s;

} // namespace

class UpdateDownloadTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(u".*"_s));
        m_fixture = std::make_unique<Test::UpdateFixture>();
        m_file.reset();
        m_reason = QString();
        m_progress.clear();
        m_length = m_package.size();
    }

    void completeFileIsThisUsersAlone()
    {
        // A link that waits under the file's name is not written through.
        const QString other = m_fixture->tree.write(u"other"_s, "untouched");
        m_fixture->tree.link(other, u"part"_s);
        m_fixture->server.answer("/package", {whole()});
        download();
        QCOMPARE(m_reason, QString());
        QCOMPARE(m_fixture->contents(m_file->path()), m_package);
        QCOMPARE(m_fixture->contents(other), "untouched");
        QCOMPARE(QFile::permissions(m_file->path()) & ~QFile::Permissions(0x7000),
                 QFile::ReadUser | QFile::WriteUser);
        m_file.reset();
        QVERIFY(!QFile::exists(m_fixture->tree.path(u"part"_s)));
    }

    void brokenConnectionIsContinued_data()
    {
        QTest::addColumn<QList<Answer>>("answers");
        QTest::addColumn<QByteArray>("secondRange");
        Answer first = whole();
        first.endsAfter = 100'000;
        Answer untagged = first;
        untagged.headers = {"ETag: W/\"weak\""};
        Answer changed = whole();
        changed.headers = {"ETag: \"another\""};
        const Answer noRange{.status = "416 No"};
        const Answer elsewhere{.status = "206 Piece",
                               .headers = {"Content-Range: bytes 5-9/" + size()},
                               .body = "01234"};
        const Answer busy{.status = "503 Busy"};
        const QByteArray rest = "bytes=100000-";
        QTest::newRow("where it was") << QList<Answer>{first, whole()} << rest;
        QTest::newRow("again and again") << QList<Answer>{first, busy, busy, busy, whole()} << rest;
        QTest::newRow("without a tag") << QList<Answer>{untagged, whole()} << QByteArray();
        QTest::newRow("another file now") << QList<Answer>{first, changed} << rest;
        QTest::newRow("pieces refused") << QList<Answer>{first, noRange, whole()} << rest;
        QTest::newRow("another piece") << QList<Answer>{first, elsewhere, whole()} << rest;
    }

    void brokenConnectionIsContinued()
    {
        QFETCH(const QList<Answer>, answers);
        m_fixture->server.answer("/package", answers);
        download();
        QCOMPARE(m_reason, QString());
        QCOMPARE(m_fixture->contents(m_file->path()), m_package);
        QTEST(m_fixture->server.requests.at(1).headers.value("range"), "secondRange");
    }

    void wrongFilesAreRefusedAndRemoved_data()
    {
        QTest::addColumn<QList<Answer>>("answers");
        QTest::addColumn<QString>("reason");
        const auto row = [](const char* name, const Answer& answer, const QString& reason) {
            QTest::newRow(name) << QList<Answer>{answer} << reason;
        };
        Answer cut = whole();
        cut.body.chop(1);
        Answer endless = whole();
        endless.isEndless = true;
        Answer broken = whole();
        broken.headers.clear();
        broken.endsAfter = 10;
        row("shorter", cut, otherLength);
        row("endless", endless, otherLength);
        row("not there", {.status = "404 No"}, u"The update is not on the server."_s);
        row("always broken off", broken, u"The connection to the server broke off."_s);
        row("always busy", {.status = "503 Busy"}, u"The server answered with an error (503)."_s);
        row("to plain HTTP",
            {.status = "302 Found", .headers = {"Location: http://192.0.2.1/"}},
            u"The server wanted to go on over an unprotected connection, which was refused."_s);
    }

    void wrongFilesAreRefusedAndRemoved()
    {
        QFETCH(const QList<Answer>, answers);
        m_fixture->server.answer("/package", answers);
        download(0.05);
        QTEST(m_reason, "reason");
        QCOMPARE(m_fixture->files(m_fixture->tree.path()), QStringList());
        QCOMPARE(m_fixture->mainQueue.pendingTasks(), 0);
    }

    void missingRoomIsNoticedBeforeTheFirstByte()
    {
        m_length = qint64(1) << 62;
        download();
        QCOMPARE(m_reason,
                 u"There is not enough room for the update in the folder “%1”."_s.arg(
                     m_fixture->tree.path()));
        QVERIFY(m_fixture->server.requests.isEmpty());
        QCOMPARE(m_fixture->files(m_fixture->tree.path()), QStringList());
    }

    void diskThatFillsEndsTheDownload()
    {
        Answer stalled = whole();
        stalled.endsAfter = 100'000;
        m_fixture->server.answer("/package", {stalled, whole()});
        const std::unique_ptr<UpdateDownload> downloading = begin();
        QVERIFY(m_fixture->play([this] { return m_fixture->server.requests.size() == 1; }));
        {
            const FullDisk disk(200'000);
            QVERIFY(m_fixture->play([this] { return m_isDone; }, 0.05));
        }
        QVERIFY2(m_reason.startsWith(u"There is not enough room"_s), qPrintable(m_reason));
        QCOMPARE(m_fixture->files(m_fixture->tree.path()), QStringList());
    }

    void missingFolderIsNamed()
    {
        m_path = m_fixture->tree.path(u"none/part"_s);
        download();
        QCOMPARE(
            m_reason,
            u"The update could not be written to the folder “%1”: No such file or directory."_s.arg(
                m_fixture->tree.path(u"none"_s)));
    }

    void progressGrowsAndCancellingRemovesTheFile()
    {
        Answer stalled = whole();
        stalled.endsAfter = 100'000;
        stalled.stalls = true;
        m_fixture->server.answer("/package", {stalled});
        std::unique_ptr<UpdateDownload> downloading = begin();
        QVERIFY(
            m_fixture->play([this] { return m_progress.value(m_progress.size() - 1) == 100'000; }));
        QVERIFY(std::ranges::is_sorted(m_progress));
        downloading.reset();
        QVERIFY(!m_isDone);
        QCOMPARE(m_fixture->files(m_fixture->tree.path()), QStringList());
        QCOMPARE(m_fixture->mainQueue.pendingTasks(), 0);
    }

private:
    [[nodiscard]] Answer whole() const { return Test::UpdateServer::file(m_package, "a/b"); }
    [[nodiscard]] QByteArray size() const { return QByteArray::number(m_package.size()); }

    [[nodiscard]] std::unique_ptr<UpdateDownload> begin()
    {
        m_isDone = false;
        return std::make_unique<UpdateDownload>(
            m_fixture->transfer(),
            UpdateDownload::Request{.url = m_fixture->server.url("/package"),
                                    .length = m_length,
                                    .path = m_path.isEmpty() ? m_fixture->tree.path(u"part"_s)
                                                             : std::exchange(m_path, {})},
            UpdateDownload::Hooks{
                .progress = [this](qint64 received) { m_progress << received; },
                .finish =
                    [this](std::unique_ptr<PartFile> file, const QString& reason) {
                        m_file = std::move(file);
                        m_reason = reason;
                        m_isDone = true;
                    }});
    }
    void download(double secondsPerTurn = 0.02)
    {
        const std::unique_ptr<UpdateDownload> downloading = begin();
        QVERIFY(m_fixture->play([this] { return m_isDone; }, secondsPerTurn));
        QCOMPARE(m_file == nullptr, !m_reason.isEmpty());
    }

    const QByteArray m_package = package();
    std::unique_ptr<Test::UpdateFixture> m_fixture;
    std::unique_ptr<PartFile> m_file;
    QString m_path;
    qint64 m_length = 0; ///< As announced.
    QString m_reason;
    QList<qint64> m_progress;
    bool m_isDone = false;
};

QTEST_GUILESS_MAIN(UpdateDownloadTest)
#include "UpdateDownloadTest.moc"
