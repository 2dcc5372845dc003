// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Updates/PartFile.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateTransfer.h>

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace Tavik {

class WorkQueue;

/// Brings a file of known length to the disk. A connection that breaks off is made again, and the
/// file continued where it was if the server still has the same one. Main thread only; the file is
/// written off it, and the server waits while the disk is slower.
class UpdateDownload
{
public:
    struct Request
    {
        QUrl url;
        qint64 length = 0; ///< Bytes; anything else is refused.
        QString path; ///< What is there goes.
    };
    struct Hooks
    {
        std::function<void(qint64 received)> progress; ///< Ten times a second at most.
        /// Called once, with the complete file or with why there is none, as a whole sentence for
        /// people. May destroy the download.
        std::function<void(std::shared_ptr<PartFile> file, const QString& reason)> finish;
    };

    /// Begins. Destroying the download cancels it and removes the file. The queue writes it.
    UpdateDownload(const UpdateTransfer::Dependencies& dependencies,
                   WorkQueue& workQueue,
                   Request request,
                   Hooks hooks);
    ~UpdateDownload();
    UpdateDownload(const UpdateDownload&) = delete;
    UpdateDownload& operator=(const UpdateDownload&) = delete;

private:
    void connectAgain();
    [[nodiscard]] std::optional<TransferFault> accept(const TransferHead& head);
    [[nodiscard]] std::optional<TransferFault> take(const QByteArray& bytes);
    /// Has the work queue do something with the file; `bytes` are in memory until then.
    void onDisk(std::function<std::optional<QString>(PartFile&)> action, qint64 bytes = 0);
    void done(qint64 bytes, const std::optional<QString>& reason);
    void connectionEnded(const std::optional<TransferFault>& fault);
    void judgeConnection();
    void finish(const QString& reason);
    void reportProgress();

    UpdateTransfer::Dependencies m_dependencies;
    WorkQueue& m_workQueue;
    Request m_request;
    Hooks m_hooks;
    std::shared_ptr<PartFile> m_file;
    qint64 m_size = 0; ///< Of the file, with what is still to be written.
    qint64 m_waiting = 0; ///< Bytes that are still to be written.
    int m_actions = 0; ///< Of the work queue, under way.
    /// How the last connection ended; absent while there is one.
    std::optional<std::optional<TransferFault>> m_connectionEnd;
    QByteArray m_validator;
    int m_failures = 0; ///< Without anything new in between.
    qint64 m_farthest = 0; ///< Bytes that were here when a connection failed, at the most.
    qint64 m_reported = 0;
    std::unique_ptr<UpdateTransfer> m_transfer;
    Task m_retry;
    Task m_progress;
    QObject m_alive; ///< Watched by what runs elsewhere.
};

/// Lets go of a file, which may be large and have to be removed, off the main thread.
void discard(WorkQueue& workQueue, std::shared_ptr<PartFile> file);

} // namespace Tavik
