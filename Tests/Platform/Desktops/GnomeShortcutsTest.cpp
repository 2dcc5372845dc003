// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/GnomeShortcuts.h>

#include <QProcess>
#include <QTest>

#include <Support/FileTree.h>
#include <Support/MemoryUserDefaults.h>
#include <Support/ShortcutStory.h>
#include <Support/Table.h>
#include <Support/VirtualMainQueue.h>
#include <gio/gio.h>
#include <memory>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

const QByteArray root = "/org/gnome/settings-daemon/plugins/media-keys/";
const QByteArray schema = "org.gnome.settings-daemon.plugins.media-keys";

/// GNOME's settings in memory, as far as shortcuts go.
class Settings
{
public:
    Settings()
    {
        const auto text = [](const QByteArray& name) -> QByteArray {
            return "<key name='" + name + "' type='s'><default>''</default></key>";
        };
        m_folder.write(u"keys.gschema.xml"_s,
                       "<schemalist><schema id='" + schema + "' path='" + root
                           + "'><key name='custom-keybindings' type='as'><default>[]</default>"
                             "</key></schema><schema id='"
                           + schema + ".custom-keybinding'>" + text("name") + text("command")
                           + text("binding") + "</schema></schemalist>");
        QProcess::execute(u"glib-compile-schemas"_s, {m_folder.path()});
        qputenv("GSETTINGS_SCHEMA_DIR", m_folder.path().toUtf8());
        qputenv("GSETTINGS_BACKEND", "memory");
        m_list.reset(g_settings_new(schema.constData()));
    }
    void setPaths(const char* text)
    {
        g_settings_set_value(m_list.get(), "custom-keybindings", g_variant_new_parsed(text));
    }
    static void bind(const char* path, const QString& accelerator)
    {
        g_autoptr(GSettings) entry = entryAt(path);
        g_settings_set_string(entry, "binding", accelerator.toUtf8().constData());
    }
    /// The last parts of the paths, and for each of ours what is bound.
    [[nodiscard]] QStringList bindings() const
    {
        QStringList found;
        g_auto(GStrv) paths = g_settings_get_strv(m_list.get(), "custom-keybindings");
        for (char** path = paths; *path; ++path) {
            g_autoptr(GSettings) entry = entryAt(*path);
            g_autofree char* binding = g_settings_get_string(entry, "binding");
            g_autofree char* command = g_settings_get_string(entry, "command");
            found << QString::fromUtf8(*path).section(u'/', -2, -2) + u' '
                    + QString::fromUtf8(binding) + u' ' + lastWord(command);
        }
        return found;
    }

private:
    static QString lastWord(const char* command)
    {
        gint count = 0;
        g_auto(GStrv) words = nullptr;
        g_shell_parse_argv(command, &count, &words, nullptr);
        return count == 0 ? QString() : QString::fromUtf8(words[count - 1]);
    }
    static GSettings* entryAt(const char* path)
    {
        return g_settings_new_with_path((schema + ".custom-keybinding").constData(), path);
    }

    FileTree m_folder;
    std::unique_ptr<GSettings, decltype(&g_object_unref)> m_list{nullptr, g_object_unref};
};

} // namespace

class GnomeShortcutsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shortcutsComeAfterTheConsentAndGoAgain_data()
    {
        const Table<KeyEvents::HotKey, QStringList> row; // And what is bound.
        row("a chord", chord, {u"<Control>Alt_L"_s, u"<Control>Alt_R"_s});
        row("a key", {quint16{49}, ModifierFlags::command}, {u"<Super>space"_s});
        row("a key by its place", {quint16{40}, chordFlags}, {u"<Control><Alt>0x2d"_s});
        row("no key at all", {quint16{300}, chordFlags}, {});
    }
    void shortcutsComeAfterTheConsentAndGoAgain()
    {
        const auto [hotKey, accelerators] = fetch<KeyEvents::HotKey, QStringList>();
        m_settings.setPaths("['/a/theirs/', '/org/gnome/settings-daemon/plugins/media-keys/"
                            "custom-keybindings/tavik-launcher-7/']");
        const QStringList theirs{u"theirs  "_s};
        MemoryUserDefaults defaults;
        {
            GnomeShortcuts shortcuts(m_queue, defaults, u"/a \"b/tavik"_s);
            QCOMPARE(m_settings.bindings(), theirs); // Ours was left by a run that was killed.
            QVERIFY(shortcuts.bind(hotKey, {}) != 0);
            QVERIFY(!shortcuts.serves());
            QCOMPARE(m_settings.bindings(), theirs);
            shortcuts.allow();
            QCOMPARE(shortcuts.bind(hotKey, {}) == 0, !accelerators.isEmpty());
            QCOMPARE(shortcuts.serves(), !accelerators.isEmpty());
            QStringList expected = theirs;
            for (qsizetype i = 0; i < accelerators.size(); ++i) {
                expected << u"tavik-launcher-%1 %2 /a \"b/tavik"_s.arg(i).arg(accelerators.at(i));
            }
            QCOMPARE(m_settings.bindings(), expected);
            shortcuts.unbind();
            QCOMPARE(shortcuts.bind(hotKey, {}) == 0, !accelerators.isEmpty());
            m_queue.advance(1);
            QCOMPARE(m_settings.bindings(), expected);
            shortcuts.unbind();
            m_queue.advance(1);
            QCOMPARE(m_settings.bindings(), theirs);
            QCOMPARE(shortcuts.bind(hotKey, {}) == 0, !accelerators.isEmpty());
        }
        QCOMPARE(m_settings.bindings(), theirs);
        GnomeShortcuts next(m_queue, defaults, u"/tavik"_s);
        QCOMPARE(next.bind(hotKey, {}) == 0, !accelerators.isEmpty());
    }

    void whatGnomeUsesItselfIsToldOf_data()
    {
        const Table<QString, KeyEvents::HotKey, bool> row;
        row("as it is written", u"<Control><Alt>space"_s, chordAndSpace, true);
        row("in other words", u"<Mod1><Primary>Space"_s, chordAndSpace, true);
        row("by the key's name", u"<Super>k"_s, superK, true);
        row("with more modifiers", u"<Super><Control><Alt>space"_s, chordAndSpace, false);
        row("nothing", u""_s, chordAndSpace, false);
    }
    void whatGnomeUsesItselfIsToldOf()
    {
        const auto [used, hotKey, isTaken] = fetch<QString, KeyEvents::HotKey, bool>();
        m_settings.setPaths("['no path', '/a/theirs/']");
        m_settings.bind("/a/theirs/", used);
        MemoryUserDefaults defaults;
        GnomeShortcuts shortcuts(m_queue, defaults, u"/tavik"_s);
        QCOMPARE(shortcuts.status(hotKey) != 0, isTaken);
        m_settings.bind("/a/theirs/", {});
    }

private:
    VirtualMainQueue m_queue;
    Settings m_settings;
};

QTEST_GUILESS_MAIN(GnomeShortcutsTest)
#include "GnomeShortcutsTest.moc"
