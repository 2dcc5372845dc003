// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Updates/UpdateReply.h>
#include <TavikLauncherPlatform/MainQueue.h>

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QObject>
#include <QString>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

namespace Tavik {

class WorkQueue;

/// One file from a server, piece by piece. Fetches only where `mayFetch` allows, asks it again of
/// every redirect, follows none from HTTPS to HTTP, trusts no certificate that the system does not,
/// and gives up on servers that stall. Nothing is sent but the request: no cookies, no credentials,
/// no language, no system. Main thread only.
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
        WorkQueue& workQueue;
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
    void send(const QUrl& url);
    void readHead();
    void readBody();
    void readEnd();
    void redirect();
    void end(std::optional<TransferFault> fault);
    [[nodiscard]] std::optional<TransferFault> begin(const TransferHead& head);
    [[nodiscard]] TransferFault tooLarge() const;

    MainQueue& m_mainQueue;
    WorkQueue& m_workQueue;
    QByteArray m_userAgent;
    Request m_request;
    Hooks m_hooks;
    QUrl m_url; ///< Where the last redirect led.
    int m_redirects = 0;
    qint64 m_received = 0;
    qint64 m_receivedInWindow = 0;
    bool m_hasHead = false;
    bool m_isDeaf = false; ///< To the reply that is there.
    bool m_isEnding = false;
    bool m_isPaused = false;
    bool m_isComplete = false; ///< The reply ended while we were paused.
    bool m_hasBadCertificate = false;
    std::unique_ptr<QNetworkAccessManager> m_manager;
    QNetworkReply* m_reply = nullptr; ///< The manager's.
    Task m_window;
    Task m_deadline;
    Task m_hoard; ///< Watches what the toolkit gathers.
    Task m_next; ///< What must not happen inside a signal of the reply.
    QObject m_alive; ///< Watched by what runs elsewhere.
};

} // namespace Tavik
