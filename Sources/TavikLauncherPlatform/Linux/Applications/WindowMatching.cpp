// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/CommandLine.h>
#include <TavikLauncherPlatform/Linux/Applications/WindowMatching.h>

#include <QRegularExpression>

#include <array>

namespace Tavik {

namespace {

using namespace Qt::StringLiterals;

/// The entry behind a hint that may be an ID, a file name or a path.
const DesktopEntry* entryNamed(const QString& name, const DesktopEntries& entries)
{
    if (const DesktopEntry* entry = entries.withPath(name)) {
        return entry;
    }
    QString id = name.section(u'/', -1);
    if (id.endsWith(".desktop"_L1)) {
        id.chop(8);
    }
    return entries.withId(id);
}

/// Undoes systemd's escapes of unit names (`\x2d` for "-"), which are of bytes.
QString unescaped(const QString& unit)
{
    constexpr qsizetype length = 4;
    QByteArray result = unit.toUtf8();
    for (qsizetype at = result.indexOf("\\x"); at >= 0; at = result.indexOf("\\x", at + 1)) {
        bool isNumber = false;
        const ushort code = result.mid(at + 2, 2).toUShort(&isNumber, 16);
        if (isNumber && at + length <= result.size()) {
            result.replace(at, length, QByteArray(1, static_cast<char>(code)));
        }
    }
    return QString::fromUtf8(result);
}

/// app[-<launcher>]-<ApplicationID>-<RANDOM>.scope
/// app[-<launcher>]-<ApplicationID>[@<RANDOM>].service
QString applicationIdOfDesktopUnit(const QString& unit)
{
    if (!unit.startsWith("app-"_L1)) {
        return {};
    }
    const QString name = unit.endsWith(".scope"_L1) ? unit.left(unit.lastIndexOf(u'-'))
        : unit.endsWith(".service"_L1)              ? unit.chopped(8).section(u'@', 0, 0)
                                                    : QString();
    // Between dashes there are dashes only as escapes.
    return name.size() > 4 && !name.contains(u'@') ? name.section(u'-', -1) : QString();
}

/// The entry that the window names itself, or null.
const DesktopEntry* entryOf(const WindowClues& window, const DesktopEntries& entries)
{
    // One process may show windows of several applications; then the class is that of the process
    // and only the instance tells them apart.
    const std::array<const QString*, 2> names{&window.instanceName, &window.className};
    using Lookup = const DesktopEntry* (DesktopEntries::*)(const QString&) const;
    const auto first = [&](Lookup lookup) -> const DesktopEntry* {
        for (const QString* name : names) {
            if (const DesktopEntry* entry = (entries.*lookup)(*name)) {
                return entry;
            }
        }
        return nullptr;
    };
    if (const DesktopEntry* entry = first(&DesktopEntries::withStartupClass)) {
        return entry;
    }
    if (const DesktopEntry* entry = entryNamed(window.applicationId, entries)) {
        return entry;
    }
    for (const Lookup lookup : {&DesktopEntries::withId,
                                &DesktopEntries::withSimilarStartupClass,
                                &DesktopEntries::withSimilarId}) {
        if (const DesktopEntry* entry = first(lookup)) {
            return entry;
        }
    }
    return nullptr;
}

QString pathOf(const DesktopEntry* entry)
{
    return entry ? entry->path : QString();
}

const DesktopEntry* entryOfProgram(const ProcessClues& process, const DesktopEntries& entries)
{
    // A script that an interpreter runs says more than the interpreter; a program started under
    // another name wants to be known by that.
    const QString script = CommandLine::programOf(process.words).name;
    for (const QString& program : {process.image, process.executable, script}) {
        if (const DesktopEntry* entry = entries.withProgram(program)) {
            return entry;
        }
    }
    return nullptr;
}

const DesktopEntry* entryOfUnit(const ProcessClues& process,
                                const QString& ownControlGroup,
                                const DesktopEntries& entries)
{
    const QString& unit = process.controlGroup;
    const QString id
        = unit == ownControlGroup ? QString() : WindowMatching::applicationIdOfUnit(unit);
    return id.isEmpty() ? nullptr : entryNamed(id, entries);
}

/// What a terminal was opened for, if it was opened for a terminal program.
const DesktopEntry* entryInTerminal(const ProcessClues& process,
                                    const LaunchClues& launch,
                                    const DesktopEntries& entries)
{
    for (const DesktopEntry* entry : {entries.withPath(launch.program),
                                      entries.withPath(process.launchedEntry),
                                      entryOfUnit(process, launch.ownControlGroup, entries)}) {
        if (entry && entry->runsInTerminal) {
            return entry;
        }
    }
    return nullptr;
}

/// Everything that a terminal's shell starts inherits from the terminal.
const DesktopEntry* unlessTerminal(const DesktopEntry* entry)
{
    return entry && !entry->isTerminalEmulator ? entry : nullptr;
}

} // namespace

QString WindowMatching::pathFor(const WindowClues& window,
                                const LaunchClues& launch,
                                const DesktopEntries& entries,
                                const std::function<ProcessClues()>& process)
{
    if (const DesktopEntry* own = entryOf(window, entries)) {
        const DesktopEntry* opened
            = own->isTerminalEmulator ? entryInTerminal(process(), launch, entries) : nullptr;
        return pathOf(opened ? opened : own);
    }
    if (!launch.program.isEmpty()) {
        return launch.program;
    }
    const ProcessClues clues = process();
    if (const DesktopEntry* entry = entryNamed(clues.launchedEntry, entries)) {
        return entry->path;
    }
    if (const auto folder = applicationFolderOf(clues.executable)) {
        return *folder;
    }
    for (const DesktopEntry* entry :
         {entryOfProgram(clues, entries), entryOfUnit(clues, launch.ownControlGroup, entries)}) {
        if (entry) {
            return entry->path;
        }
    }
    if (!launch.session.isEmpty()) {
        return launch.session;
    }
    for (const QString& inherited : {clues.sessionEntry, clues.inheritedEntry}) {
        if (const DesktopEntry* entry = unlessTerminal(entryNamed(inherited, entries))) {
            return entry->path;
        }
    }
    return {};
}

std::optional<QString> WindowMatching::applicationFolderOf(const QString& executable)
{
    const qsizetype end = executable.indexOf(".app/Contents/"_L1);
    if (end <= 0) {
        return std::nullopt;
    }
    return executable.left(end + 4);
}

QString WindowMatching::applicationIdOfUnit(const QString& controlGroup)
{
    const QString unit = controlGroup.trimmed().section(u'/', -1);
    if (const QString id = applicationIdOfDesktopUnit(unit); !id.isEmpty()) {
        return unescaped(id);
    }
    // Those that follow are rare, and the first expression costs half a megabyte for good.
    constexpr std::array prefixes{"flatpak-"_L1, "dbus-"_L1, "snap."_L1};
    if (std::ranges::none_of(prefixes, [&](auto prefix) { return unit.startsWith(prefix); })) {
        return {};
    }
    // What Flatpak named its scopes before it followed that form.
    static const QRegularExpression flatpak(u"^flatpak-(.+)-\\d+\\.scope$"_s);
    if (const auto match = flatpak.match(unit); match.hasMatch()) {
        return unescaped(match.captured(1));
    }
    // A program that the session bus has started under its own name.
    static const QRegularExpression service(u"^dbus-:[\\d.]+-([^@]+)@\\d+\\.service$"_s);
    if (const auto match = service.match(unit); match.hasMatch()) {
        return unescaped(match.captured(1));
    }
    // snap.<package>.<program>, then a UUID behind a dot or a dash.
    static const QRegularExpression snap(
        u"^snap\\.([^.]+)\\.([^.]+?)(?:[.-][0-9a-f]{8}(?:-[0-9a-f]{4}){3}-[0-9a-f]{12})?\\.(?:scope|service)$"_s);
    if (const auto match = snap.match(unit); match.hasMatch()) {
        return unescaped(match.captured(1)) + u'_' + unescaped(match.captured(2));
    }
    return {};
}

} // namespace Tavik
