// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/GnomeAccelerators.h>
#include <TavikLauncherPlatform/Linux/Session/Gio.h>

#include <QStringList>

#include <memory>

namespace Tavik::GnomeAccelerators {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* mediaKeys = "org.gnome.settings-daemon.plugins.media-keys";

struct Deleter : GioDeleter
{
    using GioDeleter::operator();
    void operator()(GVariant* value) const { g_variant_unref(value); }
    void operator()(char** texts) const { g_strfreev(texts); }
};
template <typename Held> using Owned = std::unique_ptr<Held, Deleter>;

/// The library: without it GNOME's settings are not offered, and so nothing here is asked.
const Gio& gio()
{
    return *Gio::load();
}

Owned<GSettingsSchema> schemaNamed(const char* name)
{
    GSettingsSchemaSource* source = gio().g_settings_schema_source_get_default();
    return Owned<GSettingsSchema>(source ? gio().g_settings_schema_source_lookup(source, name, TRUE)
                                         : nullptr);
}

/// One text, or several.
QStringList textsOf(GSettings* settings, const char* key)
{
    const Owned<GVariant> value(gio().g_settings_get_value(settings, key));
    if (g_variant_is_of_type(value.get(), G_VARIANT_TYPE_STRING) != FALSE) {
        return {QString::fromUtf8(g_variant_get_string(value.get(), nullptr))};
    }
    QStringList texts;
    if (g_variant_is_of_type(value.get(), G_VARIANT_TYPE_STRING_ARRAY) != FALSE) {
        const Owned<char*> read(g_variant_dup_strv(value.get(), nullptr));
        for (char** text = read.get(); *text; ++text) {
            texts << QString::fromUtf8(*text);
        }
    }
    return texts;
}

bool hasAny(const QStringList& accelerators, const QString& wanted)
{
    for (const QString& accelerator : accelerators) {
        if (normalised(accelerator) == wanted) {
            return true;
        }
    }
    return false;
}

bool isTakenIn(const char* name, const QString& wanted)
{
    const Owned<GSettingsSchema> schema = schemaNamed(name);
    if (!schema) {
        return false;
    }
    const Owned<GSettings> settings(gio().g_settings_new(name));
    const Owned<char*> keys(gio().g_settings_schema_list_keys(schema.get()));
    for (char** key = keys.get(); *key; ++key) {
        if (hasAny(textsOf(settings.get(), *key), wanted)) {
            return true;
        }
    }
    return false;
}

bool isTakenByCustom(const QString& wanted, const QString& ownPath)
{
    const QByteArray entrySchema = QByteArray(mediaKeys) + ".custom-keybinding";
    if (!schemaNamed(mediaKeys) || !schemaNamed(entrySchema.constData())) {
        return false;
    }
    const Owned<GSettings> list(gio().g_settings_new(mediaKeys));
    for (const QString& path : textsOf(list.get(), "custom-keybindings")) {
        // What is no path would end the program.
        if (path.startsWith(ownPath) || !path.startsWith(u'/') || !path.endsWith(u'/')
            || path.contains(u"//")) {
            continue;
        }
        const Owned<GSettings> entry(
            gio().g_settings_new_with_path(entrySchema.constData(), path.toUtf8().constData()));
        if (hasAny(textsOf(entry.get(), "binding"), wanted)) {
            return true;
        }
    }
    return false;
}

} // namespace

QString normalised(const QString& accelerator)
{
    QStringList parts = accelerator.toLower().split(u'>');
    const QString key = parts.takeLast();
    for (QString& part : parts) {
        part.remove(u'<');
        if (part == u"primary" || part == u"ctrl" || part == u"ctl") {
            part = u"control"_s;
        } else if (part == u"mod1") {
            part = u"alt"_s;
        } else if (part == u"mod4") {
            part = u"super"_s;
        } else if (part == u"shft") {
            part = u"shift"_s;
        }
    }
    parts.sort();
    return parts.join(u'+') + u'+' + key;
}

bool isTaken(const QString& accelerator, const QString& ownPath)
{
    const QString wanted = normalised(accelerator);
    for (const char* schema : {"org.gnome.desktop.wm.keybindings",
                               "org.gnome.mutter.keybindings",
                               "org.gnome.mutter.wayland.keybindings",
                               "org.gnome.shell.keybindings",
                               mediaKeys}) {
        if (isTakenIn(schema, wanted)) {
            return true;
        }
    }
    return isTakenByCustom(wanted, ownPath);
}

} // namespace Tavik::GnomeAccelerators
