// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/SwayConnection.h>

#include <QJsonParseError>
#include <QLoggingCategory>
#include <QPointer>

#include <cstring>

namespace Tavik {

namespace {

Q_LOGGING_CATEGORY(log, "tavik.platform.desktops")

/// What every message begins with, before its length and its number in the machine's own order.
constexpr QByteArrayView magic("i3-ipc");
constexpr qsizetype headSize = magic.size() + qsizetype{2 * sizeof(quint32)};
/// A tree of thousands of windows is smaller.
constexpr quint32 longestMessage = 16 * 1024 * 1024;

quint32 numberAt(const QByteArray& bytes, qsizetype place)
{
    quint32 number = 0;
    std::memcpy(&number, bytes.constData() + place, sizeof number);
    return number;
}

void append(QByteArray& bytes, quint32 number)
{
    bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
}

} // namespace

SwayConnection::SwayConnection(const QString& socketPath)
    : m_socket(socketPath)
{
    m_socket.onReceived = [this](const QByteArray& bytes) {
        read(bytes);
    };
    m_socket.onClosed = [this] {
        closed();
    };
}

void SwayConnection::send(Request request, const QByteArray& payload)
{
    QByteArray message = magic.toByteArray();
    append(message, static_cast<quint32>(payload.size()));
    append(message, static_cast<quint32>(request));
    m_socket.send(message + payload);
}

void SwayConnection::read(const QByteArray& bytes)
{
    m_received += bytes;
    const QPointer<SwayConnection> self(this);
    while (self && takeMessage()) { }
}

bool SwayConnection::takeMessage()
{
    if (m_received.size() < headSize) {
        return false;
    }
    const quint32 size = numberAt(m_received, magic.size());
    const quint32 type = numberAt(m_received, magic.size() + qsizetype{sizeof size});
    if (!m_received.startsWith(magic) || size > longestMessage) {
        fail("what is no message");
        return false;
    }
    const qsizetype end = headSize + static_cast<qsizetype>(size);
    if (m_received.size() < end) {
        return false;
    }
    QJsonParseError error;
    const QJsonDocument content
        = QJsonDocument::fromJson(m_received.mid(headSize, qsizetype{size}), &error);
    m_received.remove(0, end);
    if (error.error != QJsonParseError::NoError) {
        fail("no JSON");
        return false;
    }
    if (onMessage) {
        onMessage(type, content);
    }
    return true;
}

void SwayConnection::fail(const char* fault)
{
    qCWarning(log, "sway's socket tells %s; nothing more is asked of it", fault);
    m_received.clear();
    m_socket.close();
    closed();
}

void SwayConnection::closed()
{
    if (!std::exchange(m_isClosed, true) && onClosed) {
        onClosed();
    }
}

} // namespace Tavik
