// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/Updates/NotesHtml.h>
#include <TavikLauncher/Views/Updates/NotesWriter.h>
#include <TavikLauncher/Views/Updates/SafeReleaseNotes.h>

#include <algorithm>
#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace Tavik {

namespace {

using Kind = NotesWriter::Kind;

struct ElementRow
{
    QStringView name;
    Kind kind;
    QStringView writtenAs;
};

constexpr std::array elements{
    ElementRow{u"p", Kind::block, u"p"},
    ElementRow{u"div", Kind::block, u"p"},
    ElementRow{u"section", Kind::block, u"p"},
    ElementRow{u"article", Kind::block, u"p"},
    ElementRow{u"header", Kind::block, u"p"},
    ElementRow{u"footer", Kind::block, u"p"},
    ElementRow{u"main", Kind::block, u"p"},
    ElementRow{u"figcaption", Kind::block, u"p"},
    ElementRow{u"summary", Kind::block, u"p"},
    ElementRow{u"center", Kind::block, u"p"},
    ElementRow{u"dt", Kind::block, u"p"},
    ElementRow{u"dd", Kind::block, u"p"},
    ElementRow{u"tr", Kind::block, u"p"}, // Tables are read row by row.
    ElementRow{u"caption", Kind::block, u"p"},
    ElementRow{u"pre", Kind::block, u"pre"},
    ElementRow{u"h1", Kind::block, u"h3"}, // As large as the title of the window.
    ElementRow{u"h2", Kind::block, u"h3"},
    ElementRow{u"h3", Kind::block, u"h4"},
    ElementRow{u"h4", Kind::block, u"h4"},
    ElementRow{u"h5", Kind::block, u"h4"},
    ElementRow{u"h6", Kind::block, u"h4"},
    ElementRow{u"ul", Kind::container, u"ul"},
    ElementRow{u"ol", Kind::container, u"ol"},
    ElementRow{u"li", Kind::container, u"li"},
    ElementRow{u"blockquote", Kind::container, u"blockquote"},
    ElementRow{u"b", Kind::span, u"b"},
    ElementRow{u"strong", Kind::span, u"b"},
    ElementRow{u"i", Kind::span, u"i"},
    ElementRow{u"em", Kind::span, u"i"},
    ElementRow{u"cite", Kind::span, u"i"},
    ElementRow{u"u", Kind::span, u"u"},
    ElementRow{u"ins", Kind::span, u"u"},
    ElementRow{u"s", Kind::span, u"s"},
    ElementRow{u"del", Kind::span, u"s"},
    ElementRow{u"strike", Kind::span, u"s"},
    ElementRow{u"code", Kind::span, u"code"},
    ElementRow{u"kbd", Kind::span, u"code"},
    ElementRow{u"samp", Kind::span, u"code"},
    ElementRow{u"tt", Kind::span, u"code"},
    ElementRow{u"a", Kind::span, u"a"},
};

/// What is inside is no text to read.
constexpr std::array<QStringView, 18> withoutContent{u"script",
                                                     u"style",
                                                     u"title",
                                                     u"iframe",
                                                     u"object",
                                                     u"applet",
                                                     u"noembed",
                                                     u"svg",
                                                     u"math",
                                                     u"template",
                                                     u"audio",
                                                     u"video",
                                                     u"canvas",
                                                     u"select",
                                                     u"map",
                                                     u"option",
                                                     u"textarea",
                                                     u"noframes"};

struct Entity
{
    QStringView name;
    char16_t character;
};

constexpr std::array entities{
    Entity{u"amp", u'&'},    Entity{u"lt", u'<'},    Entity{u"gt", u'>'},
    Entity{u"quot", u'"'},   Entity{u"apos", u'\''}, Entity{u"nbsp", u'\u00A0'},
    Entity{u"copy", u'©'},   Entity{u"reg", u'®'},   Entity{u"trade", u'™'},
    Entity{u"middot", u'·'}, Entity{u"bull", u'•'},  Entity{u"hellip", u'…'},
    Entity{u"ndash", u'–'},  Entity{u"mdash", u'—'}, Entity{u"lsquo", u'‘'},
    Entity{u"rsquo", u'’'},  Entity{u"ldquo", u'“'}, Entity{u"rdquo", u'”'},
    Entity{u"laquo", u'«'},  Entity{u"raquo", u'»'}, Entity{u"larr", u'←'},
    Entity{u"rarr", u'→'},   Entity{u"times", u'×'}, Entity{u"auml", u'ä'},
    Entity{u"ouml", u'ö'},   Entity{u"uuml", u'ü'},  Entity{u"szlig", u'ß'},
    Entity{u"eacute", u'é'},
};

/// What a reference between & and ; stands for; absent when that is nothing known.
std::optional<QString> entity(QStringView name)
{
    if (!name.startsWith(u'#')) {
        const auto* found = std::ranges::find(entities, name, &Entity::name);
        return found == entities.end() ? std::optional<QString>()
                                       : QString(QChar(found->character));
    }
    const bool isHexadecimal = name.mid(1, 1).compare(u"x", Qt::CaseInsensitive) == 0;
    bool isNumber = false;
    const uint code = name.sliced(isHexadecimal ? 2 : 1).toUInt(&isNumber, isHexadecimal ? 16 : 10);
    if (!isNumber || code == 0 || code > QChar::LastValidCodePoint || QChar::isSurrogate(code)) {
        return {};
    }
    const char32_t character = code;
    return QString::fromUcs4(&character, 1);
}

QString withoutEntities(QStringView text)
{
    constexpr qsizetype longestName = 10;
    QString result;
    for (qsizetype at = text.indexOf(u'&'); at >= 0; at = text.indexOf(u'&')) {
        result += text.first(at);
        text = text.sliced(at);
        const qsizetype end = text.left(longestName + 2).indexOf(u';');
        const std::optional<QString> known
            = end < 2 ? std::optional<QString>() : entity(text.sliced(1, end - 1));
        result += known.value_or(u"&"_s);
        text = text.sliced(known ? end + 1 : 1);
    }
    return result.append(text);
}

struct Tag
{
    QString name; ///< In small letters.
    bool isEnd = false;
    QString link; ///< The attribute href.
    qsizetype length = 0; ///< In the source; 0 when it does not end there.
};

bool isNameCharacter(QChar character)
{
    return character.isLetterOrNumber() || character == u'-' || character == u':'
        || character == u'_';
}

qsizetype skipped(QStringView text, qsizetype at, bool (*skips)(QChar))
{
    while (at < text.size() && skips(text[at])) {
        ++at;
    }
    return at;
}

/// The value of an attribute at `at`, behind its =; moves `at` behind it.
QStringView attributeValue(QStringView text, qsizetype& at)
{
    if (at < text.size() && (text[at] == u'"' || text[at] == u'\'')) {
        const qsizetype end = text.indexOf(text[at], at + 1);
        const qsizetype begin = at + 1;
        at = end < 0 ? text.size() : end + 1;
        return end < 0 ? QStringView() : text.sliced(begin, end - begin);
    }
    const qsizetype begin = at;
    at = skipped(text, at, [](QChar c) { return !c.isSpace() && c != u'>'; });
    return text.sliced(begin, at - begin);
}

/// Reads the tag at the front, which is < and a letter, or </ and a letter.
Tag readTag(QStringView text)
{
    Tag tag;
    qsizetype at = 1;
    if (text[at] == u'/') {
        tag.isEnd = true;
        ++at;
    }
    const qsizetype begin = at;
    at = skipped(text, at, isNameCharacter);
    tag.name = text.sliced(begin, at - begin).left(20).toString().toLower();
    while (at < text.size() && text[at] != u'>') {
        const qsizetype nameBegin = at;
        at = skipped(text, at, isNameCharacter);
        const QStringView name = text.sliced(nameBegin, at - nameBegin);
        if (name.isEmpty()) {
            ++at;
            continue;
        }
        at = skipped(text, at, [](QChar c) { return c.isSpace(); });
        if (at < text.size() && text[at] == u'=') {
            at = skipped(text, at + 1, [](QChar c) { return c.isSpace(); });
            const QStringView value = attributeValue(text, at);
            if (tag.link.isEmpty() && name.compare(u"href", Qt::CaseInsensitive) == 0) {
                tag.link = withoutEntities(value).trimmed();
            }
        }
    }
    tag.length = at < text.size() ? at + 1 : 0;
    return tag;
}

void openElement(const ElementRow& row, const Tag& tag, NotesWriter& writer)
{
    const QString name = row.writtenAs.toString();
    if (name == u"a"_s) {
        writer.close(row.kind, name);
        if (isSafeReleaseNotesLink(tag.link)) {
            writer.open(row.kind, name, u" href=\"%1\""_s.arg(tag.link.toHtmlEscaped()));
        }
    } else if (name != u"li"_s) {
        writer.open(row.kind, name);
    } else if (writer.isOpen(u"ul") || writer.isOpen(u"ol")) {
        writer.closeListItem();
        writer.open(row.kind, name);
    } else {
        writer.open(Kind::block, u"p"_s);
    }
}

void writeTag(const Tag& tag, NotesWriter& writer)
{
    if (tag.name == u"br"_s) {
        return writer.lineBreak();
    }
    if (tag.name == u"hr"_s) {
        return writer.rule();
    }
    if (tag.name == u"td"_s || tag.name == u"th"_s) {
        return writer.text(u" ");
    }
    const auto* row = std::ranges::find(elements, tag.name, &ElementRow::name);
    if (row == elements.end()) {
        return;
    }
    if (!tag.isEnd) {
        openElement(*row, tag, writer);
    } else if (tag.name == u"li"_s) {
        writer.closeListItem();
    } else {
        writer.close(row->kind, row->writtenAs.toString());
    }
}

/// Where the text goes on behind the markup at the front; its size when nothing of it is left.
qsizetype writeMarkup(QStringView html, NotesWriter& writer)
{
    const auto behind = [html](QStringView end, qsizetype from) {
        const qsizetype at = html.indexOf(end, from);
        return at < 0 ? html.size() : at + end.size();
    };
    if (html.startsWith(u"<!--")) {
        return behind(u"-->", 4);
    }
    const QChar second = html.size() > 1 ? html[1] : QChar();
    if (second == u'!' || second == u'?') {
        return behind(u">", 2);
    }
    const QChar letter = second == u'/' && html.size() > 2 ? html[2] : second;
    if (!letter.isLetter()) {
        writer.text(u"<");
        return 1;
    }
    const Tag tag = readTag(html);
    if (tag.length == 0) {
        return html.size();
    }
    if (!tag.isEnd && std::ranges::find(withoutContent, tag.name) != withoutContent.end()) {
        const qsizetype end = html.indexOf(u"</"_s + tag.name, tag.length, Qt::CaseInsensitive);
        return end < 0 ? html.size() : end;
    }
    writeTag(tag, writer);
    return tag.length;
}

} // namespace

void writeNotesHtml(QStringView html, NotesWriter& writer)
{
    while (!html.isEmpty() && !writer.isFull()) {
        const qsizetype markup = html.indexOf(u'<');
        if (markup == 0) {
            html = html.sliced(writeMarkup(html, writer));
            continue;
        }
        const QStringView text = html.left(markup);
        writer.text(withoutEntities(text));
        html = html.sliced(text.size());
    }
}

} // namespace Tavik
