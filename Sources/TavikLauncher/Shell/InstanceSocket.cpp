// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/InstanceSocket.h>
#include <TavikLauncher/Shell/RuntimeFolder.h>

#include <QLocalSocket>
#include <QPointer>

#include <optional>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr int answerMilliseconds = 2000;
constexpr qint64 longestLine = 1024;
constexpr char terminator = '\n';

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

InstanceSocket::~InstanceSocket() = default;

InstanceSocket::Claim InstanceSocket::claim()
{
    const auto path = socketPath();
    const auto lockPath = RuntimeFolder::path(u"tavik-launcher.lock"_s);
    if (!path || !lockPath) {
        return Claim::unavailable;
    }
    m_lock = std::make_unique<QLockFile>(*lockPath);
    m_lock->setStaleLockTime(0);
    if (!m_lock->tryLock()) {
        return m_lock->error() == QLockFile::LockFailedError ? Claim::taken : Claim::unavailable;
    }
    // Whoever holds the lock owns the socket; what lies there is left from an instance that died.
    QLocalServer::removeServer(*path);
    return m_server.listen(*path) ? Claim::first : Claim::unavailable;
}

void InstanceSocket::accept()
{
    while (QLocalSocket* connection = m_server.nextPendingConnection()) {
        QObject::connect(
            connection, &QLocalSocket::disconnected, connection, &QObject::deleteLater);
        QObject::connect(connection, &QLocalSocket::readyRead, connection, [this, connection] {
            if (!connection->canReadLine()) {
                if (connection->bytesAvailable() > longestLine) {
                    connection->abort();
                }
                return;
            }
            const QByteArray line = connection->readLine(longestLine).trimmed();
            connection->write(&terminator, 1);
            connection->flush(); // The line may be the one that ends this program.
            connection->disconnectFromServer();
            if (onLine) {
                onLine(QString::fromLatin1(line));
            }
        });
    }
}

bool InstanceSocket::forward(const QString& line)
{
    const auto path = socketPath();
    if (!path) {
        return false;
    }
    QLocalSocket socket;
    socket.connectToServer(*path);
    if (!socket.waitForConnected(answerMilliseconds)) {
        return false;
    }
    socket.write(line.toLatin1() + terminator);
    return socket.waitForReadyRead(answerMilliseconds);
}

} // namespace Tavik
