// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace Tavik {

/// What whoever makes the updates says of a file, under a signature of its own: which version it
/// is, for which computers, and which bytes. The signature over the bytes alone would let anybody
/// who controls the feed give an old file a new number.
struct UpdateStatement
{
    QString version; ///< As it is compared.
    qint64 length = 0; ///< Bytes.
    QString kind; ///< As `updateKindName` tells it.
    QString processor; ///< As the toolkit names it, or "any".
    QByteArray digest; ///< SHA-256 of the file, 32 bytes.

    /// What is signed: a line for each of the above, in this order, after one that says what it is.
    [[nodiscard]] QByteArray text() const;
};

/// The bytes behind a SHA-256 digest in hexadecimal digits; absent unless it is one.
[[nodiscard]] std::optional<QByteArray> updateDigest(const QString& text);

} // namespace Tavik
