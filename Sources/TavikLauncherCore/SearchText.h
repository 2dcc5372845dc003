// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>

#include <vector>

namespace Tavik {

/// A text cut into the words that search compares: lower case, canonically composed, split at white
/// space, "-", "_" and ".". Characters are user-perceived ones (grapheme clusters) throughout.
class SearchText
{
public:
    struct Word
    {
        QStringView text; ///< Points into the text that made it.
        qsizetype length = 0; ///< In characters.
    };

    explicit SearchText(const QString& text);
    SearchText(const SearchText&) = delete;
    SearchText& operator=(const SearchText&) = delete;

    [[nodiscard]] const std::vector<Word>& words() const { return m_words; }
    /// Whether `word`, one of ours, begins with all the characters of the folded text `prefix`.
    [[nodiscard]] bool startsWith(const Word& word, QStringView prefix) const;

private:
    QString m_folded;
    std::vector<bool>
        m_isBoundary; ///< Per position in `m_folded`: a character begins or ends here.
    std::vector<Word> m_words;
};

/// The same rules for texts in which every code unit is a character of its own, already composed
/// and lowered to exactly one code unit: ASCII and most of what names are written in. Such a text
/// needs no memory of its own to be searched.
namespace PlainText {

[[nodiscard]] constexpr bool isPlain(char16_t unit)
{
    constexpr char16_t dottedCapitalI = 0x0130; // Lowered to two code units.
    if (unit < 0x0300) { // Latin, up to the combining marks.
        return unit != dottedCapitalI;
    }
    return (unit >= 0x0388 && unit <= 0x0482) // Greek, Cyrillic
        || (unit >= 0x3041 && unit <= 0x3096) || (unit >= 0x30A1 && unit <= 0x30FC) // Kana
        || (unit >= 0x4E00 && unit <= 0x9FFF) // Han
        || (unit >= 0xAC00 && unit <= 0xD7A3); // Hangul syllables
}

[[nodiscard]] inline char16_t folded(char16_t unit)
{
    if (unit < 0x80) {
        const bool isUpper = unit >= u'A' && unit <= u'Z';
        return isUpper ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
    }
    return static_cast<char16_t>(QChar::toLower(char32_t{unit}));
}

[[nodiscard]] inline bool isSeparator(char16_t unit)
{
    return unit == u'-' || unit == u'_' || unit == u'.' || QChar::isSpace(char32_t{unit});
}

} // namespace PlainText

/// With which characters the words of some texts begin: a set that may hold more than it was
/// given, so that most texts a query cannot match are told apart by one comparison.
class WordBeginnings
{
public:
    void add(QStringView text);
    /// Whether all that `other` holds is here, too.
    [[nodiscard]] bool holds(WordBeginnings other) const { return (other.m_bits & ~m_bits) == 0; }
    /// Of words that are cut and folded already.
    [[nodiscard]] static WordBeginnings of(const std::vector<SearchText::Word>& words);

private:
    void add(char16_t folded) { m_bits |= quint64{1} << (folded % 64); }

    quint64 m_bits = 0;
};

} // namespace Tavik
