// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Updates/PartFile.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateTransfer.h>

#include <functional>
#include <memory>
#include <optional>

namespace Tavik {

/// Brings a file of known length to the disk. A connection that breaks off is made again, and the
/// file continued where it was if the server still has the same one. Main thread only.
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
        std::function<void(std::unique_ptr<PartFile> file, const QString& reason)> finish;
    };

    /// Begins. Destroying the download cancels it and removes the file.
    UpdateDownload(const UpdateTransfer::Dependencies& dependencies, Request request, Hooks hooks);
    ~UpdateDownload();
    UpdateDownload(const UpdateDownload&) = delete;
    UpdateDownload& operator=(const UpdateDownload&) = delete;

private:
    void connectAgain();
    [[nodiscard]] std::optional<TransferFault> accept(const TransferHead& head);
    [[nodiscard]] std::optional<TransferFault> take(const QByteArray& bytes);
    void connectionEnded(const std::optional<TransferFault>& fault);
    void finish(const QString& reason);
    void reportProgress();

    UpdateTransfer::Dependencies m_dependencies;
    Request m_request;
    Hooks m_hooks;
    std::unique_ptr<PartFile> m_file;
    QByteArray m_validator;
    int m_failures = 0; ///< Without anything new in between.
    qint64 m_farthest = 0; ///< Bytes that were here when a connection failed, at the most.
    qint64 m_reported = 0;
    std::unique_ptr<UpdateTransfer> m_transfer;
    Task m_retry;
    Task m_progress;
};

} // namespace Tavik
