// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/UpdateDocument.h>

#include <QStringDecoder>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr double mostSeconds = 120;

std::optional<ReleaseNotes::Format> formatOf(const UpdateDocument& document)
{
    using enum ReleaseNotes::Format;
    const QString path = document.url.path().toLower();
    const bool isMarkdown = path.endsWith(u".md") || path.endsWith(u".markdown");
    const QString& type = document.mimeType;
    if (type == u"text/html" || type == u"application/xhtml+xml") {
        return html;
    }
    if (type == u"text/markdown" || (isMarkdown && type.startsWith(u"text/"))) {
        return markdown;
    }
    if (type.startsWith(u"text/")) {
        return plainText;
    }
    if (!type.isEmpty() && type != u"application/octet-stream") {
        return std::nullopt;
    }
    if (isMarkdown) {
        return markdown;
    }
    return path.endsWith(u".txt") ? plainText : html;
}

} // namespace

std::optional<ReleaseNotes> releaseNotes(const UpdateDocument& document)
{
    const std::optional<ReleaseNotes::Format> format = formatOf(document);
    if (!format || document.bytes.contains('\0')) {
        return std::nullopt;
    }
    QStringDecoder decoder = *format == ReleaseNotes::Format::html
        ? QStringDecoder::decoderForHtml(document.bytes)
        : QStringDecoder(QStringDecoder::Utf8);
    if (!decoder.isValid()) {
        decoder = QStringDecoder(QStringDecoder::Utf8);
    }
    const QString text = decoder.decode(document.bytes);
    return ReleaseNotes{.format = *format, .text = text};
}

UpdateDocumentFetch::UpdateDocumentFetch(const UpdateTransfer::Dependencies& dependencies,
                                         const Request& request,
                                         Finish finish)
    : m_finish(std::move(finish))
{
    m_transfer = std::make_unique<UpdateTransfer>(
        dependencies,
        UpdateTransfer::Request{.url = request.url,
                                .subject = request.subject,
                                .mostBytes = request.mostBytes,
                                .patience = {.leastBytes = 1, .totalSeconds = mostSeconds}},
        UpdateTransfer::Hooks{.begin =
                                  [this](const TransferHead& head) {
                                      m_document.mimeType = head.mimeType;
                                      return std::optional<TransferFault>();
                                  },
                              .take =
                                  [this](const QByteArray& bytes) {
                                      m_document.bytes += bytes;
                                      return std::optional<TransferFault>();
                                  },
                              .finish =
                                  [this](const std::optional<TransferFault>& fault) {
                                      m_document.url = m_transfer->url();
                                      const Finish done = std::move(m_finish);
                                      const UpdateDocument document = std::exchange(m_document, {});
                                      done(document,
                                           fault ? std::optional(fault->reason) : std::nullopt);
                                  }});
}

} // namespace Tavik
