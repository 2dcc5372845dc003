// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/KeyEvents.h>
#include <TavikLauncherPlatform/Linux/Desktop/DesktopEntries.h>
#include <TavikLauncherPlatform/Linux/Desktop/KeyCodes.h>
#include <TavikLauncherPlatform/Linux/Desktop/LaunchEnvironment.h>
#include <TavikLauncherPlatform/Linux/Desktop/PortalAppearance.h>
#include <TavikLauncherPlatform/Linux/Desktop/RunningApplicationList.h>
#include <TavikLauncherPlatform/Linux/Desktop/WindowMatching.h>
#include <TavikLauncherPlatform/Linux/X11/X11GrabModifiers.h>

#include <QDBusVariant>
#include <QTest>

#include <Support/FileTree.h>
#include <Support/Table.h>

namespace Tavik {
using namespace Test;

class PlatformDesktopTest : public QObject
{
    Q_OBJECT

private:
    static DesktopEntry
    entry(const QString& id, const QString& startupClass = {}, const QString& program = {})
    {
        return {.id = id,
                .path = u"/apps/"_qs + id + u".desktop"_qs,
                .startupClass = startupClass,
                .executable = program};
    }
    static DesktopEntries entries()
    {
        return DesktopEntries({
            entry(u"org.one.One"_qs, u"OneClass"_qs, u"one"_qs),
            entry(u"two"_qs, {}, u"two-bin"_qs),
            entry(u"office-write"_qs, u"office-write"_qs, u"office"_qs),
            entry(u"office-calc"_qs, u"office-calc"_qs, u"office"_qs),
            entry(u"script"_qs, {}, u"python3"_qs),
        });
    }
    static QString idOf(const DesktopEntry* found) { return found ? found->id : QString(); }

private Q_SLOTS:
    void keyCodesGoBothWays()
    {
        // Places that the shortcut records name most: A, Space, Up.
        for (const auto& [code, evdev] :
             std::initializer_list<std::pair<quint16, quint16>>{{0, 30}, {49, 57}, {126, 103}}) {
            QCOMPARE(KeyCodes::evdevCode(code), std::optional(evdev));
        }
        QVERIFY(!KeyCodes::evdevCode(52) && !KeyCodes::evdevCode(0xffff));
        QVERIFY(!KeyCodes::virtualKeyCode(0) && !KeyCodes::virtualKeyCode(0xffff));
        for (quint16 code = 0; code < 256; ++code) {
            if (const auto evdev = KeyCodes::evdevCode(code)) {
                QCOMPARE(KeyCodes::virtualKeyCode(*evdev), std::optional(code));
            }
        }
    }

    void windowNamesItsEntry_data()
    {
        const Table<QString, QString, QString, QString> row;
        row("hint before class", u"two"_qs, u""_qs, u"OneClass"_qs, u"two"_qs);
        row("hint as a path", u"/apps/two.desktop"_qs, u""_qs, u""_qs, u"two"_qs);
        row("unknown hint", u"none"_qs, u""_qs, u"OneClass"_qs, u"org.one.One"_qs);
        row("its case aside", u""_qs, u"x"_qs, u"oneclass"_qs, u"org.one.One"_qs);
        row("instance", u""_qs, u"office-calc"_qs, u"Office"_qs, u"office-calc"_qs);
        row("identifier", u""_qs, u"x"_qs, u"Two"_qs, u"two"_qs);
        row("nothing", u""_qs, u""_qs, u""_qs, u""_qs);
    }

    void windowNamesItsEntry()
    {
        const auto [hint, instance, className, id] = fetch<QString, QString, QString, QString>();
        QCOMPARE(idOf(WindowMatching::entryFor(WindowClues{.applicationId = hint,
                                                           .instanceName = instance,
                                                           .className = className},
                                               entries())),
                 id);
    }

    void processTellsItsEntry_data()
    {
        const Table<QString, QByteArray, QString, QString> row;
        const QByteArray launched
            = QByteArrayLiteral("A=1\0GIO_LAUNCHED_DESKTOP_FILE=/apps/two.desktop\0"
                                "GIO_LAUNCHED_DESKTOP_FILE_PID=");
        row("launched itself", u"/bin/x"_qs, launched + "42", u""_qs, u"two"_qs);
        row("child of a launched one", u"/bin/x"_qs, launched + "41", u""_qs, u""_qs);
        row("unit",
            u"/bin/x"_qs,
            {},
            u"/user.slice/app.slice/app-gnome-office\\x2dcalc-77.scope"_qs,
            u"office-calc"_qs);
        row("program", u"/usr/bin/one"_qs, {}, u""_qs, u"org.one.One"_qs);
        row("program of two", u"/bin/office"_qs, {}, u""_qs, u""_qs);
        row("interpreter", u"/bin/python3"_qs, {}, u""_qs, u""_qs);
        row("hint that children inherit",
            u"/bin/one"_qs,
            "BAMF_DESKTOP_FILE_HINT=/apps/two.desktop",
            u""_qs,
            u"org.one.One"_qs);
    }

    void processTellsItsEntry()
    {
        const auto [executable, environment, controlGroup, id]
            = fetch<QString, QByteArray, QString, QString>();
        ProcessClues clues{.executable = executable, .controlGroup = controlGroup};
        WindowMatching::readEnvironment(environment, 42, clues);
        QCOMPARE(idOf(WindowMatching::entryFor(clues, entries())), id);
    }

    void unitNamesAreRead()
    {
        const QString one = u"org.one.One"_qs;
        for (const auto& [unit, id] : std::initializer_list<std::pair<QString, QString>>{
                 {u"app-org.one.One-123.scope"_qs, one},
                 {u"app-gnome-org.one.One-123.scope"_qs, one},
                 {u"app-org.one.One@abc.service"_qs, one},
                 {u"session-2.scope"_qs, {}}}) {
            QCOMPARE(WindowMatching::applicationIdOfUnit(u"/user.slice/"_qs + unit + u'\n'), id);
        }
    }

    void folderOfAProgramIsTheOutermost()
    {
        QCOMPARE(WindowMatching::applicationFolderOf(u"/A/Out.app/Contents/In.app/Contents/x"_qs),
                 u"/A/Out.app"_qs);
        QVERIFY(!WindowMatching::applicationFolderOf(u"/usr/bin/one"_qs));
        QVERIFY(!WindowMatching::applicationFolderOf(u".app/Contents/x"_qs));
    }

    void entriesAreReadFromFolders()
    {
        const FileTree tree;
        const auto write = [&tree](const QString& name, const QByteArray& text) {
            return tree.write(name, "[Desktop Entry]\n" + text);
        };
        write(u"a/one.desktop"_qs, "Type=Application\nExec=env X=1 \"/opt/a b/one\" %U\n");
        write(u"b/one.desktop"_qs, "Type=Application\nExec=other\n");
        write(u"a/gone.desktop"_qs, "Type=Application\nHidden=true\n");
        write(u"b/gone.desktop"_qs, "Type=Application\nExec=gone\n");
        write(u"b/kde/two.desktop"_qs, "Type=Application\nExec=\"unclosed\nStartupWMClass=Two\n");
        write(u"b/link.desktop"_qs, "Type=Link\nURL=http://localhost\n");
        write(u"b/huge.desktop"_qs, "Type=Application\nX=" + QByteArray(600 * 1024, 'x'));
        write(u"b/binary.desktop"_qs, QByteArray("\0\xff\xfe", 3));
        const DesktopEntries read = DesktopEntries::read(
            {tree.path(u"a"_qs), tree.path(u"missing"_qs), tree.path(u"b"_qs)});
        QCOMPARE(read.size(), 2);
        QCOMPARE(read.withId(u"one"_qs)->path, tree.path(u"a/one.desktop"_qs));
        QCOMPARE(read.withId(u"one"_qs)->executable, u"one"_qs);
        QVERIFY(!read.withId(u"gone"_qs));
        QCOMPARE(read.withStartupClass(u"Two"_qs)->id, u"kde-two"_qs);
    }

    void applicationKeepsItsPlaceFromItsFirstWindowToItsLast()
    {
        const auto window = [](quint32 id, const QString& path, bool isRegular = true) {
            return ApplicationWindow{
                .window = id, .isRegular = isRegular, .group = path, .bundlePath = path};
        };
        RunningApplicationList list;
        auto changes
            = list.setWindows({window(1, u"a"_qs), window(2, u"b"_qs), window(3, u"a"_qs)});
        QCOMPARE(changes.launched, (QStringList{u"a"_qs, u"b"_qs}));
        changes
            = list.setWindows({window(2, u"b"_qs), window(3, u"a"_qs), window(4, u"c"_qs, false)});
        QCOMPARE(changes.launched + changes.terminated, QStringList());
        QCOMPARE(list.applications().first().bundlePath, u"a"_qs);
        QCOMPARE(list.windowsOf(u"a"_qs), QList<quint32>{3});
        QCOMPARE(list.applicationOf(4)->activationPolicy,
                 RunningApplication::ActivationPolicy::accessory);
        changes = list.setWindows({window(2, u"b"_qs), window(4, u"c"_qs)});
        QCOMPARE(changes.terminated, QStringList{u"a"_qs});
        QCOMPARE(changes.launched, QStringList{u"c"_qs});
    }

    void environmentForOthersLacksWhatWasOurs()
    {
        const auto variables = LaunchEnvironment::forOthers(LaunchEnvironment::parse(
            QByteArrayLiteral("HOME=/home/u\0APPIMAGE=/x.AppImage\0APPDIR=/tmp/.mount\0"
                              "PATH=/tmp/.mount/usr/bin:/usr/bin\0LD_LIBRARY_PATH=/tmp/.mount/lib\0"
                              "DESKTOP_STARTUP_ID=ours\0EMPTY=\0broken\0=odd\0")));
        const LaunchEnvironment::Variables expected{
            {"HOME", "/home/u"}, {"PATH", "/usr/bin"}, {"EMPTY", ""}};
        QCOMPARE(variables, expected);
    }

    void settingsOfThePortalAreUnderstood()
    {
        const auto asks = [](const char* group, const char* key, const QVariant& value) {
            return PortalAppearance::asksForLessMotion(
                QLatin1String(group), QLatin1String(key), QVariant::fromValue(QDBusVariant(value)));
        };
        QVERIFY(asks("org.gnome.desktop.interface", "enable-animations", false));
        QVERIFY(!asks("org.gnome.desktop.interface", "enable-animations", true));
        QVERIFY(!asks("org.gnome.desktop.interface", "enable-animations", u"no"_qs));
        QVERIFY(asks("org.freedesktop.appearance", "reduced-motion", 1U));
        QVERIFY(!asks("org.freedesktop.appearance", "reduced-motion", 0U));
        QVERIFY(asks("org.kde.kdeglobals.KDE", "AnimationDurationFactor", u"0"_qs));
        QVERIFY(!asks("org.kde.kdeglobals.KDE", "AnimationDurationFactor", u"odd"_qs));
        QVERIFY(!asks("org.example", "enable-animations", false));
        QVERIFY(!asks("org.freedesktop.appearance", "color-scheme", 1U));

        const auto scheme = [](const QVariant& value) {
            return PortalAppearance::colorScheme(QVariant::fromValue(QDBusVariant(value)));
        };
        QCOMPARE(scheme(0U), ColorScheme::noPreference);
        QCOMPARE(scheme(1U), ColorScheme::dark);
        QCOMPARE(scheme(2U), ColorScheme::light);
        QCOMPARE(scheme(3U), ColorScheme::noPreference);
        QCOMPARE(scheme(u"1"_qs), ColorScheme::noPreference);
        QCOMPARE(scheme({}), ColorScheme::noPreference);
    }

    void keyboardWithoutAKeyForAModifierHasNoShortcutWithIt()
    {
        const auto bare = X11GrabModifiers::fromMap({}, [](quint8) { return QList<quint32>(); });
        QVERIFY(!bare.maskFor(ModifierFlags::command));
        QCOMPARE(bare.lockVariants(), (QList<quint16>{0, 2}));
    }

    void serverTimeBecomesUptime()
    {
        const auto isAbout = [](double uptime, double expected) {
            return std::abs(uptime - expected) < 0.0015;
        };
        constexpr double wrap = 4294967.296;
        QVERIFY(isAbout(uptimeOfServerTime(5000, 5.004), 5));
        QVERIFY(isAbout(uptimeOfServerTime(1000, 3 * wrap + 1.01), 3 * wrap + 1));
        QVERIFY(isAbout(uptimeOfServerTime(0xffffffff, wrap + 0.01), wrap - 0.001));
        QVERIFY(isAbout(uptimeOfServerTime(5'000'000, 100), 100)); // Of another clock.
    }
};

} // namespace Tavik

QTEST_GUILESS_MAIN(Tavik::PlatformDesktopTest)
#include "PlatformDesktopTest.moc"
