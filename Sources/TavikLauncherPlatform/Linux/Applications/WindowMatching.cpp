// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/WindowMatching.h>

#include <QFile>
#include <QList>
#include <QRegularExpression>

namespace Tavik {

namespace {

constexpr qint64 largestProcessFile = 256 * 1024;

/// The entry behind a hint that may be an ID, a file name or a path.
const DesktopEntry* entryNamed(const QString& name, const DesktopEntries& entries)
{
    if (name.isEmpty()) {
        return nullptr;
    }
    if (const DesktopEntry* entry = entries.withPath(name)) {
        return entry;
    }
    QString id = name.section(u'/', -1);
    if (id.endsWith(QLatin1String(".desktop"))) {
        id.chop(8);
    }
    return entries.withId(id);
}

QByteArray processFile(qint64 processId, const char* name)
{
    QFile file(QStringLiteral("/proc/%1/%2").arg(processId).arg(QLatin1String(name)));
    return file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) ? file.read(largestProcessFile)
                                                                  : QByteArray();
}

/// Undoes systemd's escapes of unit names (`\x2d` for "-").
QString unescaped(const QString& unit)
{
    static const QRegularExpression escape(QStringLiteral("\\\\x([0-9a-f]{2})"));
    QString result = unit;
    for (auto match = escape.match(result); match.hasMatch();
         match = escape.match(result, match.capturedStart() + 1)) {
        const QChar character(static_cast<char16_t>(match.captured(1).toUShort(nullptr, 16)));
        result.replace(match.capturedStart(), match.capturedLength(), character);
    }
    return result;
}

} // namespace

const DesktopEntry* WindowMatching::entryFor(const WindowClues& window,
                                             const DesktopEntries& entries)
{
    if (const DesktopEntry* entry = entryNamed(window.applicationId, entries)) {
        return entry;
    }
    for (const QString& name : {window.className, window.instanceName}) {
        const DesktopEntry* entry = name.isEmpty() ? nullptr : entries.withStartupClass(name);
        if (entry) {
            return entry;
        }
    }
    for (const QString& name : {window.className, window.instanceName}) {
        const DesktopEntry* entry = name.isEmpty() ? nullptr : entries.withId(name);
        if (entry) {
            return entry;
        }
    }
    return nullptr;
}

const DesktopEntry* WindowMatching::entryFor(const ProcessClues& process,
                                             const DesktopEntries& entries)
{
    if (const DesktopEntry* entry = entryNamed(process.launchedEntry, entries)) {
        return entry;
    }
    const QString unitId = applicationIdOfUnit(process.controlGroup);
    if (const DesktopEntry* entry = entryNamed(unitId, entries)) {
        return entry;
    }
    const QString program = process.executable.section(u'/', -1);
    if (const DesktopEntry* entry = program.isEmpty() ? nullptr : entries.withExecutable(program)) {
        return entry;
    }
    // The weakest of all, because the children of a terminal inherit it.
    return entryNamed(process.inheritedEntry, entries);
}

std::optional<QString> WindowMatching::applicationFolderOf(const QString& executable)
{
    const qsizetype end = executable.indexOf(QLatin1String(".app/Contents/"));
    if (end <= 0) {
        return std::nullopt;
    }
    return executable.left(end + 4);
}

QString WindowMatching::applicationIdOfUnit(const QString& controlGroup)
{
    // app[-<launcher>]-<ApplicationID>-<RANDOM>.scope
    // app[-<launcher>]-<ApplicationID>[@<RANDOM>].service
    static const QRegularExpression unit(
        QStringLiteral("^app(?:-[^-@]+)*?-([^-@]+)(?:-[^-@]+\\.scope|(?:@[^/]*)?\\.service)$"));
    const QRegularExpressionMatch match = unit.match(controlGroup.trimmed().section(u'/', -1));
    return match.hasMatch() ? unescaped(match.captured(1)) : QString();
}

void WindowMatching::readEnvironment(const QByteArray& block, qint64 processId, ProcessClues& clues)
{
    QString launchedEntry;
    bool isOwnLaunch = false;
    for (const QByteArray& line : block.split('\0')) {
        const qsizetype equals = line.indexOf('=');
        const QByteArray name = line.left(equals);
        const QByteArray value = line.mid(equals + 1);
        if (name == "GIO_LAUNCHED_DESKTOP_FILE") {
            launchedEntry = QFile::decodeName(value);
        } else if (name == "GIO_LAUNCHED_DESKTOP_FILE_PID") {
            isOwnLaunch = value.toLongLong() == processId;
        } else if (name == "BAMF_DESKTOP_FILE_HINT") {
            clues.inheritedEntry = QFile::decodeName(value);
        }
    }
    // Children of what was launched inherit the variable, but their number is another one.
    if (isOwnLaunch) {
        clues.launchedEntry = launchedEntry;
    }
}

ProcessClues processClues(qint64 processId)
{
    ProcessClues clues;
    if (processId <= 0) {
        return clues;
    }
    clues.executable = QFile::symLinkTarget(QStringLiteral("/proc/%1/exe").arg(processId));
    WindowMatching::readEnvironment(processFile(processId, "environ"), processId, clues);
    for (const QByteArray& line : processFile(processId, "cgroup").split('\n')) {
        // "0::/path", or "1:name=systemd:/path" on a machine with the older hierarchy.
        const QList<QByteArray> fields = line.split(':');
        if (fields.size() >= 3 && (fields.at(0) == "0" || fields.at(1) == "name=systemd")) {
            clues.controlGroup = QString::fromUtf8(fields.mid(2).join(':'));
            break;
        }
    }
    return clues;
}

} // namespace Tavik
