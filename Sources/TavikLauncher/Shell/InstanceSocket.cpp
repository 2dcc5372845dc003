// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/InstanceSocket.h>
#include <TavikLauncher/Shell/RuntimeFolder.h>

#include <QLocalSocket>

#include <optional>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr int connectMilliseconds = 1000;
/// An instance that has just started reads its first line when it is ready for it.
constexpr int answerMilliseconds = 5000;
constexpr qint64 longestLine = 1024;
const QByteArray terminator = QByteArrayLiteral("\n");
constexpr qsizetype longestText = 65536;

std::optional<QString> socketPath()
{
    return RuntimeFolder::path(u"tavik-launcher.socket"_s);
}

} // namespace

InstanceSocket::InstanceSocket()
{
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(&m_server, &QLocalServer::newConnection, &m_server, [this] { accept(); });
}

InstanceSocket::~InstanceSocket()
{
    close();
}

bool InstanceSocket::listen()
{
    const std::optional<QString> path = socketPath();
    if (!path) {
        return false;
    }
    QLocalServer::removeServer(*path);
    return m_server.listen(*path);
}

void InstanceSocket::close()
{
    m_server.close();
    for (QLocalSocket* connection : m_server.findChildren<QLocalSocket*>()) {
        connection->disconnect(&m_server);
        connection->abort();
    }
}

void InstanceSocket::accept()
{
    while (QLocalSocket* connection = m_server.nextPendingConnection()) {
        QObject::connect(
            connection, &QLocalSocket::disconnected, connection, &QObject::deleteLater);
        QObject::connect(connection, &QLocalSocket::readyRead, &m_server, [this, connection] {
            read(*connection);
        });
    }
}

void InstanceSocket::read(QLocalSocket& connection)
{
    if (!m_server.isListening()) {
        return;
    }
    if (!connection.canReadLine()) {
        if (connection.bytesAvailable() > longestLine) {
            connection.abort();
        }
        return;
    }
    const QByteArray line = connection.readLine(longestLine).trimmed();
    connection.disconnect(&m_server); // One line each.
    const QString words = QString::fromUtf8(line);
    const std::optional<QString> text = onQuestion ? onQuestion(words) : std::nullopt;
    connection.write(terminator + text.value_or(QString()).toUtf8());
    connection.flush(); // The line may be the one that ends this program.
    connection.disconnectFromServer();
    if (onLine && !text && !line.isEmpty()) {
        onLine(words);
    }
}

InstanceAnswer InstanceSocket::send(const QString& line, QString* text)
{
    const std::optional<QString> path = socketPath();
    if (!path) {
        return InstanceAnswer::none;
    }
    QLocalSocket socket;
    socket.connectToServer(*path);
    if (!socket.waitForConnected(connectMilliseconds)) {
        return InstanceAnswer::none;
    }
    socket.write(line.toUtf8() + terminator);
    if (socket.waitForReadyRead(answerMilliseconds)) {
        if (text) {
            QByteArray read = socket.readAll();
            while (read.size() < longestText && socket.waitForReadyRead(answerMilliseconds)) {
                read += socket.readAll();
            }
            *text = QString::fromUtf8(read.mid(terminator.size()));
        }
        return InstanceAnswer::given;
    }
    // A connection that was closed without an answer was not read.
    return socket.state() == QLocalSocket::ConnectedState ? InstanceAnswer::silent
                                                          : InstanceAnswer::none;
}

} // namespace Tavik
