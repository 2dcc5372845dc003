// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QUrl>

#include <optional>

/// What this program and the process that fetches for it say to each other. Each message is a
/// number of bytes, a kind, and a value that the toolkit has written.
namespace Tavik {

/// What is asked, once.
struct FetchRequest
{
    QUrl url;
    QByteArray userAgent;
    qint64 startsAt = 0; ///< More than 0: only the rest from there, if the file is the one
    QByteArray validator; ///< that this stands for.
    qint64 parent = 0; ///< The process that asks: nothing is fetched without it.
};

/// What the server says first.
struct FetchAnswer
{
    int status = 0;
    QUrl redirection; ///< Empty where the answer is none; may be relative.
    std::optional<qint64> length; ///< Of what follows.
    QByteArray contentType; ///< From here on as the server wrote them.
    QByteArray contentEncoding;
    QByteArray contentRange;
    QByteArray tag;
    QByteArray lastModified;
};

/// How it ended.
enum class FetchEnd : quint8 {
    complete, ///< As far as can be seen there.
    noSuchHost,
    noConnection,
    badCertificate,
    noProtection,
    refusedByProxy,
    brokenOff, ///< Anything else; the last one.
};

namespace FetchMessages {

enum class Kind : quint8 {
    request,
    answer,
    bytes,
    end
};

inline constexpr qsizetype mostBytes = 256LL * 1024; ///< Of a message.

struct Message
{
    Kind kind = Kind::end;
    QByteArray value;
};

[[nodiscard]] QByteArray pack(const FetchRequest& request);
[[nodiscard]] QByteArray pack(const FetchAnswer& answer);
[[nodiscard]] QByteArray pack(FetchEnd end);
[[nodiscard]] QByteArray packBytes(const QByteArray& bytes);

/// Takes the first whole message from what has come; absent while there is none. One that is larger
/// than any may be is never whole.
[[nodiscard]] std::optional<Message> take(QByteArray& received);

/// Absent where the message is another, or cannot be read.
[[nodiscard]] std::optional<FetchRequest> request(const Message& message);
[[nodiscard]] std::optional<FetchAnswer> answer(const Message& message);
[[nodiscard]] std::optional<FetchEnd> end(const Message& message);

} // namespace FetchMessages

} // namespace Tavik
