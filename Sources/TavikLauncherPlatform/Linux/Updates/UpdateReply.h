// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

class QNetworkReply;

namespace Tavik {

/// Why something was not fetched.
struct TransferFault
{
    QString reason; ///< A whole sentence for people.
    bool mayPass = false; ///< Trying again may help: the network's fault, not the file's.

    bool operator==(const TransferFault&) const = default;
};

/// What a server says before the first byte.
struct TransferHead
{
    qint64 startsAt = 0; ///< 0 when the server sends the whole file again.
    std::optional<qint64> length; ///< Of the whole file.
    QByteArray validator; ///< Stands for exactly this file; empty when there is none.
    QString mimeType; ///< Without parameters, in small letters.
};

} // namespace Tavik

/// What the toolkit tells of an answer, in our terms.
namespace Tavik::UpdateReply {

/// The number that stands for what the server makes of the request; 0 before it is there.
[[nodiscard]] int status(const QNetworkReply& reply);

/// Of an answer with the file, or with a piece of it.
[[nodiscard]] TransferHead head(const QNetworkReply& reply);

/// Why the answer has not what was asked for; `subject` begins the sentence, `asksForPiece` when
/// not the whole was wanted.
[[nodiscard]] std::optional<TransferFault>
refusal(const QNetworkReply& reply, const QString& subject, bool asksForPiece);

/// Why there was no answer, or no end of it.
[[nodiscard]] TransferFault networkFault(const QNetworkReply& reply, bool hasBadCertificate);
[[nodiscard]] TransferFault brokenOff();

} // namespace Tavik::UpdateReply
