// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/Updates/NotesWriter.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Tavik {

namespace {

constexpr qsizetype mostContainers = 8;
constexpr qsizetype mostSpans = 8;
/// Characters, with the elements: what a text document lays out before anybody notices.
constexpr qsizetype mostExtent = 40'000;
/// A text document looks through the whole list for each of its items.
constexpr qsizetype charactersPerItem = 200;
/// Each stretch of another look is laid out by itself.
constexpr qsizetype charactersPerSpan = 30;
/// From here on, letters are put together from several characters, or come from other fonts.
constexpr char16_t firstCostly = 0x300;
/// One block is one text layout, which takes more than its share of time when it is long.
constexpr qsizetype mostInBlock = 4000;
constexpr qsizetype charactersPerLine = 80; ///< What a line break counts as.

/// Neither what controls, nor what turns the direction of the text around it, nor what a text
/// document keeps for its own structure.
bool isReadable(QChar character)
{
    const char16_t code = character.unicode();
    if (code == u'\n' || code == u'\t' || character.isSurrogate()) {
        return true;
    }
    const bool turns = (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
    const bool isInternal = (code >= 0xFDD0 && code <= 0xFDEF) || code >= 0xFFFC;
    return !turns && !isInternal && character.category() != QChar::Other_Control
        && code != QChar::ParagraphSeparator && code != QChar::LineSeparator;
}

} // namespace

void NotesWriter::open(Kind kind, const QString& name, const QString& attributes)
{
    if (kind != Kind::span) {
        closeBlock();
    }
    const qsizetype most = kind == Kind::container ? mostContainers : mostSpans;
    if (!isFull() && count(kind) < most) {
        push({.kind = kind, .name = name, .attributes = attributes});
    }
}

void NotesWriter::close(Kind kind, const QString& name)
{
    for (qsizetype at = m_open.size() - 1; at >= 0 && m_open[at].kind >= kind; --at) {
        if (m_open[at].name == name) {
            while (m_open.size() > at) {
                pop();
            }
            return;
        }
    }
}

void NotesWriter::closeListItem()
{
    for (qsizetype at = m_open.size() - 1; at >= 0; --at) {
        const QString name = m_open[at].name;
        if (name == u"ul"_s || name == u"ol"_s) {
            return;
        }
        if (name == u"li"_s) {
            return close(Kind::container, name);
        }
    }
}

void NotesWriter::text(QStringView text)
{
    while (!text.isEmpty() && !isFull()) {
        if (m_inBlock >= mostInBlock) {
            startNewBlock();
        }
        qsizetype length = std::min(text.size(), mostInBlock - m_inBlock);
        if (length < text.size() && text[length].isLowSurrogate()) {
            ++length;
        }
        QString piece = text.first(length).toString();
        piece.removeIf([](QChar character) { return !isReadable(character); });
        m_hasText = m_hasText || !piece.trimmed().isEmpty();
        m_output += piece.toHtmlEscaped();
        m_inBlock += length;
        m_extent += std::ranges::count_if(
            piece, [](QChar character) { return character.unicode() >= firstCostly; });
        text = text.sliced(length);
    }
}

void NotesWriter::lineBreak()
{
    if (m_inBlock >= mostInBlock) {
        startNewBlock();
    }
    if (!isFull()) {
        m_output += u"<br>"_s;
        m_inBlock += charactersPerLine;
    }
}

void NotesWriter::rule()
{
    closeBlock();
    if (!isFull()) {
        m_output += u"<hr>"_s;
        m_inBlock = 0;
    }
}

bool NotesWriter::isOpen(QStringView name) const
{
    return std::ranges::find(m_open, name, &Element::name) != m_open.end();
}

bool NotesWriter::isFull() const
{
    return m_extent + m_output.size() >= mostExtent;
}

QString NotesWriter::finished()
{
    const bool isCut = isFull();
    while (!m_open.isEmpty()) {
        pop();
    }
    if (isCut) {
        m_output += u"<p>…</p>"_s;
    }
    return m_hasText ? m_output : QString();
}

void NotesWriter::push(const Element& element)
{
    m_output += u"<"_s + element.name + element.attributes + u">"_s;
    if (element.kind != Kind::span) {
        m_inBlock = 0;
    }
    if (element.name == u"li"_s) {
        m_extent += charactersPerItem;
    } else if (element.kind == Kind::span) {
        m_extent += charactersPerSpan;
    }
    m_open.append(element);
}

void NotesWriter::pop()
{
    const Element element = m_open.takeLast();
    m_output += u"</"_s + element.name + u">"_s;
    if (element.kind != Kind::span) {
        m_inBlock = 0;
    }
}

void NotesWriter::closeBlock()
{
    while (!m_open.isEmpty() && m_open.last().kind != Kind::container) {
        pop();
    }
}

void NotesWriter::startNewBlock()
{
    QList<Element> again;
    while (!m_open.isEmpty() && m_open.last().kind != Kind::container) {
        again.prepend(m_open.last());
        pop();
    }
    if (again.isEmpty() || again.first().kind != Kind::block) {
        again.prepend({.kind = Kind::block, .name = u"p"_s, .attributes = {}});
    }
    for (const Element& element : again) {
        push(element);
    }
}

qsizetype NotesWriter::count(Kind kind) const
{
    return std::ranges::count(m_open, kind, &Element::kind);
}

} // namespace Tavik
