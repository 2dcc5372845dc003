// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/KeyEvents.h>
#include <TavikLauncherPlatform/Linux/Applications/DesktopEntries.h>
#include <TavikLauncherPlatform/Linux/Applications/WindowMatching.h>
#include <TavikLauncherPlatform/Linux/Session/KeyCodes.h>
#include <TavikLauncherPlatform/Linux/Session/PortalAppearance.h>
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
            QCOMPARE(KeyCodes::virtualKeyCode(evdev), std::optional(code));
        }
        QVERIFY(!KeyCodes::evdevCode(52) && !KeyCodes::evdevCode(0xffff));
        QVERIFY(!KeyCodes::virtualKeyCode(0) && !KeyCodes::virtualKeyCode(0xffff));
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
        row("service", {}, {}, u"/app-org.one.One@abc.service\n"_qs, u"org.one.One"_qs);
        row("program", u"/usr/bin/one"_qs, {}, u""_qs, u"org.one.One"_qs);
        row("program of two", u"/bin/office"_qs, {}, u""_qs, u""_qs);
        row("interpreter", u"/bin/python3"_qs, {}, u""_qs, u""_qs);
    }

    void processTellsItsEntry()
    {
        const auto [executable, environment, controlGroup, id]
            = fetch<QString, QByteArray, QString, QString>();
        ProcessClues clues{.executable = executable, .controlGroup = controlGroup};
        WindowMatching::readEnvironment(environment, 42, clues);
        QCOMPARE(idOf(WindowMatching::entryFor(clues, entries())), id);
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
        const DesktopEntries read = DesktopEntries::read(
            {tree.path(u"a"_qs), tree.path(u"missing"_qs), tree.path(u"b"_qs)});
        QCOMPARE(read.size(), 2);
        QCOMPARE(read.withId(u"one"_qs)->path, tree.path(u"a/one.desktop"_qs));
        QCOMPARE(read.withId(u"one"_qs)->executable, u"one"_qs);
        QVERIFY(!read.withId(u"gone"_qs));
        QCOMPARE(read.withStartupClass(u"Two"_qs)->id, u"kde-two"_qs);
    }

    void settingsOfThePortalAreUnderstood()
    {
        const auto asks = [](const char* group, const char* key, const QVariant& value) {
            return PortalAppearance::asksForLessMotion(
                QLatin1String(group), QLatin1String(key), QVariant::fromValue(QDBusVariant(value)));
        };
        QVERIFY(asks("org.gnome.desktop.interface", "enable-animations", false));
        QVERIFY(!asks("org.gnome.desktop.interface", "enable-animations", true));
        QVERIFY(asks("org.freedesktop.appearance", "reduced-motion", 1U));
        QVERIFY(!asks("org.freedesktop.appearance", "reduced-motion", 0U));
        QVERIFY(asks("org.kde.kdeglobals.KDE", "AnimationDurationFactor", u"0"_qs));
        QVERIFY(!asks("org.kde.kdeglobals.KDE", "AnimationDurationFactor", u"odd"_qs));
        QVERIFY(!asks("org.freedesktop.appearance", "color-scheme", 1U));
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
