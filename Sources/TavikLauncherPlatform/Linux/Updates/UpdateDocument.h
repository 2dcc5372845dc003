// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Updates/UpdateTransfer.h>
#include <TavikLauncherPlatform/Updater.h>

#include <functional>
#include <memory>

namespace Tavik {

/// What a server says in one piece: the feed, or notes.
struct UpdateDocument
{
    QByteArray bytes;
    QUrl url; ///< Where it came from in the end.
    QString mimeType; ///< As the server calls it; may be empty.
};

/// The notes in a document; absent when it is no text.
[[nodiscard]] std::optional<ReleaseNotes> releaseNotes(const UpdateDocument& document);

/// Fetches a document into memory, in two minutes at most. Main thread only.
class UpdateDocumentFetch
{
public:
    struct Request
    {
        QUrl url;
        QString subject; ///< What it is, as the beginning of a sentence.
        qint64 mostBytes = 0;
    };
    /// Called once, with the document or with why there is none, as a whole sentence for people.
    /// May destroy the fetch.
    using Finish = std::function<void(const UpdateDocument&, const std::optional<QString>& reason)>;

    /// Begins. Destroying the fetch cancels it.
    UpdateDocumentFetch(const UpdateTransfer::Dependencies& dependencies,
                        const Request& request,
                        Finish finish);

private:
    UpdateDocument m_document;
    Finish m_finish;
    std::unique_ptr<UpdateTransfer> m_transfer;
};

} // namespace Tavik
