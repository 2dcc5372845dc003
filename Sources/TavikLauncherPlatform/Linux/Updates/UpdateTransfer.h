// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Updates/FetchProcess.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateReply.h>
#include <TavikLauncherPlatform/MainQueue.h>

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

namespace Tavik {

/// One file from a server, piece by piece. Fetches only where `mayFetch` allows, asks it again of
/// every redirect, follows none from HTTPS to HTTP, trusts no certificate that the system does not,
/// and gives up on servers that stall. Nothing is sent but the request: no cookies, no credentials,
/// no language, no system. Every address is asked by a process of its own. Main thread only.
class UpdateTransfer
{
public:
    struct Patience
    {
        double windowSeconds = 20; ///< In every such time something must come:
        qint64 leastBytes = 1024; ///< at least so much, unless it is the end.
        double totalSeconds = 0; ///< For all of it; 0 for any time.
    };
    struct Request
    {
        QUrl url;
        QString subject; ///< What is fetched, as the beginning of a sentence.
        qint64 mostBytes = 0;
        qint64 startsAt = 0; ///< More than 0: only the rest from there, if the file is the one
        QByteArray validator; ///< that this stands for.
        Patience patience;
    };
    /// The first two return why it should not go on, and must not destroy the transfer; the last is
    /// called once, and may.
    struct Hooks
    {
        std::function<std::optional<TransferFault>(const TransferHead&)> begin;
        std::function<std::optional<TransferFault>(const QByteArray&)> take;
        std::function<void(const std::optional<TransferFault>&)> finish;
    };
    struct Dependencies
    {
        MainQueue& mainQueue;
        QString fetchProgram; ///< The path of `FetchProgram`.
        QByteArray userAgent;
    };

    /// Begins. Destroying the transfer cancels it.
    UpdateTransfer(const Dependencies& dependencies, Request request, Hooks hooks);
    ~UpdateTransfer();
    UpdateTransfer(const UpdateTransfer&) = delete;
    UpdateTransfer& operator=(const UpdateTransfer&) = delete;

    /// Takes nothing for a while: the server has to wait.
    void setPaused(bool isPaused);
    /// Where the file comes from once every redirect has been followed.
    [[nodiscard]] const QUrl& url() const { return m_url; }

private:
    void open(const QUrl& url);
    void answered(const FetchAnswer& answer);
    void take(const QByteArray& bytes);
    void fetched(FetchEnd fetchEnd);
    void lost(FetchProcess::Loss loss);
    void redirect(const QUrl& redirection);
    void end(std::optional<TransferFault> fault);
    [[nodiscard]] std::optional<TransferFault> begin(const TransferHead& head);
    [[nodiscard]] TransferFault tooLarge() const;

    MainQueue& m_mainQueue;
    QString m_fetchProgram;
    QByteArray m_userAgent;
    Request m_request;
    Hooks m_hooks;
    QUrl m_url; ///< Where the last redirect led.
    int m_redirects = 0;
    qint64 m_announced = 0; ///< Bytes that are to come at least.
    qint64 m_received = 0;
    qint64 m_receivedInWindow = 0;
    bool m_hasAnswer = false;
    bool m_isEnding = false;
    bool m_isPaused = false;
    std::unique_ptr<FetchProcess> m_fetch;
    Task m_window;
    Task m_deadline;
    Task m_next; ///< What must not happen inside a call of the process.
};

} // namespace Tavik
