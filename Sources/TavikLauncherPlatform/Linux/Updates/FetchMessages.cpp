// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/FetchMessages.h>

#include <QDataStream>
#include <QIODevice>
#include <QtEndian>

namespace Tavik::FetchMessages {

namespace {

constexpr qsizetype headBytes = 5; ///< The number, and the kind.

QByteArray packed(Kind kind, const QByteArray& value)
{
    QByteArray message(headBytes, '\0');
    qToBigEndian(static_cast<quint32>(value.size()), message.data());
    message[headBytes - 1] = static_cast<char>(kind);
    return message + value;
}

template <typename... Fields> QByteArray packed(Kind kind, const Fields&... fields)
{
    QByteArray value;
    QDataStream stream(&value, QIODevice::WriteOnly);
    (stream << ... << fields);
    return packed(kind, value);
}

template <typename... Fields> bool unpack(Kind kind, const Message& message, Fields&... fields)
{
    QDataStream stream(message.value);
    (stream >> ... >> fields);
    return message.kind == kind && stream.status() == QDataStream::Ok && stream.atEnd();
}

} // namespace

QByteArray pack(const FetchRequest& request)
{
    return packed(Kind::request,
                  request.url,
                  request.userAgent,
                  request.startsAt,
                  request.validator,
                  request.parent);
}

QByteArray pack(const FetchAnswer& answer)
{
    return packed(Kind::answer,
                  answer.status,
                  answer.redirection,
                  answer.length.value_or(-1),
                  answer.contentType,
                  answer.contentEncoding,
                  answer.contentRange,
                  answer.tag,
                  answer.lastModified);
}

QByteArray pack(FetchEnd end)
{
    return packed(Kind::end, static_cast<quint8>(end));
}

QByteArray packBytes(const QByteArray& bytes)
{
    return packed(Kind::bytes, bytes);
}

std::optional<Message> take(QByteArray& received)
{
    if (received.size() < headBytes) {
        return std::nullopt;
    }
    const qsizetype size = qFromBigEndian<quint32>(received.constData());
    if (size > mostBytes || received.size() < headBytes + size) {
        return std::nullopt;
    }
    Message message{.kind = static_cast<Kind>(received.at(headBytes - 1)),
                    .value = received.mid(headBytes, size)};
    received.remove(0, headBytes + size);
    return message;
}

std::optional<FetchRequest> request(const Message& message)
{
    FetchRequest request;
    const bool isRead = unpack(Kind::request,
                               message,
                               request.url,
                               request.userAgent,
                               request.startsAt,
                               request.validator,
                               request.parent);
    return isRead ? std::optional(request) : std::nullopt;
}

std::optional<FetchAnswer> answer(const Message& message)
{
    FetchAnswer answer;
    qint64 length = -1;
    const bool isRead = unpack(Kind::answer,
                               message,
                               answer.status,
                               answer.redirection,
                               length,
                               answer.contentType,
                               answer.contentEncoding,
                               answer.contentRange,
                               answer.tag,
                               answer.lastModified);
    if (length >= 0) {
        answer.length = length;
    }
    return isRead ? std::optional(answer) : std::nullopt;
}

std::optional<FetchEnd> end(const Message& message)
{
    quint8 end = 0;
    const bool isRead = unpack(Kind::end, message, end);
    return isRead && end <= static_cast<quint8>(FetchEnd::brokenOff)
        ? std::optional(static_cast<FetchEnd>(end))
        : std::nullopt;
}

} // namespace Tavik::FetchMessages
