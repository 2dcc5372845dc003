// SPDX-License-Identifier: MIT
#include <TavikLauncherCore/AppSearch.h>

#include <QRandomGenerator>
#include <QStringList>

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>

using namespace Tavik;
using namespace Qt::StringLiterals;

namespace {

enum class Script {
    ascii,
    cyrillic,
    combining,
};

/// Names of one to four made-up words, in no order; one in a thousand has a word that starts with
/// "zq", and every one has a word that starts with "a".
QList<IndexedApp> catalog(qsizetype size, Script script = Script::ascii)
{
    static constexpr std::array vowels{u'a', u'e', u'i', u'o', u'u'};
    static constexpr std::u16string_view consonants = u"bcdfghjklmnprstvw";
    QRandomGenerator random(20240229);
    const auto word = [&random] {
        QString text;
        const auto syllables = random.bounded(1, 5);
        for (int syllable = 0; syllable < syllables; ++syllable) {
            text += QChar(consonants[random.bounded(static_cast<quint32>(consonants.size()))]);
            text += QChar(vowels[random.bounded(static_cast<quint32>(vowels.size()))]);
        }
        text[0] = text[0].toUpper();
        return text;
    };
    QList<IndexedApp> apps;
    apps.reserve(size);
    for (qsizetype index = 0; index < size; ++index) {
        QStringList words;
        const auto count = random.bounded(0, 3);
        for (int each = 0; each < count; ++each) {
            words.append(word());
        }
        words.append(u"A"_s + word().toLower());
        if (index % 1000 == 500) {
            words.append(u"Zq"_s + word().toLower());
        }
        QString name = words.join(u' ');
        if (script == Script::cyrillic) {
            name += u" Почта"_s;
        } else if (script == Script::combining) {
            name += u" e\u0301"_s;
        }
        apps.append({name, std::nullopt, u"/usr/share/applications/%1.desktop"_s.arg(index), {}});
    }
    return apps;
}

void search(benchmark::State& state, const QString& query, Script script = Script::ascii)
{
    const QList<IndexedApp> apps = catalog(state.range(0), script);
    qsizetype found = 0;
    for ([[maybe_unused]] auto iteration : state) {
        found = AppSearch::results(query, apps, 24).size();
        benchmark::DoNotOptimize(found);
    }
    state.counters["found"] = static_cast<double>(found);
}

void sort(benchmark::State& state)
{
    const QList<IndexedApp> apps = catalog(state.range(0));
    for ([[maybe_unused]] auto iteration : state) {
        benchmark::DoNotOptimize(AppSearch::sortedByName(apps).size());
    }
}

void sortByComparing(benchmark::State& state)
{
    const QList<IndexedApp> apps = catalog(state.range(0));
    for ([[maybe_unused]] auto iteration : state) {
        QList<IndexedApp> sorted = apps;
        std::ranges::stable_sort(
            sorted, AppSearch::localizedCaseInsensitiveLess, &IndexedApp::name);
        benchmark::DoNotOptimize(sorted.size());
    }
}

} // namespace

BENCHMARK_CAPTURE(search, everyNameMatches, u"a"_s)
    ->Arg(300)
    ->Arg(3000)
    ->Arg(30'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, rareMatch, u"zq"_s)
    ->Arg(300)
    ->Arg(3000)
    ->Arg(30'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, separatorsOnly, u"-"_s)
    ->Arg(300)
    ->Arg(3000)
    ->Arg(30'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, twoWords, u"a zq"_s)
    ->Arg(300)
    ->Arg(3000)
    ->Arg(30'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, cyrillicNames, u"поч"_s, Script::cyrillic)
    ->Arg(300)
    ->Arg(3000)
    ->Arg(30'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, combiningMarks, u"a"_s, Script::combining)
    ->Arg(300)
    ->Arg(3000)
    ->Arg(30'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(sort)->Arg(300)->Arg(3000)->Arg(30'000)->Unit(benchmark::kMillisecond);
BENCHMARK(sortByComparing)->Arg(300)->Arg(3000)->Arg(30'000)->Unit(benchmark::kMillisecond);
