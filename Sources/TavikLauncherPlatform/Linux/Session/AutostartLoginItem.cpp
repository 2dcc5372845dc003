// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Disk/BoundedFile.h>
#include <TavikLauncherPlatform/Linux/Disk/ReplaceFile.h>
#include <TavikLauncherPlatform/Linux/Disk/StorageLog.h>
#include <TavikLauncherPlatform/Linux/Session/AutostartLoginItem.h>
#include <TavikLauncherPlatform/Linux/Session/OwnProgram.h>

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <glib.h>
#include <memory>
#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* group = "Desktop Entry";
constexpr const char* hiddenKey = "Hidden";
constexpr const char* switchedOnKey = "X-GNOME-Autostart-enabled";

struct FreeKeyFile
{
    void operator()(GKeyFile* file) const { g_key_file_unref(file); }
};
using KeyFile = std::unique_ptr<GKeyFile, FreeKeyFile>;

/// The entry at `path`, or null when there is none that a desktop would read.
KeyFile readEntry(const QString& path)
{
    constexpr qint64 mostBytes = 64 * 1024;
    const auto text = BoundedFile::read(path, mostBytes);
    if (!text) {
        return nullptr;
    }
    KeyFile entry(g_key_file_new());
    constexpr auto keepAll
        = static_cast<GKeyFileFlags>(G_KEY_FILE_KEEP_COMMENTS | G_KEY_FILE_KEEP_TRANSLATIONS);
    const bool isRead
        = g_key_file_load_from_data(
              entry.get(), text->constData(), static_cast<gsize>(text->size()), keepAll, nullptr)
        && g_key_file_has_group(entry.get(), group);
    return isRead ? std::move(entry) : nullptr;
}

/// One argument of a desktop entry's command line: quoted as that standard asks, "%" doubled.
QByteArray quotedArgument(const QString& argument)
{
    QByteArray quoted = "\"";
    for (const char byte : argument.toUtf8()) {
        if (QByteArrayView("\"`$\\").contains(byte)) {
            quoted += '\\';
        }
        quoted += byte == '%' ? QByteArray("%%") : QByteArray(1, byte);
    }
    return quoted + '"';
}

bool isTrue(GKeyFile* entry, const char* key)
{
    return g_key_file_get_boolean(entry, group, key, nullptr) != FALSE;
}

/// Whether what the entry starts is there.
bool startsSomething(GKeyFile* entry)
{
    using Text = std::unique_ptr<char, decltype(&g_free)>;
    const Text line(g_key_file_get_string(entry, group, "Exec", nullptr), &g_free);
    gchar** words = nullptr;
    if (!line || !g_shell_parse_argv(line.get(), nullptr, &words, nullptr)) {
        return false;
    }
    const std::unique_ptr<gchar*, decltype(&g_strfreev)> owned(words, &g_strfreev);
    const QByteArray program = QByteArray(words[0]).replace("%%", "%");
    return Text(g_find_program_in_path(program.constData()), &g_free) != nullptr;
}

bool isOn(GKeyFile* entry)
{
    return !isTrue(entry, hiddenKey)
        && (!g_key_file_has_key(entry, group, switchedOnKey, nullptr)
            || isTrue(entry, switchedOnKey));
}

} // namespace

AutostartLoginItem::AutostartLoginItem(Paths paths)
    : m_paths(std::move(paths))
{ }

QString AutostartLoginItem::defaultEntryPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + u"/autostart/org.tavik.Launcher.desktop"_s;
}

QString AutostartLoginItem::lineFor(const Session& session)
{
    static const QStringList reading{u"GNOME"_s,
                                     u"KDE"_s,
                                     u"XFCE"_s,
                                     u"MATE"_s,
                                     u"LXQt"_s,
                                     u"LXDE"_s,
                                     u"X-Cinnamon"_s,
                                     u"Budgie"_s,
                                     u"COSMIC"_s,
                                     u"Pantheon"_s,
                                     u"Unity"_s};
    const QStringList names = session.desktop.split(u':');
    const auto isReading = [](const QString& name) {
        return reading.contains(name, Qt::CaseInsensitive);
    };
    if (session.hasSessionManager || std::ranges::any_of(names, isReading)) {
        return {};
    }
    if (names.contains(u"sway"_s) || names.contains(u"i3"_s)) {
        return u"exec %1 --background"_s.arg(session.command);
    }
    return names.contains(u"Hyprland"_s)
        ? u"exec-once = %1 --background"_s.arg(OwnProgram::forHyprland(session.command))
        : u"%1 --background &"_s.arg(session.command);
}

LoginItem::Status AutostartLoginItem::status() const
{
    const QFileInfo program(m_paths.program);
    if (!program.isFile() || !program.isExecutable()) {
        return Status::notFound;
    }
    const KeyFile entry = readEntry(m_paths.entry);
    if (!entry || isTrue(entry.get(), hiddenKey) || !startsSomething(entry.get())) {
        return Status::notRegistered;
    }
    return isOn(entry.get()) ? Status::enabled : Status::requiresApproval;
}

void AutostartLoginItem::mend()
{
    const KeyFile entry = readEntry(m_paths.entry);
    if (entry && isOn(entry.get()) && !startsSomething(entry.get())) {
        registerItem();
    }
}

bool AutostartLoginItem::registerItem()
{
    if (status() == Status::notFound) {
        return false;
    }
    // What the user has added to an entry stays.
    KeyFile entry = readEntry(m_paths.entry);
    if (!entry) {
        entry.reset(g_key_file_new());
        g_key_file_set_string(entry.get(), group, "Name", "Tavik Launcher");
        g_key_file_set_string(entry.get(), group, "Icon", "org.tavik.Launcher");
    }
    g_key_file_set_string(entry.get(), group, "Type", "Application");
    // Nobody has asked for the program at that moment.
    const QByteArray command = quotedArgument(m_paths.program) + " --background";
    g_key_file_set_string(entry.get(), group, "Exec", command.constData());
    g_key_file_set_boolean(entry.get(), group, switchedOnKey, TRUE);
    g_key_file_remove_key(entry.get(), group, hiddenKey, nullptr);

    gsize length = 0;
    const std::unique_ptr<char, decltype(&g_free)> text(
        g_key_file_to_data(entry.get(), &length, nullptr), &g_free);
    constexpr auto permissions = QFileDevice::ReadOwner | QFileDevice::WriteOwner
        | QFileDevice::ReadGroup | QFileDevice::ReadOther;
    const auto error = replaceFile(
        m_paths.entry, QByteArray(text.get(), static_cast<qsizetype>(length)), permissions);
    if (error) {
        qCWarning(storageLog).noquote()
            << "TavikLauncher: failed to set launch at login:" << *error;
    }
    return !error;
}

bool AutostartLoginItem::unregisterItem()
{
    QFile entry(m_paths.entry);
    const QFileInfo info(m_paths.entry);
    if ((!info.exists() && !info.isSymLink()) || entry.remove()) {
        return true;
    }
    qCWarning(storageLog).noquote()
        << "TavikLauncher: failed to end launch at login:" << entry.errorString();
    return false;
}

} // namespace Tavik
