// SPDX-License-Identifier: MIT
#include <TavikLauncherCore/TextIndex.h>

#include <QHash>

#include <algorithm>

namespace Tavik {

namespace {

quint32 hashOf(QStringView text)
{
    return static_cast<quint32>(qHash(text, QHashSeed::globalSeed()));
}

} // namespace

void TextIndex::add(QStringView text, qsizetype position)
{
    if (!text.isEmpty()) {
        m_entries.append({.hash = hashOf(text), .position = static_cast<quint32>(position)});
    }
}

void TextIndex::sort()
{
    std::ranges::stable_sort(m_entries, {}, &Entry::hash);
    m_entries.squeeze();
}

std::span<const TextIndex::Entry> TextIndex::candidates(QStringView text) const
{
    const quint32 hash = hashOf(text);
    return {std::ranges::lower_bound(m_entries, hash, {}, &Entry::hash),
            std::ranges::upper_bound(m_entries, hash, {}, &Entry::hash)};
}

} // namespace Tavik
