// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QSslServer>
#include <QTcpServer>
#include <QUrl>

#include <functional>
#include <memory>

class QTcpSocket;

namespace Tavik::Test {

/// A web server on this machine that does what a test tells it, faults included.
class UpdateServer
{
public:
    struct Request
    {
        QByteArray path;
        QMap<QByteArray, QByteArray> headers; ///< Names in small letters.
    };
    struct Answer
    {
        QByteArray status = "200 OK";
        QByteArrayList headers; ///< Besides the length, which is announced unless one is here.
        QByteArray body;
        qint64 endsAfter = -1; ///< The connection is cut after so many bytes of the body.
        bool stalls = false; ///< Instead of the end of the body, nothing.
        bool isEndless = false; ///< The body comes again and again.
    };
    enum class Protection {
        none,
        selfSigned, ///< By a maker that nobody trusts.
    };

    explicit UpdateServer(Protection protection = Protection::none);

    /// While it is set, a process that calls this at its start trusts the servers that are
    /// `selfSigned`.
    static constexpr const char* trustVariable = "TAVIK_TEST_TRUST";
    static void trustAsTold();

    [[nodiscard]] QUrl url(const QByteArray& path) const;
    /// The answers to requests for a path, in turn; the last one also to all that follow.
    void answer(const QByteArray& path, const QList<Answer>& answers);
    [[nodiscard]] static Answer file(const QByteArray& body, const QByteArray& mimeType)
    {
        return {.headers = {"Content-Type: " + mimeType, "ETag: \"tag\""}, .body = body};
    }

    [[nodiscard]] Answer answerTo(const QByteArray& path) const
    {
        return m_answers.value(path).value(0);
    }

    QList<Request> requests; ///< In order.

private:
    void accept();
    void read(QTcpSocket& socket);
    void reply(QTcpSocket& socket, const Request& request);
    [[nodiscard]] Answer nextAnswer(const QByteArray& path);

    std::unique_ptr<QTcpServer> m_server;
    bool m_isProtected = false;
    QByteArray m_lastProcess; ///< Which process sent the last request; each sends one.
    QMap<QByteArray, QList<Answer>> m_answers;
};

} // namespace Tavik::Test
