// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/UpdateReply.h>
#include <TavikLauncherPlatform/Texts.h>

namespace Tavik::UpdateReply {

using namespace Qt::StringLiterals;

namespace {

constexpr int statusOk = 200;
constexpr int statusPartialContent = 206;
constexpr int statusNotFound = 404;
constexpr int statusGone = 410;
constexpr int statusRangeNotSatisfiable = 416;
constexpr int firstServerError = 500;

/// Only what stands for one exact sequence of bytes; weak tags do not.
QByteArray validatorOf(const FetchAnswer& answer)
{
    return answer.tag.startsWith('"') ? answer.tag : answer.lastModified;
}

struct ContentRange
{
    qint64 first = 0;
    std::optional<qint64> length;
};

/// Reads "bytes 100-199/200".
std::optional<ContentRange> contentRange(const QByteArray& header)
{
    const QByteArray text = header.simplified();
    const qsizetype dash = text.indexOf('-');
    const qsizetype slash = text.indexOf('/');
    if (!text.startsWith("bytes ") || dash < 0 || slash < dash) {
        return std::nullopt;
    }
    constexpr qsizetype unit = 6;
    bool isNumber = false;
    ContentRange range{.first = text.mid(unit, dash - unit).toLongLong(&isNumber)};
    if (!isNumber || range.first < 0) {
        return std::nullopt;
    }
    const qint64 length = text.mid(slash + 1).toLongLong(&isNumber);
    if (isNumber) {
        range.length = length;
    }
    return range;
}

} // namespace

TransferHead head(const FetchAnswer& answer)
{
    TransferHead head{.length = answer.length, .validator = validatorOf(answer)};
    const QString type = QString::fromLatin1(answer.contentType);
    head.mimeType = type.section(u';', 0, 0).trimmed().toLower();
    if (answer.status == statusPartialContent) {
        // A range that cannot be read begins where nobody asked.
        const ContentRange range
            = contentRange(answer.contentRange).value_or(ContentRange{.first = -1});
        head.startsAt = range.first;
        head.length = range.length;
    }
    return head;
}

std::optional<TransferFault>
refusal(const FetchAnswer& answer, const QString& subject, bool asksForPiece)
{
    const int code = answer.status;
    if (code == statusNotFound || code == statusGone) {
        return TransferFault{.reason = Texts::tr("%1 is not on the server.").arg(subject)};
    }
    const bool isWanted = code == statusOk || (code == statusPartialContent && asksForPiece);
    if (!isWanted) {
        return TransferFault{
            .reason = Texts::tr("The server answered with an error (%1).").arg(code),
            .mayPass = code >= firstServerError || code == statusRangeNotSatisfiable};
    }
    const QByteArray encoding = answer.contentEncoding.trimmed().toLower();
    if (!encoding.isEmpty() && encoding != "identity") {
        return TransferFault{.reason
                             = Texts::tr("The server sent something packed, which was refused.")};
    }
    return std::nullopt;
}

TransferFault networkFault(FetchEnd end, const QString& host)
{
    switch (end) {
    case FetchEnd::noSuchHost:
        return {.reason
                = Texts::tr("The server “%1” was not found. Perhaps this computer is not connected "
                            "to the internet.")
                      .arg(host),
                .mayPass = true};
    case FetchEnd::noConnection:
        return {.reason = Texts::tr("The server “%1” cannot be reached.").arg(host),
                .mayPass = true};
    case FetchEnd::badCertificate:
        return {.reason
                = Texts::tr("The server “%1” could not prove who it is: its certificate is not "
                            "valid here.")
                      .arg(host)};
    case FetchEnd::noProtection:
        return {.reason
                = Texts::tr("No protected connection to the server “%1” could be made.").arg(host)};
    case FetchEnd::refusedByProxy:
        return {.reason = Texts::tr("The proxy of this network let nothing through."),
                .mayPass = true};
    case FetchEnd::complete:
    case FetchEnd::brokenOff:
        break;
    }
    return brokenOff();
}

TransferFault brokenOff()
{
    return {.reason = Texts::tr("The connection to the server broke off."), .mayPass = true};
}

} // namespace Tavik::UpdateReply
