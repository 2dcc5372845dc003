// SPDX-License-Identifier: MIT
#include "UpdateServer.h"

#include <QFile>
#include <QHostAddress>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QTcpSocket>

namespace Tavik::Test {

using namespace Qt::StringLiterals;

namespace {

/// Made for these tests.
constexpr const char* certificate
    = "MIIBmDCCAT+gAwIBAgIUCImfjEm/wFEN51b7N5U6dkBYe6YwCgYIKoZIzj0EAwIwFDESMBAGA1UEAwwJbG9jYWxo"
      "b3N0MB4XDTI2MTEyMTEyMjUyMFoXDTM2MTExODEyMjUyMFowFDESMBAGA1UEAwwJbG9jYWxob3N0MFkwEwYHKoZI"
      "zj0CAQYIKoZIzj0DAQcDQgAENDSaUkrmFfZAipHYddst/3niOuI3YxNimFaJQY5dBOCL/wFAWlNoYblnpYBvHzOQ"
      "ddhzqNglcchpFTSpbUVhfqNvMG0wHQYDVR0OBBYEFIBuCbUnqi0k3j6OqhrpxhfcJSUHMB8GA1UdIwQYMBaAFIBu"
      "CbUnqi0k3j6OqhrpxhfcJSUHMA8GA1UdEwEB/wQFMAMBAf8wGgYDVR0RBBMwEYcEfwAAAYIJbG9jYWxob3N0MAoG"
      "CCqGSM49BAMCA0cAMEQCIFDJCmfxSBUMyCxoBOyJdUN6oqEW8GZ1v0X0o8LsJU75AiAJ+NJodVSL7xjdcVYnOkK3"
      "HF/uU0z93BizWYXiUBCBPQ==";
constexpr const char* certificateKey
    = "MIGHAgEAMBMGByqGSM49AgEGCCqGSM49AwEHBG0wawIBAQQgNfr2F3bRbDkjfWuwHCdB8SeW+ULwqT3ahGc15SEn"
      "v6ShRANCAAQ0NJpSSuYV9kCKkdh12y3/eeI64jdjE2KYVolBjl0E4Iv/AUBaU2hhuWelgG8fM5B12HOo2CVxyGkV"
      "NKltRWF+";

QSslCertificate ownCertificate()
{
    return QSslCertificate(QByteArray::fromBase64(certificate), QSsl::Der);
}

std::unique_ptr<QTcpServer> makeServer(UpdateServer::Protection protection)
{
    if (protection == UpdateServer::Protection::none) {
        return std::make_unique<QTcpServer>();
    }
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(ownCertificate());
    configuration.setPrivateKey(
        QSslKey(QByteArray::fromBase64(certificateKey), QSsl::Ec, QSsl::Der));
    auto server = std::make_unique<QSslServer>();
    server->setSslConfiguration(configuration);
    return server;
}

/// The number of the one process that fetches, empty when there is none. What asks is a child of
/// this very thread.
QByteArray fetchingProcess()
{
    QFile children(u"/proc/thread-self/children"_s);
    return children.open(QIODevice::ReadOnly) ? children.readAll().simplified() : QByteArray();
}

UpdateServer::Request parse(const QByteArray& head)
{
    QByteArrayList lines = head.split('\n');
    UpdateServer::Request request{.path = lines.takeFirst().split(' ').value(1)};
    for (const QByteArray& line : lines) {
        const qsizetype colon = line.indexOf(':');
        if (colon > 0) {
            request.headers.insert(line.left(colon).trimmed().toLower(),
                                   line.mid(colon + 1).trimmed());
        }
    }
    return request;
}

} // namespace

UpdateServer::UpdateServer(Protection protection)
    : m_server(makeServer(protection))
    , m_isProtected(protection != Protection::none)
{
    QTcpServer* server = m_server.get();
    QObject::connect(server, &QTcpServer::pendingConnectionAvailable, server, [this] { accept(); });
    if (!m_server->listen(QHostAddress::LocalHost)) {
        qFatal("No server can be started.");
    }
}

void UpdateServer::trustAsTold()
{
    if (qEnvironmentVariableIsSet(trustVariable)) {
        QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
        configuration.addCaCertificate(ownCertificate());
        QSslConfiguration::setDefaultConfiguration(configuration);
    }
}

QUrl UpdateServer::url(const QByteArray& path) const
{
    const QString scheme = m_isProtected ? u"https"_s : u"http"_s;
    return QUrl(u"%1://127.0.0.1:%2%3"_s.arg(scheme)
                    .arg(m_server->serverPort())
                    .arg(QString::fromLatin1(path)));
}

void UpdateServer::answer(const QByteArray& path, const QList<Answer>& answers)
{
    m_answers.insert(path, answers);
}

void UpdateServer::accept()
{
    while (QTcpSocket* socket = m_server->nextPendingConnection()) {
        QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { read(*socket); });
        QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    }
}

void UpdateServer::read(QTcpSocket& socket)
{
    constexpr char handshake = 0x16;
    const QByteArray start = socket.peek(socket.bytesAvailable());
    if (start.startsWith(handshake)) {
        socket.write("HTTP/1.1 400 What?\r\n\r\n");
        socket.disconnectFromHost();
    }
    if (!start.contains("\r\n\r\n")) {
        return;
    }
    // When an answer was cut, the toolkit sometimes asks again just before its process ends, and
    // waits for nothing more. That is no request.
    const QByteArray process = fetchingProcess();
    if (process.isEmpty() || process == m_lastProcess) {
        socket.abort();
        return;
    }
    m_lastProcess = process;
    const Request request = parse(socket.readAll());
    requests << request;
    reply(socket, request);
}

UpdateServer::Answer UpdateServer::nextAnswer(const QByteArray& path)
{
    if (!m_answers.contains(path)) {
        return {.status = "404 Not Found", .body = "no such file"};
    }
    QList<Answer>& answers = m_answers[path];
    return answers.size() > 1 ? answers.takeFirst() : answers.first();
}

void UpdateServer::reply(QTcpSocket& socket, const Request& request)
{
    const Answer answer = nextAnswer(request.path);
    QByteArray head = "HTTP/1.1 " + answer.status + "\r\nConnection: close\r\n";
    for (const QByteArray& header : answer.headers) {
        head += header + "\r\n";
    }
    if (!answer.isEndless && !head.contains("Content-Length:")) {
        head += "Content-Length: " + QByteArray::number(answer.body.size()) + "\r\n";
    }
    socket.write(head + "\r\n" + answer.body.mid(0, answer.endsAfter));
    if (answer.isEndless) {
        QObject::connect(&socket, &QTcpSocket::bytesWritten, &socket, [&socket, answer] {
            socket.write(answer.body);
        });
    } else if (!answer.stalls) {
        socket.disconnectFromHost();
    }
}

} // namespace Tavik::Test
