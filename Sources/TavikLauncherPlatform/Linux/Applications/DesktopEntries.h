// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace Tavik {

/// What tells a running program's desktop entry.
struct DesktopEntry
{
    QString id; ///< The desktop-file ID without ".desktop".
    QString path;
    QString startupClass; ///< "StartupWMClass".
    QString executable; ///< Base name of the program that "Exec" starts.
    bool isHidden = false; ///< "NoDisplay": kept out of menus, but it can run.

    bool operator==(const DesktopEntry&) const = default;
};

/// The installed desktop entries by what windows and processes say of themselves. A value.
class DesktopEntries
{
public:
    DesktopEntries() = default;
    /// The first of several entries with the same ID wins.
    explicit DesktopEntries(QList<DesktopEntry> entries);

    /// Walks `folders`, the most important first, and reads every entry. Meant to run off the main
    /// thread; bounded in files and bytes.
    [[nodiscard]] static DesktopEntries read(const QStringList& folders);

    [[nodiscard]] qsizetype size() const { return m_entries.size(); }
    /// All of them answer null for what is not known. IDs and classes compare without case when no
    /// exact one exists.
    [[nodiscard]] const DesktopEntry* withId(const QString& id) const;
    [[nodiscard]] const DesktopEntry* withPath(const QString& path) const;
    [[nodiscard]] const DesktopEntry* withStartupClass(const QString& startupClass) const;
    /// Null also when several entries start that program, or when it merely runs other programs.
    [[nodiscard]] const DesktopEntry* withExecutable(const QString& executable) const;

    bool operator==(const DesktopEntries& other) const { return m_entries == other.m_entries; }

private:
    using Index = QHash<QString, qsizetype>;
    [[nodiscard]] const DesktopEntry* at(const Index& index, const QString& key) const;
    [[nodiscard]] const DesktopEntry* withoutCase(const Index& index, const QString& key) const;
    void addStartupClass(const QString& key, qsizetype position);

    QList<DesktopEntry> m_entries;
    Index m_ids; ///< Also under the folded ID.
    Index m_paths;
    Index m_startupClasses; ///< Also under the folded class.
    Index m_executables; ///< -1 where the program is not telling.
};

} // namespace Tavik
