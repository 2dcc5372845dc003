// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Disk/FileDescriptor.h>

#include <QByteArray>
#include <QSocketNotifier>
#include <QString>

#include <functional>
#include <memory>

namespace Tavik {

namespace LocalSockets {

/// The toolkit may be in the middle of telling of it.
struct EndLater
{
    void operator()(QSocketNotifier* notifier) const
    {
        notifier->setEnabled(false);
        notifier->disconnect();
        notifier->deleteLater();
    }
};
using Notifier = std::unique_ptr<QSocketNotifier, EndLater>;

} // namespace LocalSockets

/// One end of a connection over a socket of this machine that has a path. Nothing waits: what the
/// other side does not take at once is sent when it does. The toolkit's own class would bring the
/// whole library for the network into every start. Main thread only.
class LocalSocket
{
public:
    /// Not open where nobody takes connections.
    explicit LocalSocket(const QString& path);
    /// The end that a `LocalListener` was given.
    explicit LocalSocket(FileDescriptor connection);
    LocalSocket(const LocalSocket&) = delete;
    LocalSocket& operator=(const LocalSocket&) = delete;
    ~LocalSocket() { close(); }

    [[nodiscard]] bool isOpen() const { return m_connection.isOpen(); }
    void send(const QByteArray& bytes);
    /// Hears nothing more, and closes when everything has been sent.
    void finish();
    /// What has not been sent is lost. `onClosed` is not called.
    void close();

    /// Either may destroy the socket.
    std::function<void(const QByteArray& bytes)> onReceived;
    /// The other side has gone, or takes nothing of very much.
    std::function<void()> onClosed;

private:
    void open();
    void receive();
    void sendWaiting();
    void lose();

    FileDescriptor m_connection;
    LocalSockets::Notifier m_readable;
    LocalSockets::Notifier m_writable;
    QByteArray m_waiting; ///< To be sent.
    bool m_isFinishing = false;
};

/// Takes connections at a path. Main thread only.
class LocalListener
{
public:
    LocalListener() = default;
    LocalListener(const LocalListener&) = delete;
    LocalListener& operator=(const LocalListener&) = delete;
    ~LocalListener() { close(); }

    /// In place of what lies there, for the user alone; false when it cannot.
    bool listen(const QString& path);
    [[nodiscard]] bool isListening() const { return m_socket.isOpen(); }
    /// Takes the path away, too.
    void close();

    std::function<void(FileDescriptor connection)> onConnection;

private:
    void accept();

    FileDescriptor m_socket;
    LocalSockets::Notifier m_readable;
    QByteArray m_path;
};

namespace LocalQuestion {

enum class Outcome {
    nobody, ///< Is there, or it closed the connection without a word.
    silent, ///< It is there, and has said nothing in time.
    answered,
};
struct Answer
{
    Outcome outcome = Outcome::nobody;
    QByteArray bytes;
};

/// Sends `words` to whoever listens at `path`, or at the name without a file if it begins with a
/// zero, and blocks for the answer: at least `enough` bytes of it, or all until the other side
/// closes. Waits a second to be taken, and `patience` seconds for each piece. Needs no application
/// object; any thread.
[[nodiscard]] Answer
ask(const QString& path, const QByteArray& words, qsizetype enough, int patience);

} // namespace LocalQuestion

} // namespace Tavik
