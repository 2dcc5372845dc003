// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

#include <optional>
#include <span>

namespace Tavik {

/// Finds what belongs to a text among thousands, in eight bytes for each: it knows the texts by
/// their hashes alone, so whoever asks compares the texts. A value, cheap to copy.
class TextIndex
{
public:
    struct Entry
    {
        quint32 hash = 0;
        quint32 position = 0; ///< Of what belongs to the text, in a list of the owner's.
    };

    void reserve(qsizetype count) { m_entries.reserve(count); }
    /// An empty text is not noted.
    void add(QStringView text, qsizetype position);
    /// Once all is added, before the first question.
    void sort();
    /// What was added with `text`, in the order of adding; other texts' may be among it.
    [[nodiscard]] std::span<const Entry> candidates(QStringView text) const;
    /// The position that was added first with `text`. `isMeant` compares the text at a position.
    template <typename IsMeant>
    [[nodiscard]] std::optional<qsizetype> first(QStringView text, IsMeant isMeant) const
    {
        for (const Entry& candidate : candidates(text)) {
            if (isMeant(qsizetype{candidate.position})) {
                return candidate.position;
            }
        }
        return std::nullopt;
    }

private:
    QList<Entry> m_entries; ///< By hash.
};

} // namespace Tavik
