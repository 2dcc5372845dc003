// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/Updates/UpdateAlertView.h>
#include <TavikLauncherPlatform/Updater.h>

#include <QApplication>
#include <QImage>

#include <array>
#include <benchmark/benchmark.h>

namespace {

using namespace Tavik;
using namespace Qt::StringLiterals;
using Format = ReleaseNotes::Format;

constexpr qsizetype mostNotes = 1'000'000; ///< Characters; what is longer is not fetched.

struct Notes
{
    const char* name;
    Format format;
    const char16_t* piece; ///< Of which they consist.
    qsizetype length = mostNotes;
};
const std::array worst{
    Notes{"words", Format::html, u"<p>Something is faster now, and something else is new.</p>"},
    Notes{"one paragraph", Format::html, u"word "},
    Notes{"one word", Format::html, u"x"},
    Notes{"lines", Format::html, u"a<br>"},
    Notes{"paragraphs", Format::html, u"<p>a"},
    Notes{"list", Format::html, u"<li>a"},
    Notes{"lists in lists", Format::html, u"<ul><li>a"},
    Notes{"spans", Format::html, u"<b>a</b><i>b</i>"},
    Notes{"links", Format::html, u"<a href='https://x.org'>x</a>"},
    Notes{"code", Format::html, u"<pre>a\n\n"},
    Notes{"entities", Format::html, u"&lt;&#128512;"},
    Notes{"many scripts", Format::html, u"\u05D0\u0627\u4E00\u0E01a\u0928 "},
    Notes{"marks", Format::html, u"a\u0301\u0302\u0303\u0304"},
    Notes{"plain lines", Format::plainText, u"a\n"},
    Notes{"plain paragraphs", Format::plainText, u"a\n\n"},
    Notes{"Markdown, long", Format::markdown, u"- **a** _b_\n"},
    Notes{"Markdown, emphasis", Format::markdown, u"*a _b ", 10'000},
    Notes{"Markdown, quotes", Format::markdown, u"> ", 10'000},
    Notes{"Markdown, list", Format::markdown, u"- a\n", 2400},
    Notes{"Markdown, lists in lists", Format::markdown, u"- ", 10'000},
    Notes{"Markdown, numbers", Format::markdown, u"1. a `b` _c_\n", 7000},
    Notes{"Markdown, links", Format::markdown, u"[a](https://x.org)", 10'000},
};

/// From the arrival of the notes until the window with them is drawn, all on the main thread.
void showNotes(benchmark::State& state)
{
    const Notes& notes = worst.at(static_cast<std::size_t>(state.range(0)));
    state.SetLabel(notes.name);
    const QString piece = QString::fromUtf16(notes.piece);
    const ReleaseNotes arrived{.format = notes.format,
                               .text = piece.repeated(notes.length / piece.size())};
    UpdateItem item{.displayVersionString = u"2.0"_s};
    item.releaseNotesUrl = QUrl(u"https://example.org/notes"_s);
    for (auto _ : state) {
        state.PauseTiming();
        UpdateAlertView view(item, {.ownVersion = u"1.0"_s, .isAwaited = true}, {});
        view.resize(view.preferredSize());
        view.show();
        QImage image(view.size(), QImage::Format_RGB32);
        view.render(&image);
        state.ResumeTiming();
        view.showReleaseNotes(arrived);
        view.resize(view.preferredSize());
        view.render(&image);
    }
}

} // namespace

BENCHMARK(showNotes)->DenseRange(0, int(worst.size()) - 1)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
