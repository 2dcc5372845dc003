// SPDX-License-Identifier: MIT
#include "UpdateFixture.h"
#include <TavikLauncherPlatform/Linux/Updates/UpdateDocument.h>

#include <QRegularExpression>

using namespace Tavik;
using namespace Qt::StringLiterals;
using Answer = Test::UpdateServer::Answer;

Q_DECLARE_METATYPE(Answer)

class UpdateTransferTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(u".*"_s));
        m_reason.reset();
    }

    void documentComesWithItsTypeAndNothingPrivateIsSent()
    {
        Test::UpdateFixture fixture;
        fixture.server.answer("/old",
                              {{.status = "301 Moved", .headers = {"Location: /a/new.xml"}}});
        fixture.server.answer(
            "/a/new.xml",
            {{.headers = {"Content-Type: Text/XML; charset=utf-8", "Set-Cookie: a=b"},
              .body = "<rss/>"}});
        for (int i = 0; i < 2; ++i) {
            fetch(fixture, fixture.server.url("/old"));
            QCOMPARE(m_reason.value_or(QString()), QString());
            QCOMPARE(m_document.bytes, "<rss/>");
            QCOMPARE(m_document.mimeType, u"text/xml"_s);
            QCOMPARE(m_document.url, fixture.server.url("/a/new.xml"));
        }
        const QStringList known{u"accept-encoding"_s,
                                u"accept-language"_s,
                                u"cache-control"_s,
                                u"connection"_s,
                                u"host"_s,
                                u"pragma"_s,
                                u"user-agent"_s};
        for (const Test::UpdateServer::Request& request : std::as_const(fixture.server.requests)) {
            QStringList names;
            for (const QByteArray& name : request.headers.keys()) {
                names << QString::fromLatin1(name);
            }
            QCOMPARE(names, known);
            QCOMPARE(request.headers.value("user-agent"), "TavikLauncher/2.0");
            QCOMPARE(request.headers.value("accept-language"), "en");
            QCOMPARE(request.headers.value("accept-encoding"), "identity");
        }
    }

    void faultsAreToldApart_data()
    {
        QTest::addColumn<Answer>("answer");
        QTest::addColumn<QString>("reason");
        const auto row = [](const char* name, const Answer& answer, const QString& reason) {
            QTest::newRow(name) << answer << reason;
        };
        const QByteArray large(1'000'001, 'x');
        const auto redirect = [](const QByteArray& target) {
            return Answer{.status = "302 Found", .headers = {"Location: " + target}};
        };
        const QString unprotected
            = u"The server wanted to go on over an unprotected connection, which was refused."_s;
        row("not there", {.status = "404 Not Found"}, u"The file is not on the server."_s);
        row("gone", {.status = "410 Gone"}, u"The file is not on the server."_s);
        row("error", {.status = "500 Oh"}, u"The server answered with an error (500)."_s);
        row("password", {.status = "401 Who"}, u"The server answered with an error (401)."_s);
        row("a piece", {.status = "206 Piece"}, u"The server answered with an error (206)."_s);
        row("nothing", {.status = "204 No"}, u"The server answered with an error (204)."_s);
        row("to plain HTTP", redirect("http://192.0.2.1/feed.xml"), unprotected);
        row("to a file", redirect("file:///etc/passwd"), unprotected);
        row("in a circle",
            redirect("/file"),
            u"The server only points from one address to the next."_s);
        row("announced too large",
            {.body = large},
            u"The file is larger than the 1 MB it may have."_s);
        row("endless",
            {.body = large, .isEndless = true},
            u"The file is larger than the 1 MB it may have."_s);
        row("packed",
            {.headers = {"Content-Encoding: gzip"}, .body = "\x1f\x8b"},
            u"The server sent something packed, which was refused."_s);
        row("broken off",
            {.body = "half of it", .endsAfter = 4},
            u"The connection to the server broke off."_s);
        row("stalled",
            {.body = "half of it", .endsAfter = 4, .stalls = true},
            u"The server stopped answering."_s);
        row("silent",
            {.headers = {"Content-Length: 9"}, .stalls = true},
            u"The server stopped answering."_s);
    }

    void faultsAreToldApart()
    {
        QFETCH(const Answer, answer);
        QFETCH(const QString, reason);
        Test::UpdateFixture fixture;
        fixture.server.answer("/file", {answer});
        fetch(fixture, fixture.server.url("/file"), answer.stalls ? 0.5 : 0.002);
        QCOMPARE(m_reason.value_or(u"nothing"_s), reason);
        QCOMPARE(fixture.mainQueue.pendingTasks(), 0);
    }

    void dripIsNotWaitedForLong()
    {
        Test::UpdateFixture fixture;
        fixture.server.answer("/file", {{.body = "x", .isEndless = true}});
        const UpdateDocumentFetch drip(
            fixture.transfer(),
            {.url = fixture.server.url("/file"), .subject = u"The file"_s, .mostBytes = 1 << 30},
            [this](const UpdateDocument&, const std::optional<QString>& why) { m_reason = why; });
        QVERIFY(fixture.play([this] { return m_reason.has_value(); }, 0.1));
        QCOMPARE(*m_reason, u"The server is too slow."_s);
    }

    void serverThatCannotBeReachedIsNamed()
    {
        Test::UpdateFixture fixture;
        QUrl url = fixture.server.url("/file");
        url.setPort(1);
        fetch(fixture, url);
        QCOMPARE(m_reason.value_or(QString()), u"The server “127.0.0.1” cannot be reached."_s);
        fetch(fixture, QUrl(u"http://example.org/"_s));
        QCOMPARE(m_reason.value_or(QString()),
                 u"The file would come over an unprotected connection."_s);
    }

    void certificateMustBeTrusted()
    {
        Test::UpdateFixture fixture;
        Test::UpdateServer selfSigned(Test::UpdateServer::Protection::selfSigned);
        selfSigned.answer("/file", {{.body = "x"}});
        fetch(fixture, selfSigned.url("/file"));
        QVERIFY2(m_reason.value_or(QString()).contains(u"its certificate is not valid"_s),
                 qPrintable(m_reason.value_or(QString())));
        QVERIFY(selfSigned.requests.isEmpty());

        QUrl unprotected = fixture.server.url("/file");
        unprotected.setScheme(u"https"_s);
        fetch(fixture, unprotected);
        QCOMPARE(m_reason.value_or(QString()),
                 u"No protected connection to the server “127.0.0.1” could be made."_s);
    }

    void cancellingLeavesNothingBehind()
    {
        Test::UpdateFixture fixture;
        fixture.server.answer("/file", {{.body = "half of it", .endsAfter = 4, .stalls = true}});
        auto fetching = std::make_unique<UpdateDocumentFetch>(
            fixture.transfer(),
            UpdateDocumentFetch::Request{.url = fixture.server.url("/file"), .mostBytes = 100},
            [](const UpdateDocument&, const std::optional<QString>&) {
                QFAIL("It was cancelled.");
            });
        QVERIFY(fixture.play([&] { return !fixture.server.requests.isEmpty(); }));
        fetching.reset();
        QCOMPARE(fixture.mainQueue.pendingTasks(), 0);
    }

    void notesAreReadByTheirType_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("path");
        QTest::addColumn<int>("format");
        constexpr int none = -1;
        const int plain = int(ReleaseNotes::Format::plainText);
        const int html = int(ReleaseNotes::Format::html);
        const int markdown = int(ReleaseNotes::Format::markdown);
        QTest::newRow("page") << u"text/html"_s << u"/notes.md"_s << html;
        QTest::newRow("markdown") << u"text/markdown"_s << u"/notes"_s << markdown;
        QTest::newRow("markdown as text") << u"text/plain"_s << u"/notes.MD"_s << markdown;
        QTest::newRow("text") << u"text/plain"_s << u"/notes.html"_s << plain;
        QTest::newRow("unnamed") << QString() << u"/notes.txt"_s << plain;
        QTest::newRow("unknown") << u"application/octet-stream"_s << u"/notes"_s << html;
        QTest::newRow("picture") << u"image/png"_s << u"/notes.html"_s << none;
    }

    void notesAreReadByTheirType()
    {
        QFETCH(const QString, type);
        QFETCH(const QString, path);
        UpdateDocument document{
            .bytes = "Grün", .url = QUrl(u"https://example.org"_s + path), .mimeType = type};
        const std::optional<ReleaseNotes> notes = releaseNotes(document);
        QTEST(notes ? int(notes->format) : -1, "format");
        QCOMPARE(notes ? notes->text : u"Grün"_s, u"Grün"_s);
        document.bytes.append('\0');
        QVERIFY(!releaseNotes(document));
    }

private:
    void fetch(Test::UpdateFixture& fixture, const QUrl& url, double secondsPerTurn = 0.002)
    {
        bool isDone = false;
        const UpdateDocumentFetch fetching(
            fixture.transfer(),
            {.url = url, .subject = u"The file"_s, .mostBytes = 1'000'000},
            [&](const UpdateDocument& document, const std::optional<QString>& why) {
                m_document = document;
                m_reason = why;
                isDone = true;
            });
        QVERIFY(fixture.play([&] { return isDone; }, secondsPerTurn));
    }

    UpdateDocument m_document;
    std::optional<QString> m_reason;
};

QTEST_GUILESS_MAIN(UpdateTransferTest)
#include "UpdateTransferTest.moc"
