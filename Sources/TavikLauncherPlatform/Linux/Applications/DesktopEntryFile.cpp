// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/FileManager.h>
#include <TavikLauncherPlatform/Linux/Applications/CommandLine.h>
#include <TavikLauncherPlatform/Linux/Applications/DesktopEntry.h>
#include <TavikLauncherPlatform/Linux/Applications/IconTheme.h>
#include <TavikLauncherPlatform/Linux/Disk/BoundedFile.h>
#include <TavikLauncherPlatform/Linux/Disk/KeyFile.h>

#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

namespace Tavik {

using namespace Qt::StringLiterals;

QString DesktopEntry::gameClass() const
{
    constexpr QLatin1StringView address("steam://rungameid/");
    constexpr qsizetype longestNumber = 20;
    const QString text = command.toString();
    const qsizetype begin = text.indexOf(address);
    if (begin < 0 || (begin > 0 && text.at(begin - 1).isLetterOrNumber())) {
        return {};
    }
    const QStringView rest = QStringView(text).mid(begin + address.size(), longestNumber);
    const auto* end
        = std::ranges::find_if_not(rest, [](QChar c) { return c >= u'0' && c <= u'9'; });
    const QStringView number = rest.first(end - rest.begin());
    return number.isEmpty() ? QString() : u"steam_app_"_s + number.toString();
}

namespace DesktopEntryFile {

namespace {

constexpr auto group = "Desktop Entry";
constexpr qsizetype maxNameLength = 512;
constexpr qsizetype maxOtherNames = 32;

/// A name that fits on one line.
QString displayable(QString name)
{
    name.truncate(maxNameLength);
    for (QChar& character : name) {
        if (character.category() == QChar::Other_Control) {
            character = u' ';
        }
    }
    return name.trimmed();
}

/// Whether the running session's desktop is among those that the entry is for.
bool isShownHere(const KeyFile& file)
{
    const QStringList only = file.list(group, "OnlyShowIn");
    const QStringList never = file.list(group, "NotShowIn");
    if (only.isEmpty() && never.isEmpty()) {
        return true;
    }
    const QStringList desktops
        = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts);
    // The first desktop that the entry knows decides.
    for (const QString& desktop : desktops) {
        if (only.contains(desktop)) {
            return true;
        }
        if (never.contains(desktop)) {
            return false;
        }
    }
    return only.isEmpty();
}

QString otherNames(const KeyFile& file, const DesktopEntry& entry)
{
    QStringList names{file.string(group, "Name").value_or(QString()),
                      file.localizedString(group, "GenericName").value_or(QString())};
    names += file.localizedList(group, "Keywords");
    names.append(entry.program.toString().section(u'/', -1));
    for (QString& name : names) {
        name = displayable(name);
    }
    names.removeDuplicates();
    names.removeAll(QString());
    names.removeAll(entry.name);
    return names.first(std::min(names.size(), maxOtherNames)).join(u'\n');
}

DesktopEntry::Notification notification(const KeyFile& file)
{
    const std::optional<bool> wish = file.flag(group, "StartupNotify");
    if (!wish) {
        return DesktopEntry::Notification::unknown;
    }
    return *wish ? DesktopEntry::Notification::supported : DesktopEntry::Notification::refused;
}

} // namespace

DesktopEntry read(const QString& path, const QString& id)
{
    return parse(BoundedFile::read(path, maxSize).value_or(QByteArray()), path, id);
}

DesktopEntry parse(const QByteArray& content, const QString& path, const QString& id)
{
    DesktopEntry entry{.id = id, .path = path};
    const std::optional<KeyFile> file = KeyFile::parse(content);
    if (!file || file->string(group, "Type") != u"Application"_s) {
        return entry;
    }
    const auto text = [&file](const char* key) {
        return file->string(group, key).value_or(QString());
    };
    const auto flag = [&file](const char* key) {
        return file->flag(group, key).value_or(false);
    };
    entry.name = displayable(file->localizedString(group, "Name").value_or(QString()));
    entry.icon = usableIconSource(file->localizedString(group, "Icon").value_or(QString()));
    entry.command = text("Exec");
    entry.requiredProgram = text("TryExec");
    entry.folder = text("Path");
    entry.startupClass = text("StartupWMClass");
    const CommandLine::Program program = CommandLine::programOf(entry.command.toString());
    entry.program = program.name;
    entry.takesArguments = program.hasArguments;
    entry.notification = notification(*file);
    entry.isActivatable = flag("DBusActivatable");
    entry.isApplication
        = !entry.name.isEmpty() && (!entry.command.isEmpty() || entry.isActivatable);
    entry.isDeleted = flag("Hidden");
    entry.isHidden = flag("NoDisplay") || entry.isDeleted || !isShownHere(*file);
    entry.runsInTerminal = flag("Terminal");
    entry.isTerminalEmulator = file->list(group, "Categories").contains("TerminalEmulator"_L1);
    entry.otherNames = otherNames(*file, entry);
    return entry;
}

QString installedProgram(const QString& program)
{
    if (!program.contains(u'/')) {
        return program.isEmpty() ? QString() : QStandardPaths::findExecutable(program);
    }
    const QFileInfo file(program);
    return file.isAbsolute() && file.isFile() && file.isExecutable() ? program : QString();
}

Bundle bundle(const DesktopEntry& entry)
{
    Bundle bundle;
    bundle.kind = Bundle::Kind::desktopEntry;
    bundle.identifier = entry.id;
    bundle.iconSource = entry.path; // Which icon that is is looked up when it is decoded.
    bundle.otherNames = entry.otherNames;
    if (!entry.name.isEmpty()) {
        bundle.name = entry.name;
    }
    bundle.isHidden = !entry.isApplication || entry.isHidden;
    if (bundle.isHidden) {
        return bundle;
    }
    const QString program
        = entry.isActivatable ? QString() : CommandLine::firstWord(entry.command.toString());
    const QString found = installedProgram(program);
    const QString required = entry.requiredProgram.toString();
    // Mostly the two are the same, and looking along the whole path takes its time.
    bundle.lacksProgram = (found.isEmpty() && !program.isEmpty())
        || (required != program && !required.isEmpty() && installedProgram(required).isEmpty());
    bundle.isHidden = bundle.lacksProgram;
    const QString started = entry.program.toString();
    bundle.executable = started == program ? found : started;
    return bundle;
}

} // namespace DesktopEntryFile

} // namespace Tavik
