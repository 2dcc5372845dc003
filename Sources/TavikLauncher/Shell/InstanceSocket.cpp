// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/InstanceSocket.h>
#include <TavikLauncher/Shell/RuntimeFolder.h>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestLine = 1024;
constexpr char terminator = '\n';
constexpr qsizetype longestText = 65536;
constexpr int patience = 5; // In seconds.
/// Each sends its line at once; those that do not must not use up the files that may be open.
constexpr std::size_t mostConnections = 64;

std::optional<QString> socketPath()
{
    return RuntimeFolder::path(u"tavik-launcher.socket"_s);
}

} // namespace

InstanceSocket::InstanceSocket()
{
    m_listener.onConnection = [this](FileDescriptor connection) {
        accept(std::move(connection));
    };
}

bool InstanceSocket::listen()
{
    const std::optional<QString> path = socketPath();
    return path && m_listener.listen(*path);
}

void InstanceSocket::close()
{
    m_listener.close();
    for (Connection& connection : m_connections) {
        connection.socket.close();
    }
}

void InstanceSocket::accept(FileDescriptor connection)
{
    m_connections.remove_if([](const Connection& each) { return !each.socket.isOpen(); });
    if (m_connections.size() == mostConnections) {
        m_connections.pop_front();
    }
    Connection& taken = m_connections.emplace_back(std::move(connection));
    taken.socket.onReceived = [this, &taken](const QByteArray& bytes) {
        taken.received += bytes;
        read(taken);
    };
}

void InstanceSocket::read(Connection& connection)
{
    const qsizetype end = connection.received.indexOf(terminator);
    if (end < 0 || end >= longestLine) {
        if (connection.received.size() > longestLine) {
            connection.socket.close();
        }
        return;
    }
    const QString words = QString::fromUtf8(connection.received.left(end).trimmed());
    const std::optional<QString> text = onQuestion ? onQuestion(words) : std::nullopt;
    connection.socket.send(terminator + text.value_or(QString()).toUtf8());
    connection.socket.finish(); // One line each.
    if (onLine && !text && !words.isEmpty()) {
        onLine(words);
    }
}

InstanceAnswer InstanceSocket::send(const QString& line, QString* text)
{
    const std::optional<QString> path = socketPath();
    if (!path) {
        return InstanceAnswer::none;
    }
    // An instance that has just started reads its first line when it is ready for it.
    const auto [outcome, bytes]
        = LocalQuestion::ask(*path, line.toUtf8() + terminator, text ? longestText : 1, patience);
    if (text) {
        *text = QString::fromUtf8(bytes.mid(1));
    }
    using enum LocalQuestion::Outcome;
    return outcome == answered ? InstanceAnswer::given
        : outcome == silent    ? InstanceAnswer::silent
                               : InstanceAnswer::none;
}

} // namespace Tavik
