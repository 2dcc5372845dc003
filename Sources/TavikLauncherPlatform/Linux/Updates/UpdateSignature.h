// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace Tavik::UpdateSignature {

constexpr qsizetype publicKeySize = 32; ///< Bytes.
constexpr qsizetype signatureSize = 64; ///< Bytes.
constexpr qsizetype digestSize = 32; ///< Bytes.
/// The largest file that is verified, and thereby the largest update, in bytes.
constexpr qint64 mostFileBytes = 500'000'000;

/// The bytes behind a Base64 text, spaces around it aside; absent unless it is well-formed,
/// complete, and of exactly `size` bytes.
[[nodiscard]] std::optional<QByteArray> fromBase64(const QString& text, qsizetype size);

/// Whether the text was signed with the private half of the key. Any thread.
[[nodiscard]] bool
isSigned(const QByteArray& text, const QByteArray& signature, const QByteArray& publicKey);

/// A file of our own, and what it must be.
struct SignedFile
{
    QString path;
    qint64 length = 0; ///< Bytes.
    QByteArray signature; ///< Ed25519 over the whole file.
    QByteArray digest; ///< SHA-256 of the whole file.
    QByteArray publicKey;
};

/// Why the file must not be used, as a whole sentence for people; absent when it is a regular file
/// of this user that others may not write, has exactly that length and digest, and was signed with
/// the private half of that key. Reads the whole file: off the main thread, any thread.
///
/// The file is mapped, not read into memory. Were it truncated meanwhile, the process would end;
/// so it lies in a folder that only this user may enter, and nothing writes it any more.
[[nodiscard]] std::optional<QString> whyNotGenuine(const SignedFile& file);

} // namespace Tavik::UpdateSignature
