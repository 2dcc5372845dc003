// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/GnomeAccelerators.h>
#include <TavikLauncherPlatform/Linux/Desktops/GnomeShortcuts.h>
#include <TavikLauncherPlatform/Linux/Desktops/KeyNames.h>
#include <TavikLauncherPlatform/Linux/Session/Gio.h>
#include <TavikLauncherPlatform/Linux/Session/OwnProgram.h>
#include <TavikLauncherPlatform/Texts.h>
#include <TavikLauncherPlatform/UserDefaults.h>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>
#include <vector>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* schema = "org.gnome.settings-daemon.plugins.media-keys";
constexpr const char* entrySchema
    = "org.gnome.settings-daemon.plugins.media-keys.custom-keybinding";
constexpr const char* listKey = "custom-keybindings";
/// Ours have a number and a slash behind it.
const QString ownPath
    = u"/org/gnome/settings-daemon/plugins/media-keys/custom-keybindings/tavik-launcher-"_s;
constexpr double takingBackSeconds = 0.3;
/// In the user defaults.
const QString consentKey = u"GnomeShortcutsAllowed"_s;

using Settings = std::unique_ptr<GSettings, GioDeleter>;

/// The library: without it nothing is offered, and so nothing here is asked.
const Gio& gio()
{
    return *Gio::load();
}

Settings listSettings()
{
    return Settings(gio().g_settings_new(schema));
}

QStringList pathsIn(GSettings* settings)
{
    const std::unique_ptr<char*, decltype(&g_strfreev)> texts(
        gio().g_settings_get_strv(settings, listKey), g_strfreev);
    QStringList paths;
    for (char** text = texts.get(); *text; ++text) {
        paths << QString::fromUtf8(*text);
    }
    return paths;
}

void writePaths(GSettings* settings, const QStringList& paths)
{
    std::vector<QByteArray> texts;
    std::vector<const char*> pointers;
    for (const QString& path : paths) {
        texts.push_back(path.toUtf8());
    }
    for (const QByteArray& text : texts) {
        pointers.push_back(text.constData());
    }
    pointers.push_back(nullptr);
    gio().g_settings_set_strv(settings, listKey, pointers.data());
}

Settings entryAt(const QString& path)
{
    return Settings(gio().g_settings_new_with_path(entrySchema, path.toUtf8().constData()));
}

struct Modifier
{
    quint64 flag;
    QLatin1String name;
    std::array<QLatin1String, 2> keys; ///< None for one that cannot come last: see below.
};
/// While Control is held back by another shortcut's beginning GNOME does not see it as a last key.
constexpr auto modifiers = std::to_array<Modifier>({
    {ModifierFlags::control, QLatin1String("<Control>"), {}},
    {ModifierFlags::option,
     QLatin1String("<Alt>"),
     {QLatin1String("Alt_L"), QLatin1String("Alt_R")}},
    {ModifierFlags::shift,
     QLatin1String("<Shift>"),
     {QLatin1String("Shift_L"), QLatin1String("Shift_R")}},
    {ModifierFlags::command,
     QLatin1String("<Super>"),
     {QLatin1String("Super_L"), QLatin1String("Super_R")}},
});

QString namesOf(quint64 flags)
{
    QString names;
    for (const Modifier& modifier : modifiers) {
        if ((flags & modifier.flag) != 0) {
            names += modifier.name;
        }
    }
    return names;
}

} // namespace

GnomeShortcuts::GnomeShortcuts(MainQueue& mainQueue,
                               UserDefaults& userDefaults,
                               QString program,
                               Chords chords)
    : m_mainQueue(mainQueue)
    , m_userDefaults(userDefaults)
    , m_program(std::move(program))
    , m_chords(chords)
{
    takeBack();
}

GnomeShortcuts::~GnomeShortcuts()
{
    takeBack();
    gio().g_settings_sync();
}

bool GnomeShortcuts::isOffered()
{
    GSettingsSchemaSource* source
        = Gio::load() ? gio().g_settings_schema_source_get_default() : nullptr;
    for (const char* name : {schema, entrySchema}) {
        const std::unique_ptr<GSettingsSchema, GioDeleter> found(
            source ? gio().g_settings_schema_source_lookup(source, name, TRUE) : nullptr);
        if (!found) {
            return false;
        }
    }
    return gio().g_settings_is_writable(listSettings().get(), listKey) != FALSE;
}

bool GnomeShortcuts::isAllowed() const
{
    return m_userDefaults.boolValue(consentKey).value_or(false);
}

bool GnomeShortcuts::serves() const
{
    return isAllowed() && !m_isRefused;
}

Means GnomeShortcuts::means() const
{
    return {.way = Texts::tr("Custom shortcuts in GNOME's keyboard settings.")};
}

QString GnomeShortcuts::request() const
{
    return Texts::tr("GNOME lets programs listen for no key, so a custom shortcut is added to its "
                     "keyboard settings for as long as Tavik Launcher runs.");
}

void GnomeShortcuts::allow()
{
    m_userDefaults.setObject(consentKey, true);
}

int GnomeShortcuts::bind(const KeyEvents::HotKey& hotKey, Handlers)
{
    m_takingBack.cancel();
    const QStringList accelerators = acceleratorsOf(hotKey);
    m_isRefused = accelerators.isEmpty();
    if (accelerators != m_written) {
        takeBack();
    }
    if (!isAllowed() || m_isRefused) {
        return m_isRefused ? statusNoSuchKey : statusGone;
    }
    if (m_written.isEmpty()) {
        write(accelerators);
    }
    return 0;
}

void GnomeShortcuts::unbind()
{
    // What comes back at once is not written anew: GNOME's daemon can lose it over that.
    m_takingBack = m_mainQueue.after(takingBackSeconds, [this] { takeBack(); });
}

/// What the shortcut at a path runs. Nobody can take it back for a user when the program is
/// uninstalled after it was killed: then it gives its keys back itself, when they are pressed.
QString GnomeShortcuts::commandAt(const QString& path) const
{
    return uR"(sh -c 'test -x "$0" && exec "$0" --summon; gsettings reset %1:%2 binding' %3)"_s.arg(
        QLatin1String(entrySchema), path, OwnProgram::shellWord(m_program));
}

void GnomeShortcuts::write(const QStringList& accelerators)
{
    const Settings list = listSettings();
    QStringList paths = pathsIn(list.get());
    for (qsizetype i = 0; i < accelerators.size(); ++i) {
        const QString path = ownPath + QString::number(i) + u'/';
        const Settings entry = entryAt(path);
        gio().g_settings_set_string(entry.get(), "name", "Tavik Launcher");
        gio().g_settings_set_string(entry.get(), "command", commandAt(path).toUtf8().constData());
        gio().g_settings_set_string(
            entry.get(), "binding", accelerators.at(i).toUtf8().constData());
        paths << path;
    }
    // After the entries: whoever sees the list reads them.
    writePaths(list.get(), paths);
    m_written = accelerators;
}

void GnomeShortcuts::takeBack()
{
    m_written.clear();
    const Settings list = listSettings();
    QStringList paths = pathsIn(list.get());
    QStringList own;
    for (const QString& path : paths) {
        if (path.startsWith(ownPath)) {
            own << path;
        }
    }
    if (own.isEmpty()) {
        return;
    }
    paths.removeIf([](const QString& path) { return path.startsWith(ownPath); });
    if (paths.isEmpty()) {
        gio().g_settings_reset(list.get(), listKey);
    } else {
        writePaths(list.get(), paths);
    }
    for (const QString& path : own) {
        const Settings entry = entryAt(path);
        for (const char* key : {"name", "command", "binding"}) {
            gio().g_settings_reset(entry.get(), key);
        }
    }
}

int GnomeShortcuts::status(const KeyEvents::HotKey& hotKey)
{
    QStringList accelerators = acceleratorsOf(hotKey);
    if (accelerators.isEmpty()) {
        return statusNoSuchKey;
    }
    // The place of a key has a name in the user's layout, under which another may have it.
    accelerators << namesOf(hotKey.modifierFlags) + hotKey.label;
    const bool isTaken = std::ranges::any_of(accelerators, [](const QString& accelerator) {
        return GnomeAccelerators::isTaken(accelerator, ownPath);
    });
    return isTaken ? statusTaken : 0;
}

QStringList GnomeShortcuts::acceleratorsOf(const KeyEvents::HotKey& hotKey) const
{
    if (hotKey.keyCode) {
        const std::optional<QString> key = KeyNames::acceleratorKey(*hotKey.keyCode);
        return key ? QStringList{namesOf(hotKey.modifierFlags) + *key} : QStringList();
    }
    QStringList accelerators;
    if (!hearsChords()) {
        return accelerators;
    }
    for (const Modifier& last : modifiers) {
        for (const QLatin1String key : last.keys) {
            if ((hotKey.modifierFlags & last.flag) != 0 && !key.isEmpty()) {
                accelerators << namesOf(hotKey.modifierFlags & ~last.flag) + key;
            }
        }
    }
    return accelerators;
}

} // namespace Tavik
