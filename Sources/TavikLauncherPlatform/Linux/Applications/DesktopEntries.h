// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherCore/TextIndex.h>
#include <TavikLauncherPlatform/Linux/Applications/DesktopEntry.h>

#include <QList>
#include <QString>
#include <QVarLengthArray>

namespace Tavik {

/// The installed desktop entries by what windows and processes say of themselves. A value. Every
/// query answers null for what is not known, and for the empty text. Where several entries answer,
/// one that menus show goes before a hidden one.
class DesktopEntries
{
public:
    DesktopEntries() = default;
    /// The most important first: of several entries with the same ID the first one counts.
    explicit DesktopEntries(QList<SharedDesktopEntry> entries);

    /// Also those that do not count.
    [[nodiscard]] const QList<SharedDesktopEntry>& all() const { return m_entries; }
    [[nodiscard]] const DesktopEntry* withPath(const QString& path) const;
    [[nodiscard]] const DesktopEntry* withId(const QString& id) const;
    /// Without regard to case, to blanks in place of dashes and to the domain before the name
    /// (`org.example.Name` is similar to `name`), unless several entries are.
    [[nodiscard]] const DesktopEntry* withSimilarId(const QString& id) const;
    [[nodiscard]] const DesktopEntry* withStartupClass(const QString& startupClass) const;
    /// Without regard to case.
    [[nodiscard]] const DesktopEntry* withSimilarStartupClass(const QString& startupClass) const;
    /// By the path of a program or script, else by its file name. Null when several entries start
    /// it, unless just one of them starts it without arguments of its own.
    [[nodiscard]] const DesktopEntry* withProgram(const QString& program) const;

    bool operator==(const DesktopEntries& other) const;

private:
    using Answers = QVarLengthArray<const DesktopEntry*, 4>;
    /// Those that `index` has for `text` and for which `isMeant` is true; hidden ones only where
    /// there are no others.
    template <typename IsMeant>
    [[nodiscard]] Answers
    answers(const TextIndex& index, const QString& text, IsMeant isMeant) const;
    [[nodiscard]] const DesktopEntry* starting(const QString& program) const;
    void addNames(qsizetype position);

    QList<SharedDesktopEntry> m_entries;
    // Of the entries that count.
    TextIndex m_paths;
    TextIndex m_ids; ///< By what they are similar to: first all whole ones, then their ends.
    TextIndex m_classes; ///< By what they are similar to.
    TextIndex m_programs; ///< By path and by file name.
};

} // namespace Tavik
