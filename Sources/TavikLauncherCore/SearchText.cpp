// SPDX-License-Identifier: MIT
#include <TavikLauncherCore/SearchText.h>

#include <QTextBoundaryFinder>

namespace Tavik {

namespace {

/// A character is a separator when it is one of the three marks and nothing else, or white space,
/// which a following combining mark does not change (and a line end may be two code units).
bool isSeparator(QStringView character)
{
    return QChar::isSpace(character.front().unicode())
        || (character.size() == 1 && PlainText::isSeparator(character.front().unicode()));
}

} // namespace

SearchText::SearchText(const QString& text)
    : m_folded(text.toLower().normalized(QString::NormalizationForm_C))
    , m_isBoundary(static_cast<std::size_t>(m_folded.size()) + 1)
{
    const QStringView folded = m_folded;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, m_folded);
    m_isBoundary[0] = true;
    qsizetype wordBegin = 0;
    qsizetype wordLength = 0;
    const auto endWord = [&](qsizetype end) {
        if (wordLength > 0) {
            m_words.push_back({folded.sliced(wordBegin, end - wordBegin), wordLength});
        }
        wordLength = 0;
    };
    for (qsizetype begin = 0; begin < folded.size();) {
        const qsizetype next = finder.toNextBoundary();
        const qsizetype end = next > begin ? next : folded.size();
        m_isBoundary[static_cast<std::size_t>(end)] = true;
        if (isSeparator(folded.sliced(begin, end - begin))) {
            endWord(begin);
            wordBegin = end;
        } else {
            ++wordLength;
        }
        begin = end;
    }
    endWord(folded.size());
}

bool SearchText::startsWith(const Word& word, QStringView prefix) const
{
    const auto offset = word.text.data() - m_folded.constData();
    return word.text.startsWith(prefix)
        && m_isBoundary[static_cast<std::size_t>(offset + prefix.size())];
}

void WordBeginnings::add(QStringView text)
{
    bool isInWord = false;
    for (const QChar character : text) {
        const char16_t unit = character.unicode();
        if (!PlainText::isPlain(unit)) {
            m_bits = ~quint64{0}; // Only the whole comparison can tell.
            return;
        }
        const bool isSeparator = PlainText::isSeparator(unit);
        if (!isSeparator && !isInWord) {
            add(PlainText::folded(unit));
        }
        isInWord = !isSeparator;
    }
}

WordBeginnings WordBeginnings::of(const std::vector<SearchText::Word>& words)
{
    WordBeginnings beginnings;
    for (const SearchText::Word& word : words) {
        beginnings.add(word.text.front().unicode());
    }
    return beginnings;
}

} // namespace Tavik
