// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Updates/FetchMessages.h>

#include <QByteArray>
#include <QString>

#include <optional>

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

/// What an answer means, in our terms.
namespace Tavik::UpdateReply {

/// Of an answer with the file, or with a piece of it.
[[nodiscard]] TransferHead head(const FetchAnswer& answer);

/// Why the answer has not what was asked for; `subject` begins the sentence, `asksForPiece` when
/// not the whole was wanted.
[[nodiscard]] std::optional<TransferFault>
refusal(const FetchAnswer& answer, const QString& subject, bool asksForPiece);

/// Why there was no answer of that host, or no end of it.
[[nodiscard]] TransferFault networkFault(FetchEnd end, const QString& host);
[[nodiscard]] TransferFault brokenOff();

} // namespace Tavik::UpdateReply
