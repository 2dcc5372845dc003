// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/DesktopEntryFile.h>
#include <TavikLauncherPlatform/Linux/Applications/IconTheme.h>
#include <TavikLauncherPlatform/Linux/Disk/BoundedFile.h>
#include <TavikLauncherPlatform/Linux/Disk/KeyFile.h>

#include <gio/gdesktopappinfo.h>
#include <memory>

namespace Tavik::DesktopEntryFile {

namespace {

constexpr qsizetype maxNameLength = 512;

struct Unref
{
    void operator()(GDesktopAppInfo* entry) const { g_object_unref(entry); }
};
using Entry = std::unique_ptr<GDesktopAppInfo, Unref>;

QString localizedString(const Entry& entry, const char* key)
{
    const std::unique_ptr<char, decltype(&g_free)> value(
        g_desktop_app_info_get_locale_string(entry.get(), key), &g_free);
    return QString::fromUtf8(value.get());
}

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

bool isStartable(const Entry& entry)
{
    const std::unique_ptr<char, decltype(&g_free)> command(
        g_desktop_app_info_get_string(entry.get(), G_KEY_FILE_DESKTOP_KEY_EXEC), &g_free);
    return (command && *command.get())
        || g_desktop_app_info_get_boolean(entry.get(), G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE);
}

bool isShown(const Entry& entry)
{
    // The desktop is the running session's own, from $XDG_CURRENT_DESKTOP.
    return !g_desktop_app_info_get_is_hidden(entry.get())
        && !g_desktop_app_info_get_nodisplay(entry.get())
        && g_desktop_app_info_get_show_in(entry.get(), nullptr) && isStartable(entry);
}

} // namespace

Bundle read(const QString& path, const QString& identifier)
{
    return parse(BoundedFile::read(path, maxSize).value_or(QByteArray()), identifier);
}

Bundle parse(const QByteArray& content, const QString& identifier)
{
    Bundle bundle;
    bundle.kind = Bundle::Kind::desktopEntry;
    bundle.identifier = identifier;
    bundle.isHidden = true;
    const std::optional<KeyFile> keyFile = KeyFile::parse(content);
    if (!keyFile) {
        return bundle;
    }
    // Null for another type, a failing TryExec and a command that is not installed.
    const Entry entry(g_desktop_app_info_new_from_keyfile(keyFile->handle()));
    if (!entry) {
        return bundle;
    }
    bundle.iconSource = usableIconSource(localizedString(entry, G_KEY_FILE_DESKTOP_KEY_ICON));
    const QString name = displayable(localizedString(entry, G_KEY_FILE_DESKTOP_KEY_NAME));
    if (!name.isEmpty()) {
        bundle.name = name;
        bundle.isHidden = !isShown(entry);
    }
    return bundle;
}

} // namespace Tavik::DesktopEntryFile
