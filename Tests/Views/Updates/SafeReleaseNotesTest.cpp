// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/Updates/SafeReleaseNotes.h>
#include <TavikLauncherPlatform/Updater.h>

#include <QTest>

#include <Support/Table.h>
#include <algorithm>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;
using Format = ReleaseNotes::Format;

namespace {

/// Of elements that have an end.
int deepestNesting(const QString& html)
{
    int depth = 0;
    int deepest = 0;
    for (qsizetype at = html.indexOf(u'<'); at >= 0; at = html.indexOf(u'<', at + 1)) {
        const QStringView tag = QStringView(html).sliced(at);
        if (!tag.startsWith(u"<br") && !tag.startsWith(u"<hr")) {
            depth += tag.startsWith(u"</") ? -1 : 1;
            deepest = std::max(deepest, depth);
        }
    }
    return depth == 0 ? deepest : INT_MAX;
}

} // namespace

class SafeReleaseNotesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void notesKeepTextAndStructureOnly_data()
    {
        const Table<Format, QString, QString> row;
        const auto html = [&row](const char* name, const QString& text, const QString& expected) {
            row(name, Format::html, text, expected);
        };
        html("nothing to read", u"<p> <br><hr><img src=x></p>"_s, u""_s);
        html("a document",
             u"<!DOCTYPE html><html><head><title>T</title><style>p{}</style></head>"
             u"<body onload=a()><p style='x' class=y>One<p>Two</body></html>"_s,
             u"<p>One</p><p>Two</p>"_s);
        html("a script", u"a<script>alert('</b>')<b></ScRiPt >b"_s, u"ab"_s);
        html("a script without an end", u"a<script>b"_s, u"a"_s);
        html(
            "images and frames",
            u"a<img src='https://x.org/p'><iframe src=x>i</iframe><svg><a href='https://x'>s</a></svg>b"_s,
            u"ab"_s);
        html("a safe link",
             u"<a title='>' href = https://x.org/?a=1&amp;b=2 onclick=x>l</a>"_s,
             u"<a href=\"https://x.org/?a=1&amp;b=2\">l</a>"_s);
        html("a script as a link",
             u"<a href='java&#115;cript:a()'>l</a><a href=' &#1;javascript:a()'>m</a>"_s,
             u"lm"_s);
        html("an attribute that breaks out",
             u"<a href='https://x.org/\"><script>'>l</a>"_s,
             u"<a href=\"https://x.org/&quot;&gt;&lt;script&gt;\">l</a>"_s);
        html(
            "entities",
            u"&lt;b&gt; &copy;&#169;&#xA9; &amp;lt; &foo; &#0; &#xD800; &#99999999999; & &;"_s,
            u"&lt;b&gt; ©©© &amp;lt; &amp;foo; &amp;#0; &amp;#xD800; &amp;#99999999999; &amp; &amp;;"_s);
        html("comments", u"a<!-- <b> --><![CDATA[x]]>b<!-- c"_s, u"ab"_s);
        html("characters that a view takes for its own",
             u"a\u202Eb\u2029c\uFFFCd\uFDD0e\x01"
             "f&#x202E;g"_s,
             u"abcdefg"_s);

        row("plain text",
            Format::plainText,
            u"A <b>\n  - b\r\n\n\nC & d\n"_s,
            u"<p>A &lt;b&gt;<br>\u00A0\u00A0- b</p><p>C &amp; d</p>"_s);
        row("Markdown",
            Format::markdown,
            u"## T\n\nSome **bold** *it* `code` [l](https://x.org) [m](javascript:a) "
            u"![i](https://x.org/p)\n\n"
            u"- a\n- b\n  1. c\n- d\n\n```\n1\n 2\n```\n\n---\n\nend"_s,
            u"<h3><b>T</b></h3><p>Some <b>bold</b> <i>it</i> <code>code</code> "
            u"<a href=\"https://x.org\">l</a> m "
            u"</p><ul><li>a</li><li>b<ol><li>c</li></ol></li><li>d</li></ul>"
            u"<pre>1\n 2</pre><hr><p>end</p>"_s);
        row("HTML in Markdown",
            Format::markdown,
            u"a <script>b</script>"_s,
            u"<p>a &lt;script&gt;b&lt;/script&gt;</p>"_s);
    }

    void notesKeepTextAndStructureOnly()
    {
        const auto [format, text, expected] = fetch<Format, QString, QString>();
        QCOMPARE(safeReleaseNotesHtml({.format = format, .text = text}), expected);
    }

    void onlyLinksOfTheWebAndMailAreSafe()
    {
        for (const char* link :
             {"https://example.org", "HTTP://example.org/a?b#c", "mailto:a@example.org"}) {
            QVERIFY2(isSafeReleaseNotesLink(QString::fromLatin1(link)), link);
        }
        QStringList unsafe
            = u"|example.org|//example.org|https://|https://bank.example@example.org/|"
              u"https://exa mple.org|javascript:a()|JavaScript:a()|file:///etc/passwd|"
              u"data:text/html,a|ftp://example.org|smb://example.org|qrc:/a|mailto:|"
              u"mailto:a@b.org?attach=/etc/passwd|https:example.org|#a|x-scheme:a"_s.split(u'|');
        unsafe << u"https://example.org/"_s + QString(2000, u'a');
        for (const QString& link : unsafe) {
            QVERIFY2(!isSafeReleaseNotesLink(link), qPrintable(link));
        }
    }

    void hugeNotesStaySmallEnoughToShow()
    {
        const auto verifySmall = [](Format format, const QString& text) {
            const QString html = safeReleaseNotesHtml({.format = format, .text = text});
            QVERIFY2(html.size() < 230'000, qPrintable(text.left(20)));
            QVERIFY2(html.count(u"<li>"_s) <= 1000, qPrintable(text.left(20)));
            QVERIFY2(deepestNesting(html) <= 20, qPrintable(text.left(20)));
        };
        for (const QString& piece :
             u"a<br>|<div>a|<ul><li>a|<blockquote>a|<table><tr><td>a|<a href=\"https://x.org\">x|"
             u"<b><i><u><s>x</b>|<pre>a\n|&amp;"_s.split(u'|')) {
            verifySmall(Format::html, u"<ul>"_s + piece.repeated(250'000 / piece.size()));
        }
        verifySmall(Format::plainText, u"a\n\n"_s.repeated(80'000));
        // Up to its own bound, which is where it takes longest.
        for (const QString& piece : {u"- a\n"_s, u"> "_s}) {
            verifySmall(Format::markdown, piece.repeated(9'999 / piece.size()));
        }
    }
};

QTEST_MAIN(SafeReleaseNotesTest)
#include "SafeReleaseNotesTest.moc"
