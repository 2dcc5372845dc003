// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Disk/FileDescriptor.h>
#include <TavikLauncherPlatform/Linux/Updates/FetchMessages.h>

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace Tavik {

/// One request to one address, made by a process of its own: what the toolkit does with what a
/// server says can be limited and ended there, and not here. Main thread only; the process ends
/// with this object, and with this program however that ends.
class FetchProcess
{
public:
    /// Why there was neither a whole answer nor a fault of the network.
    enum class Loss {
        outOfMemory, ///< What the server sent was too much for the process.
        broken, ///< It ended, or did not make sense.
    };
    /// None may destroy the object. Nothing comes after the last two.
    struct Hooks
    {
        std::function<void(const FetchAnswer&)> answer;
        std::function<void(const QByteArray&)> bytes;
        std::function<void(FetchEnd)> end;
        std::function<void(Loss)> lost;
    };

    /// Starts the program at that path; it may turn out that there is none, or no process to be
    /// had.
    FetchProcess(const QString& program, const FetchRequest& request, Hooks hooks);
    ~FetchProcess();
    FetchProcess(const FetchProcess&) = delete;
    FetchProcess& operator=(const FetchProcess&) = delete;

    [[nodiscard]] bool hasStarted() const { return m_process > 0; }
    /// Hears nothing for a while: the server has to wait.
    void setPaused(bool isPaused);
    /// Hears nothing any more.
    void stop();

private:
    void start(const QString& program, const FetchRequest& request);
    void read();
    void tell();
    void tell(const FetchMessages::Message& message);
    void lose();
    [[nodiscard]] int endProcess();

    Hooks m_hooks;
    int m_process = 0; ///< 0 when there is none.
    FileDescriptor m_connection;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QByteArray m_received; ///< And not yet told.
    bool m_isPaused = false;
    bool m_isAtEnd = false; ///< Nothing more will be received.
    bool m_isStopped = false;
};

} // namespace Tavik
