// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/DesktopEntries.h>

#include <QSet>

#include <algorithm>
#include <utility>

namespace Tavik {

namespace {

/// In place of a position, for a name that several entries answer to.
constexpr qsizetype tied = -1;
constexpr qsizetype tiedWithArguments = -2;

QString similar(QString name)
{
    return std::move(name).toCaseFolded().replace(u' ', u'-');
}

} // namespace

DesktopEntries::DesktopEntries(QList<SharedDesktopEntry> entries)
    : m_entries(std::move(entries))
{
    QSet<QString> seen;
    seen.reserve(m_entries.size());
    for (Index* index : {&m_paths, &m_ids, &m_similarIds, &m_programs}) {
        index->reserve(m_entries.size());
    }
    QList<qsizetype> standing;
    QList<qsizetype> images;
    for (qsizetype position = 0; position < m_entries.size(); ++position) {
        const DesktopEntry& entry = *m_entries.at(position);
        const qsizetype before = seen.size();
        seen.insert(entry.id);
        if (entry.isImage) {
            images.append(position);
        } else if (seen.size() > before && entry.isApplication && !entry.isDeleted) {
            // One that is deleted or damaged still stands in the way of those behind it.
            standing.append(position);
            addNames(position);
        }
    }
    // An image that the desktop has given an entry is that entry, which may name it by its path or,
    // from where programs are looked for, by its name.
    QSet<QString> started;
    if (!images.isEmpty()) {
        for (const qsizetype position : std::as_const(standing)) {
            started.insert(m_entries.at(position)->program);
        }
    }
    for (const qsizetype position : std::as_const(images)) {
        const DesktopEntry& image = *m_entries.at(position);
        if (image.isApplication && !started.contains(image.path)
            && !started.contains(image.path.section(u'/', -1))) {
            standing.append(position);
            addNames(position);
        }
    }
    // The whole of an ID is more than the end of another, so the ends come last.
    for (const qsizetype position : std::as_const(standing)) {
        const QString id = similar(m_entries.at(position)->id);
        if (id.contains(u'.')) {
            add(m_similarIds, id.section(u'.', -1), position, Rivals::none);
        }
    }
}

void DesktopEntries::addNames(qsizetype position)
{
    const DesktopEntry& entry = *m_entries.at(position);
    m_paths.insert(entry.path, position);
    m_ids.insert(entry.id, position);
    add(m_similarIds, similar(entry.id), position, Rivals::first);
    for (const QString& name : {entry.startupClass, entry.gameClass}) {
        add(m_startupClasses, name, position, Rivals::first);
        add(m_similarClasses, similar(name), position, Rivals::first);
    }
    add(m_programs, entry.program, position, Rivals::plainest);
    if (const QString name = entry.program.section(u'/', -1); name != entry.program) {
        add(m_programs, name, position, Rivals::plainest);
    }
}

void DesktopEntries::add(Index& index, const QString& key, qsizetype position, Rivals rivals)
{
    if (key.isEmpty()) {
        return;
    }
    const auto found = index.find(key);
    if (found == index.end()) {
        index.insert(key, position);
        return;
    }
    const DesktopEntry& challenger = *m_entries.at(position);
    if (*found < 0) {
        const bool mayTake = *found == tiedWithArguments && !challenger.takesArguments;
        *found = mayTake && !challenger.isHidden ? position : *found;
        return;
    }
    const DesktopEntry& holder = *m_entries.at(*found);
    if (*found == position || rivals == Rivals::first) {
        *found = holder.isHidden && !challenger.isHidden ? position : *found;
    } else if (holder.isHidden != challenger.isHidden) {
        *found = holder.isHidden ? position : *found;
    } else if (rivals == Rivals::none) {
        *found = similar(holder.id) == key ? *found : tied;
    } else if (holder.takesArguments == challenger.takesArguments) {
        *found = holder.takesArguments ? tiedWithArguments : tied;
    } else {
        *found = holder.takesArguments ? position : *found;
    }
}

const DesktopEntry* DesktopEntries::at(const Index& index, const QString& key) const
{
    const auto found = index.constFind(key);
    return found == index.cend() || *found < 0 ? nullptr : m_entries.at(*found).get();
}

bool DesktopEntries::operator==(const DesktopEntries& other) const
{
    return std::ranges::equal(m_entries, other.m_entries, [](const auto& left, const auto& right) {
        return left == right || *left == *right;
    });
}

const DesktopEntry* DesktopEntries::withPath(const QString& path) const
{
    return at(m_paths, path);
}

const DesktopEntry* DesktopEntries::withId(const QString& id) const
{
    return at(m_ids, id);
}

const DesktopEntry* DesktopEntries::withSimilarId(const QString& id) const
{
    return at(m_similarIds, similar(id));
}

const DesktopEntry* DesktopEntries::withStartupClass(const QString& startupClass) const
{
    return at(m_startupClasses, startupClass);
}

const DesktopEntry* DesktopEntries::withSimilarStartupClass(const QString& startupClass) const
{
    return at(m_similarClasses, similar(startupClass));
}

const DesktopEntry* DesktopEntries::withProgram(const QString& program) const
{
    const DesktopEntry* entry = at(m_programs, program);
    return entry ? entry : at(m_programs, program.section(u'/', -1));
}

} // namespace Tavik
