// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/DesktopEntries.h>
#include <TavikLauncherPlatform/Linux/Disk/BoundedFile.h>
#include <TavikLauncherPlatform/Linux/Disk/KeyFile.h>

#include <QDirIterator>
#include <QSet>

#include <algorithm>
#include <array>
#include <gio/gio.h>
#include <optional>

namespace Tavik {

namespace {

constexpr qint64 largestFile = 512 * 1024;
constexpr int mostEntries = 20'000;
constexpr QLatin1String suffix(".desktop");

/// Programs that run other programs: many applications share them.
constexpr auto runners = std::to_array<QLatin1String>({
    QLatin1String("bash"),
    QLatin1String("dash"),
    QLatin1String("electron"),
    QLatin1String("env"),
    QLatin1String("flatpak"),
    QLatin1String("gjs"),
    QLatin1String("java"),
    QLatin1String("mono"),
    QLatin1String("node"),
    QLatin1String("perl"),
    QLatin1String("pkexec"),
    QLatin1String("ruby"),
    QLatin1String("sh"),
    QLatin1String("snap"),
    QLatin1String("sudo"),
    QLatin1String("wine"),
    QLatin1String("xdg-open"),
});

bool isRunner(const QString& executable)
{
    return executable.startsWith(QLatin1String("python"))
        || std::ranges::find(runners, executable) != runners.end();
}

QString text(const KeyFile& file, const char* key)
{
    return file.string(G_KEY_FILE_DESKTOP_GROUP, key).value_or(QString());
}

bool flag(const KeyFile& file, const char* key)
{
    return g_key_file_get_boolean(file.handle(), G_KEY_FILE_DESKTOP_GROUP, key, nullptr) != FALSE;
}

/// The base name of the program behind an "Exec" line, past an `env` with its assignments.
QString programOf(const QString& execLine)
{
    int count = 0;
    char** words = nullptr;
    if (g_shell_parse_argv(execLine.toUtf8().constData(), &count, &words, nullptr) == FALSE) {
        return {};
    }
    QString program;
    for (int i = 0; i < count; ++i) {
        const QString word = QString::fromUtf8(words[i]);
        const QString base = word.section(u'/', -1);
        if (base == QLatin1String("env") || word.contains(u'=')) {
            continue;
        }
        program = base;
        break;
    }
    g_strfreev(words);
    return program;
}

/// Absent for what is no application at all. An entry with "Hidden" stays, without a path: it
/// masks the same ID in the folders that follow.
std::optional<DesktopEntry> readEntry(const QString& path, const QString& id)
{
    const auto bytes = BoundedFile::read(path, largestFile);
    const std::optional<KeyFile> keys = bytes ? KeyFile::parse(*bytes) : std::nullopt;
    if (!keys || text(*keys, G_KEY_FILE_DESKTOP_KEY_TYPE) != QLatin1String("Application")) {
        return std::nullopt;
    }
    if (flag(*keys, G_KEY_FILE_DESKTOP_KEY_HIDDEN)) {
        return DesktopEntry{.id = id, .path = {}, .startupClass = {}, .executable = {}};
    }
    return DesktopEntry{
        .id = id,
        .path = path,
        .startupClass = text(*keys, G_KEY_FILE_DESKTOP_KEY_STARTUP_WM_CLASS),
        .executable = programOf(text(*keys, G_KEY_FILE_DESKTOP_KEY_EXEC)),
        .isHidden = flag(*keys, G_KEY_FILE_DESKTOP_KEY_NO_DISPLAY),
    };
}

} // namespace

DesktopEntries::DesktopEntries(QList<DesktopEntry> entries)
{
    QSet<QString> seen;
    for (DesktopEntry& entry : entries) {
        if (seen.contains(entry.id)) {
            continue;
        }
        seen.insert(entry.id);
        if (!entry.path.isEmpty()) {
            m_entries.append(std::move(entry));
        }
    }
    for (qsizetype i = 0; i < m_entries.size(); ++i) {
        const DesktopEntry& entry = m_entries.at(i);
        m_ids.insert(entry.id, i);
        m_paths.insert(entry.path, i);
        if (!entry.startupClass.isEmpty()) {
            addStartupClass(entry.startupClass, i);
            addStartupClass(entry.startupClass.toCaseFolded(), i);
        }
        if (!entry.executable.isEmpty() && !isRunner(entry.executable) && !entry.isHidden) {
            m_executables.insert(entry.executable,
                                 m_executables.contains(entry.executable) ? -1 : i);
        }
    }
    for (qsizetype i = 0; i < m_entries.size(); ++i) {
        const QString folded = m_entries.at(i).id.toCaseFolded();
        if (!m_ids.contains(folded)) {
            m_ids.insert(folded, i);
        }
    }
}

void DesktopEntries::addStartupClass(const QString& key, qsizetype position)
{
    const auto found = m_startupClasses.constFind(key);
    // An entry that menus show is what the user would start, so it goes before a hidden one.
    if (found == m_startupClasses.cend()
        || (m_entries.at(*found).isHidden && !m_entries.at(position).isHidden)) {
        m_startupClasses.insert(key, position);
    }
}

DesktopEntries DesktopEntries::read(const QStringList& folders)
{
    QList<DesktopEntry> entries;
    for (const QString& folder : folders) {
        QDirIterator files(folder,
                           {QStringLiteral("*.desktop")},
                           QDir::Files | QDir::Readable,
                           QDirIterator::Subdirectories);
        const QString base = folder.endsWith(u'/') ? folder : folder + u'/';
        while (files.hasNext() && entries.size() < mostEntries) {
            const QString path = files.next();
            QString id = path.mid(base.size());
            id.chop(suffix.size());
            id.replace(u'/', u'-');
            if (const auto entry = readEntry(path, id)) {
                entries.append(*entry);
            }
        }
    }
    return DesktopEntries(std::move(entries));
}

const DesktopEntry* DesktopEntries::at(const Index& index, const QString& key) const
{
    const auto found = index.constFind(key);
    return found == index.cend() || *found < 0 ? nullptr : &m_entries.at(*found);
}

const DesktopEntry* DesktopEntries::withoutCase(const Index& index, const QString& key) const
{
    const DesktopEntry* exact = at(index, key);
    return exact ? exact : at(index, key.toCaseFolded());
}

const DesktopEntry* DesktopEntries::withId(const QString& id) const
{
    return withoutCase(m_ids, id);
}

const DesktopEntry* DesktopEntries::withPath(const QString& path) const
{
    return at(m_paths, path);
}

const DesktopEntry* DesktopEntries::withStartupClass(const QString& startupClass) const
{
    return withoutCase(m_startupClasses, startupClass);
}

const DesktopEntry* DesktopEntries::withExecutable(const QString& executable) const
{
    return at(m_executables, executable);
}

} // namespace Tavik
