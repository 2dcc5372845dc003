// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/AppcastReader.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QStringDecoder>
#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace Tavik::AppcastReader {

namespace {

/// Qt's reader compares each attribute with each before it: a single start tag of five megabytes
/// would keep it busy for minutes. No element of a feed has ten.
constexpr int mostAttributes = 20;
/// For every name it looks through the namespaces of all elements that are open. Items lie two
/// deep.
constexpr int mostNesting = 32;

QString webPage()
{
    return Texts::tr("The server answered with a web page instead of a list of updates.");
}

QString otherDocument()
{
    return Texts::tr("The server answered with something other than a list of updates.");
}

/// The length of the tag at the front, 0 when it does not end; absent with too many attributes.
std::optional<qsizetype> tagLength(QStringView text)
{
    int attributes = 0;
    QChar quote;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QChar character = text[at];
        if (!quote.isNull()) {
            quote = character == quote ? QChar() : quote;
        } else if (character == u'"' || character == u'\'') {
            quote = character;
            if (++attributes > mostAttributes) {
                return {};
            }
        } else if (character == u'>') {
            return at + 1;
        }
    }
    return 0;
}

/// What of a well-formed text must not come to the XML reader. A malformed one may be seen
/// differently here from the place of the damage on, and the reader will not go beyond it.
std::optional<QString> whyNotReadable(QStringView text)
{
    const auto skipBehind = [&text](QStringView end, qsizetype from) {
        const qsizetype at = text.indexOf(end, from);
        text = at < 0 ? QStringView() : text.sliced(at + end.size());
    };
    int nesting = 0;
    for (qsizetype at = text.indexOf(u'<'); at >= 0; at = text.indexOf(u'<')) {
        text = text.sliced(at);
        if (text.startsWith(u"<!--")) {
            skipBehind(u"-->", 4);
        } else if (text.startsWith(u"<![CDATA[")) {
            skipBehind(u"]]>", 9);
        } else if (text.startsWith(u"<?")) {
            skipBehind(u"?>", 2);
        } else if (text.startsWith(u"<!")) {
            // A document type may declare entities, and any number of attributes besides.
            return text.left(14).compare(u"<!DOCTYPE html", Qt::CaseInsensitive) == 0
                ? webPage()
                : Texts::tr("The list of updates declares a document type, which is not allowed.");
        } else {
            const std::optional<qsizetype> length = tagLength(text);
            if (!length) {
                return Texts::tr(
                    "The list of updates is damaged: it has an element that is too long.");
            }
            const QStringView tag = text.first(*length);
            text = *length == 0 ? QStringView() : text.sliced(*length);
            nesting += tag.endsWith(u"/>") ? 0 : 1 - 2 * int(tag.startsWith(u"</"));
            if (nesting > mostNesting) {
                return Texts::tr(
                    "The list of updates is damaged: its elements are nested too deep.");
            }
        }
    }
    return {};
}

/// Reads all items of the channel that the reader has entered; says why it stopped.
std::optional<QString>
readChannel(QXmlStreamReader& xml, const AppcastOrigin& origin, AppcastFeed& feed, int& count)
{
    while (xml.readNextStartElement()) {
        if (!xml.namespaceUri().isEmpty() || xml.name() != u"item") {
            xml.skipCurrentElement();
            continue;
        }
        if (++count > mostItems) {
            return Texts::tr("The list of updates has more than %1 entries.").arg(mostItems);
        }
        if (std::optional<AppcastItem> item = readAppcastItem(xml, origin)) {
            feed.items.append(*std::move(item));
        }
    }
    return {};
}

std::optional<QString>
readDocument(QXmlStreamReader& xml, const AppcastOrigin& origin, AppcastFeed& feed)
{
    if (!xml.readNextStartElement()) {
        return otherDocument();
    }
    if (xml.name() != u"rss") {
        return xml.name().compare(u"html", Qt::CaseInsensitive) == 0 ? webPage() : otherDocument();
    }
    int count = 0;
    while (xml.readNextStartElement()) {
        if (xml.name() != u"channel") {
            xml.skipCurrentElement();
        } else if (std::optional<QString> error = readChannel(xml, origin, feed, count)) {
            return error;
        }
    }
    while (!xml.atEnd()) {
        xml.readNext();
    }
    if (xml.hasError()) {
        return Texts::tr("The list of updates is damaged in line %1.").arg(xml.lineNumber());
    }
    if (count == 0) {
        return Texts::tr("The list of updates is empty.");
    }
    return {};
}

} // namespace

AppcastFeed read(const QByteArray& feed, const AppcastOrigin& origin)
{
    const auto refused = [](const QString& error) {
        return AppcastFeed{.items = {}, .error = error};
    };
    if (feed.size() > mostBytes) {
        return refused(Texts::tr("The list of updates is too large."));
    }
    if (feed.trimmed().isEmpty()) {
        return refused(Texts::tr("The list of updates is empty."));
    }
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder.decode(feed);
    if (decoder.hasError()) {
        return refused(Texts::tr("The list of updates is not valid text in UTF-8."));
    }
    if (const std::optional<QString> error = whyNotReadable(text)) {
        return refused(*error);
    }
    QXmlStreamReader xml(text);
    AppcastFeed result;
    if (const std::optional<QString> error = readDocument(xml, origin, result)) {
        return refused(*error);
    }
    return result;
}

} // namespace Tavik::AppcastReader
