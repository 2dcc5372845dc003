// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Session/LocalSocket.h>

#include <QByteArray>
#include <QJsonDocument>
#include <QObject>

#include <functional>

namespace Tavik {

/// A connection to sway over the socket that it offers to programs: commands, questions and
/// events as JSON. What comes over it is believed to be nothing but bytes: a message that cannot be
/// read ends the connection. Main thread only; never waits.
class SwayConnection final : public QObject
{
public:
    enum class Request : quint32 {
        runCommand = 0,
        subscribe = 2,
        tree = 4,
        configuration = 9,
    };
    /// The answer to a request bears its number, an event one of these.
    enum class Event : quint32 {
        workspace = 0x80000000,
        window = 0x80000003,
        shutdown = 0x80000006,
        binding = 0x80000005,
    };

    /// Nothing is connected where nobody takes connections.
    explicit SwayConnection(const QString& socketPath);

    [[nodiscard]] bool isOpen() const { return m_socket.isOpen(); }
    void send(Request request, const QByteArray& payload = {});

    /// Receives every answer and event, by its number.
    std::function<void(quint32 type, const QJsonDocument&)> onMessage;
    /// The other side has gone, or has sent what is no message.
    std::function<void()> onClosed;

private:
    void read(const QByteArray& bytes);
    /// Returns whether there was a whole message.
    [[nodiscard]] bool takeMessage();
    void fail(const char* fault);
    void closed();

    LocalSocket m_socket;
    QByteArray m_received;
    bool m_isClosed = false;
};

} // namespace Tavik
