// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Shell/AppRequest.h>
#include <TavikLauncherPlatform/Linux/Session/LocalSocket.h>

#include <QString>

#include <functional>
#include <list>
#include <optional>
#include <utility>

namespace Tavik {

/// A local socket in the user's runtime folder, which only the user can reach: where other starts
/// find the one that runs, with a session bus or without. One line is sent per connection and
/// answered with a byte, and perhaps a text. An empty line asks only whether anybody is there.
class InstanceSocket
{
public:
    InstanceSocket();
    InstanceSocket(const InstanceSocket&) = delete;
    InstanceSocket& operator=(const InstanceSocket&) = delete;

    /// In place of what lies there; only the one instance may. False where there is no runtime
    /// folder of the user's own. From then on `onLine` is called with what other starts send.
    bool listen();
    /// Whoever has no answer yet gets none, and may try elsewhere.
    void close();

    /// Hands a line to the instance that listens; with a place for it, its text is waited for, too.
    /// Blocks for as long as that takes, at most a few seconds. Needs no application object.
    [[nodiscard]] static InstanceAnswer send(const QString& line, QString* text = nullptr);

    std::function<void(const QString& line)> onLine;
    /// Answers a line that is a question; for others nothing, and `onLine` gets them.
    std::function<std::optional<QString>(const QString& line)> onQuestion;

private:
    struct Connection
    {
        explicit Connection(FileDescriptor descriptor)
            : socket(std::move(descriptor))
        { }

        LocalSocket socket;
        QByteArray received;
    };
    void accept(FileDescriptor connection);
    void read(Connection& connection);

    LocalListener m_listener;
    std::list<Connection> m_connections; ///< Closed ones go when the next comes.
};

} // namespace Tavik
