// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/DesktopEntries.h>

#include <QSet>

#include <algorithm>
#include <utility>

namespace Tavik {

namespace {

QString similar(QString name)
{
    return std::move(name).toCaseFolded().replace(u' ', u'-');
}

/// The part behind the domain; the whole where there is none.
QString endOf(const QString& id)
{
    return id.sliced(id.lastIndexOf(u'.') + 1);
}

QString fileName(const QString& path)
{
    return path.sliced(path.lastIndexOf(u'/') + 1);
}

template <typename Entries> const DesktopEntry* firstOf(const Entries& entries)
{
    return entries.isEmpty() ? nullptr : entries.first();
}

} // namespace

DesktopEntries::DesktopEntries(QList<SharedDesktopEntry> entries)
    : m_entries(std::move(entries))
{
    TextIndex all; // By ID, also those that are deleted or damaged.
    for (TextIndex* index : {&all, &m_paths, &m_ids, &m_programs}) {
        index->reserve(m_entries.size());
    }
    for (qsizetype position = 0; position < m_entries.size(); ++position) {
        all.add(m_entries.at(position)->id, position);
    }
    all.sort();
    QList<qsizetype> standing;
    QList<qsizetype> images;
    for (qsizetype position = 0; position < m_entries.size(); ++position) {
        const DesktopEntry& entry = *m_entries.at(position);
        const auto first = all.first(
            entry.id, [&](qsizetype other) { return m_entries.at(other)->id == entry.id; });
        if (entry.isImage) {
            images.append(position);
        } else if (first.value_or(position) == position && entry.isApplication
                   && !entry.isDeleted) {
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
            started.insert(m_entries.at(position)->program.toString());
        }
    }
    for (const qsizetype position : std::as_const(images)) {
        const DesktopEntry& image = *m_entries.at(position);
        if (image.isApplication && !started.contains(image.path)
            && !started.contains(fileName(image.path))) {
            standing.append(position);
            addNames(position);
        }
    }
    for (const qsizetype position : std::as_const(standing)) {
        if (const QString id = similar(m_entries.at(position)->id); endOf(id) != id) {
            m_ids.add(endOf(id), position);
        }
    }
    for (TextIndex* index : {&m_paths, &m_ids, &m_classes, &m_programs}) {
        index->sort();
    }
}

void DesktopEntries::addNames(qsizetype position)
{
    const DesktopEntry& entry = *m_entries.at(position);
    m_paths.add(entry.path, position);
    m_ids.add(similar(entry.id), position);
    for (const QString& name : {entry.startupClass.toString(), entry.gameClass()}) {
        m_classes.add(similar(name), position);
    }
    const QString program = entry.program.toString();
    m_programs.add(program, position);
    if (const QString name = fileName(program); name != program) {
        m_programs.add(name, position);
    }
}

template <typename IsMeant>
DesktopEntries::Answers
DesktopEntries::answers(const TextIndex& index, const QString& text, IsMeant isMeant) const
{
    Answers all;
    for (const TextIndex::Entry& candidate : index.candidates(text)) {
        const DesktopEntry* entry = m_entries.at(candidate.position).get();
        if (isMeant(*entry) && !all.contains(entry)) {
            all.append(entry);
        }
    }
    const auto isHidden = [](const DesktopEntry* entry) {
        return entry->isHidden;
    };
    if (!std::ranges::all_of(all, isHidden)) {
        all.removeIf(isHidden);
    }
    return all;
}

bool DesktopEntries::operator==(const DesktopEntries& other) const
{
    return std::ranges::equal(m_entries, other.m_entries, [](const auto& left, const auto& right) {
        return left == right || *left == *right;
    });
}

const DesktopEntry* DesktopEntries::withPath(const QString& path) const
{
    return firstOf(
        answers(m_paths, path, [&](const DesktopEntry& entry) { return entry.path == path; }));
}

const DesktopEntry* DesktopEntries::withId(const QString& id) const
{
    return firstOf(
        answers(m_ids, similar(id), [&](const DesktopEntry& entry) { return entry.id == id; }));
}

const DesktopEntry* DesktopEntries::withSimilarId(const QString& id) const
{
    const QString wanted = similar(id);
    const Answers found = answers(m_ids, wanted, [&](const DesktopEntry& entry) {
        const QString own = similar(entry.id);
        return own == wanted || endOf(own) == wanted;
    });
    // The whole of an ID is more than the end of another.
    const bool isClear
        = found.size() == 1 || (!found.isEmpty() && similar(found.first()->id) == wanted);
    return isClear ? found.first() : nullptr;
}

const DesktopEntry* DesktopEntries::withStartupClass(const QString& startupClass) const
{
    return firstOf(answers(m_classes, similar(startupClass), [&](const DesktopEntry& entry) {
        return entry.startupClass.toString() == startupClass || entry.gameClass() == startupClass;
    }));
}

const DesktopEntry* DesktopEntries::withSimilarStartupClass(const QString& startupClass) const
{
    const QString wanted = similar(startupClass);
    return firstOf(answers(m_classes, wanted, [&](const DesktopEntry& entry) {
        return similar(entry.startupClass.toString()) == wanted
            || similar(entry.gameClass()) == wanted;
    }));
}

const DesktopEntry* DesktopEntries::withProgram(const QString& program) const
{
    const DesktopEntry* entry = starting(program);
    return entry ? entry : starting(fileName(program));
}

const DesktopEntry* DesktopEntries::starting(const QString& program) const
{
    Answers found = answers(m_programs, program, [&](const DesktopEntry& entry) {
        const QString own = entry.program.toString();
        return own == program || fileName(own) == program;
    });
    if (found.size() > 1) {
        found.removeIf([](const DesktopEntry* entry) { return entry->takesArguments; });
    }
    return found.size() == 1 ? found.first() : nullptr;
}

} // namespace Tavik
