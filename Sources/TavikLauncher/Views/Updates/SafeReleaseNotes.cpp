// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/Updates/NotesHtml.h>
#include <TavikLauncher/Views/Updates/NotesWriter.h>
#include <TavikLauncher/Views/Updates/SafeReleaseNotes.h>
#include <TavikLauncherPlatform/Updater.h>

#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Tavik {

namespace {

using Kind = NotesWriter::Kind;

constexpr qsizetype mostNotes = 1'000'000; ///< Characters that are looked at.
/// Qt's reader of Markdown needs four times as long for twice the text: half a second for this
/// much emphasis. A longer text is shown as it was written, which reads well enough.
constexpr qsizetype mostMarkdown = 10'000;
constexpr qsizetype mostMarkdownLines = 600; ///< Of which each may be an item of one list.

/// A document that reads, and never fetches anything.
class UnlinkedDocument final : public QTextDocument
{
protected:
    QVariant loadResource(int /*type*/, const QUrl& /*name*/) override { return {}; }
};

/// Paragraphs stand apart by an empty line; other lines and their indentation stay as they are.
void writePlainText(QStringView text, NotesWriter& writer)
{
    bool isParagraphOpen = false;
    while (!text.isEmpty() && !writer.isFull()) {
        const qsizetype end = text.indexOf(u'\n');
        QStringView line = text.left(end);
        text = end < 0 ? QStringView() : text.sliced(end + 1);
        if (line.trimmed().isEmpty()) {
            isParagraphOpen = false;
            continue;
        }
        if (isParagraphOpen) {
            writer.lineBreak();
        } else {
            writer.open(Kind::block, u"p"_s);
        }
        isParagraphOpen = true;
        for (; line.front().isSpace(); line = line.sliced(1)) {
            writer.text(u"\u00A0");
        }
        writer.text(line);
    }
}

void writeFragment(const QTextFragment& fragment, NotesWriter& writer)
{
    const QTextCharFormat format = fragment.charFormat();
    if (format.isImageFormat()) {
        return;
    }
    QStringList spans;
    const auto open = [&](bool applies, const QString& name, const QString& attributes = {}) {
        if (applies) {
            writer.open(Kind::span, name, attributes);
            spans.prepend(name);
        }
    };
    const QString link = format.anchorHref();
    open(isSafeReleaseNotesLink(link), u"a"_s, u" href=\"%1\""_s.arg(link.toHtmlEscaped()));
    open(format.fontWeight() > QFont::Medium, u"b"_s);
    open(format.fontItalic(), u"i"_s);
    open(format.fontStrikeOut(), u"s"_s);
    open(format.fontFixedPitch(), u"code"_s);
    const QStringList lines = fragment.text().split(QChar(QChar::LineSeparator));
    for (const QString& line : lines) {
        if (&line != &lines.first()) {
            writer.lineBreak();
        }
        writer.text(line);
    }
    for (const QString& name : spans) {
        writer.close(Kind::span, name);
    }
}

QString listName(const QTextListFormat& list)
{
    return list.style() <= QTextListFormat::ListDecimal ? u"ol"_s : u"ul"_s;
}

/// Opens and closes lists until as many are open as the block is deep in, and opens its item.
void openLists(const QTextList* list, QStringList& open, NotesWriter& writer)
{
    const QTextListFormat format = list == nullptr ? QTextListFormat() : list->format();
    const qsizetype depth = list == nullptr ? 0 : std::clamp(format.indent(), 1, 4);
    while (open.size() > depth) {
        writer.close(Kind::container, open.takeLast());
    }
    while (open.size() < depth) {
        open.append(listName(format));
        writer.open(Kind::container, open.last());
    }
    if (depth > 0) {
        writer.closeListItem();
        writer.open(Kind::container, u"li"_s);
    }
}

void openBlock(const QTextBlockFormat& format, NotesWriter& writer)
{
    if (format.hasProperty(QTextFormat::BlockTrailingHorizontalRulerWidth)) {
        return writer.rule();
    }
    const bool isCode = format.hasProperty(QTextFormat::BlockCodeFence)
        || format.hasProperty(QTextFormat::BlockCodeLanguage);
    if (isCode && writer.isOpen(u"pre")) {
        return writer.text(u"\n"); // Each line of code is a block of its own.
    }
    const int heading = format.headingLevel();
    const QString text = isCode ? u"pre"_s : u"p"_s;
    const QString title = heading > 2 ? u"h4"_s : u"h3"_s;
    writer.open(Kind::block, heading > 0 ? title : text);
}

void writeMarkdown(const QString& text, NotesWriter& writer)
{
    UnlinkedDocument document;
    document.setUndoRedoEnabled(false);
    // Without HTML, which would come by another way, and without tables, which take the longest.
    document.setMarkdown(text,
                         QTextDocument::MarkdownFeatures(QTextDocument::MarkdownNoHTML)
                             | QTextDocument::MarkdownDialectCommonMark);
    QStringList lists;
    for (QTextBlock block = document.begin(); block.isValid() && !writer.isFull();
         block = block.next()) {
        openLists(block.textList(), lists, writer);
        if (block.textList() == nullptr) {
            openBlock(block.blockFormat(), writer);
        }
        for (auto fragment = block.begin(); !fragment.atEnd(); ++fragment) {
            writeFragment(fragment.fragment(), writer);
        }
    }
}

} // namespace

bool isSafeReleaseNotesLink(const QString& address)
{
    constexpr qsizetype mostCharacters = 2000;
    if (address.isEmpty() || address.size() > mostCharacters) {
        return false;
    }
    const QUrl url(address, QUrl::StrictMode);
    if (url.scheme() == u"mailto"_s) {
        // What follows the address could attach files.
        return !url.path().isEmpty() && !url.hasQuery();
    }
    // A name in front of the host is there to be taken for the host.
    return (url.scheme() == u"https"_s || url.scheme() == u"http"_s) && !url.host().isEmpty()
        && url.userInfo().isEmpty();
}

QString safeReleaseNotesHtml(const ReleaseNotes& notes)
{
    NotesWriter writer;
    const QStringView text = QStringView(notes.text).left(mostNotes);
    if (notes.format == ReleaseNotes::Format::html) {
        writeNotesHtml(text, writer);
    } else if (notes.format == ReleaseNotes::Format::markdown && text.size() <= mostMarkdown
               && text.count(u'\n') <= mostMarkdownLines) {
        writeMarkdown(notes.text, writer);
    } else {
        writePlainText(text, writer);
    }
    return writer.finished();
}

} // namespace Tavik
