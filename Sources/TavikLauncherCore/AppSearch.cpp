// SPDX-License-Identifier: MIT
#include <TavikLauncherCore/AppSearch.h>
#include <TavikLauncherCore/NameOrder.h>
#include <TavikLauncherCore/SearchText.h>
#include <TavikLauncherCore/TextIndex.h>

#include <QStringTokenizer>

#include <algorithm>
#include <compare>
#include <vector>

namespace Tavik::AppSearch {

namespace {

/// Meets the words of a candidate in their order and adds up what they earn. Each word of the query
/// takes the first word left that starts with it.
class Tally
{
public:
    explicit Tally(const std::vector<SearchText::Word>& query)
        : m_query(query)
    { }

    /// `startsWith` tells whether the candidate's next word, `length` characters long, begins with
    /// the text it is given.
    template <typename StartsWith> void meet(qsizetype length, const StartsWith& startsWith)
    {
        const bool isFirst = m_candidateWords++ == 0;
        if (m_matched == m_query.size()) {
            return;
        }
        const SearchText::Word& wanted = m_query[m_matched];
        if (length < wanted.length || !startsWith(wanted.text)) {
            return;
        }
        const qint64 missing = length - wanted.length;
        m_total += isFirst ? firstWord : laterWord;
        m_total += std::max<qint64>(0, coverage - missing);
        m_total += missing == 0 ? wholeWord : 0;
        ++m_matched;
    }

    [[nodiscard]] std::optional<qint64> score() const
    {
        if (m_matched < m_query.size()) {
            return std::nullopt;
        }
        return m_total - m_candidateWords;
    }

private:
    static constexpr qint64 firstWord = 20;
    static constexpr qint64 laterWord = 12;
    static constexpr qint64 coverage = 8;
    static constexpr qint64 wholeWord = 8;

    const std::vector<SearchText::Word>& m_query;
    std::size_t m_matched = 0;
    qint64 m_candidateWords = 0;
    qint64 m_total = 0;
};

bool plainWordStartsWith(QStringView word, QStringView prefix)
{
    const auto folded = [](QChar unit) {
        return QChar(PlainText::folded(unit.unicode()));
    };
    return prefix.size() <= word.size()
        && std::ranges::equal(word.first(prefix.size()), prefix, {}, folded);
}

std::optional<qint64> plainScore(const SearchText& query, QStringView candidate)
{
    Tally tally(query.words());
    const QChar* const end = candidate.end();
    const auto isSeparator = [](QChar character) {
        return PlainText::isSeparator(character.unicode());
    };
    const QChar* begin = std::find_if_not(candidate.begin(), end, isSeparator);
    while (begin != end) {
        const QChar* const wordEnd = std::find_if(begin, end, isSeparator);
        const QStringView word(begin, wordEnd);
        tally.meet(word.size(),
                   [word](QStringView prefix) { return plainWordStartsWith(word, prefix); });
        begin = std::find_if_not(wordEnd, end, isSeparator);
    }
    return tally.score();
}

std::optional<qint64> scoreOf(const SearchText& query, QStringView candidate)
{
    if (query.words().empty()) {
        return 0;
    }
    const auto isPlain = [](QChar character) {
        return PlainText::isPlain(character.unicode());
    };
    if (std::ranges::all_of(candidate, isPlain)) {
        return plainScore(query, candidate);
    }
    const SearchText text(candidate.toString());
    Tally tally(query.words());
    for (const SearchText::Word& word : text.words()) {
        tally.meet(word.length, [&](QStringView prefix) { return text.startsWith(word, prefix); });
    }
    return tally.score();
}

/// The score of the name that answers best, of those on the lines; absent when none does.
std::optional<qint64> bestOf(const SearchText& query, const QString& lines)
{
    std::optional<qint64> best;
    for (const QStringView name : qTokenize(lines, u'\n', Qt::SkipEmptyParts)) {
        best = std::max(best, scoreOf(query, name));
    }
    return best;
}

/// What was found by; the better first.
enum class Rank {
    name,
    otherName,
};

struct Match
{
    qsizetype index = 0;
    Rank rank = Rank::name;
    qint64 score = 0;
};

/// Keeps the best `limit` of the matches it is given, in a heap with the last of them on top, so
/// that most matches cost one comparison and names are collated only where scores tie.
class BestMatches
{
public:
    BestMatches(const QList<IndexedApp>& apps, qsizetype limit, Ties ties)
        : m_before{.apps = apps, .ties = ties}
        , m_limit(static_cast<std::size_t>(std::min(limit, apps.size())))
    { }

    void add(const Match& match)
    {
        if (m_heap.size() < m_limit) {
            m_heap.push_back(match);
        } else if (m_before(match, m_heap.front())) {
            std::ranges::pop_heap(m_heap, m_before);
            m_heap.back() = match;
        } else {
            return;
        }
        std::ranges::push_heap(m_heap, m_before);
    }

    [[nodiscard]] QList<IndexedApp> sorted()
    {
        std::ranges::sort_heap(m_heap, m_before);
        QList<IndexedApp> apps;
        apps.reserve(static_cast<qsizetype>(m_heap.size()));
        for (const Match& match : m_heap) {
            apps.append(m_before.apps[match.index]);
        }
        return apps;
    }

private:
    /// A total order, because no two matches have the same index.
    struct Order
    {
        const QList<IndexedApp>& apps;
        Ties ties;

        bool operator()(const Match& left, const Match& right) const
        {
            if (left.rank != right.rank) {
                return left.rank < right.rank;
            }
            if (left.score != right.score) {
                return left.score > right.score;
            }
            const int names = ties == Ties::asGiven
                ? 0
                : nameCollator().compare(apps[left.index].name(), apps[right.index].name());
            return names != 0 ? names < 0 : left.index < right.index;
        }
    };

    Order m_before;
    std::size_t m_limit;
    std::vector<Match> m_heap;
};

/// Where applications stand in a list that is sorted by name.
class Positions
{
public:
    explicit Positions(const QList<IndexedApp>& sorted)
        : m_sorted(sorted)
    {
        m_byPath.reserve(sorted.size());
        for (qsizetype position = 0; position < sorted.size(); ++position) {
            m_byPath.add(sorted[position].path(), position);
        }
        m_byPath.sort();
    }

    /// Absent for one that is not there, or by another name.
    [[nodiscard]] std::optional<qsizetype> of(const IndexedApp& app) const
    {
        return m_byPath.first(app.path(), [&](qsizetype position) {
            const IndexedApp& other = m_sorted[position];
            return other.path() == app.path() && other.name() == app.name();
        });
    }

private:
    const QList<IndexedApp>& m_sorted;
    TextIndex m_byPath;
};

/// An application whose place is known.
struct Ranked
{
    qsizetype position;
    qsizetype index; ///< Among the applications to sort.

    auto operator<=>(const Ranked&) const = default;
};

/// An application whose place is to be found by its name.
struct Keyed
{
    QCollatorSortKey key;
    qsizetype index; ///< Among the applications to sort.
};

} // namespace

QList<IndexedApp>
results(const QString& query, const QList<IndexedApp>& apps, qsizetype limit, Ties ties)
{
    const qsizetype effectiveLimit = std::max<qsizetype>(limit, 1);
    const QString trimmed = query.trimmed();
    if (trimmed.isEmpty()) {
        return apps.first(std::min(effectiveLimit, apps.size()));
    }
    const SearchText wanted(trimmed);
    const WordBeginnings beginnings = WordBeginnings::of(wanted.words());
    BestMatches best(apps, effectiveLimit, ties);
    for (qsizetype index = 0; index < apps.size(); ++index) {
        if (!apps[index].wordBeginnings().holds(beginnings)) {
            continue;
        }
        if (const auto score = scoreOf(wanted, apps[index].name())) {
            best.add({index, Rank::name, *score});
        } else if (const auto other = bestOf(wanted, apps[index].otherNames())) {
            best.add({index, Rank::otherName, *other});
        }
    }
    return best.sorted();
}

std::optional<qint64> score(const QString& query, const QString& candidate)
{
    return scoreOf(SearchText(query), candidate);
}

bool localizedCaseInsensitiveLess(const QString& left, const QString& right)
{
    return nameCollator().compare(left, right) < 0;
}

QList<IndexedApp> sortedByName(const QList<IndexedApp>& apps, const QList<IndexedApp>& sorted)
{
    const Positions positions(sorted);
    std::vector<Ranked> ranked;
    std::vector<Keyed> keyed;
    ranked.reserve(static_cast<std::size_t>(apps.size()));
    for (qsizetype index = 0; index < apps.size(); ++index) {
        if (const std::optional<qsizetype> position = positions.of(apps[index])) {
            ranked.push_back({*position, index});
        } else {
            keyed.push_back({nameCollator().sortKey(apps[index].name()), index});
        }
    }
    std::ranges::sort(ranked);
    std::ranges::sort(keyed, [](const Keyed& left, const Keyed& right) {
        const int names = left.key.compare(right.key);
        return names != 0 ? names < 0 : left.index < right.index;
    });

    QList<IndexedApp> result;
    result.reserve(apps.size());
    auto next = ranked.cbegin();
    for (const Keyed& app : keyed) {
        const auto end = std::partition_point(next, ranked.cend(), [&](const Ranked& before) {
            const int names = nameCollator().sortKey(apps[before.index].name()).compare(app.key);
            return names != 0 ? names < 0 : before.index < app.index;
        });
        for (; next != end; ++next) {
            result.append(apps[next->index]);
        }
        result.append(apps[app.index]);
    }
    for (; next != ranked.cend(); ++next) {
        result.append(apps[next->index]);
    }
    return result;
}

} // namespace Tavik::AppSearch
