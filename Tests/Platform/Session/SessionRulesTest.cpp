// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/KeyEvents.h>
#include <TavikLauncherPlatform/Linux/Session/KeyCodes.h>
#include <TavikLauncherPlatform/Linux/Session/PortalWishes.h>
#include <TavikLauncherPlatform/Linux/Session/SessionAccessibilityPermission.h>
#include <TavikLauncherPlatform/Linux/X11/X11GrabModifiers.h>

#include <QDBusVariant>
#include <QTest>

#include <Support/Counting.h>
#include <Support/FakeWorkspace.h>
#include <Support/Table.h>

namespace Tavik {
using namespace Test;
using namespace Qt::StringLiterals;

class SessionRulesTest : public QObject
{
    Q_OBJECT

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

    void settingsOfThePortalAreUnderstood()
    {
        const auto asks = [](const char* group, const char* key, const QVariant& value) {
            PortalWishes wishes;
            wishes.take(
                QLatin1String(group), QLatin1String(key), QVariant::fromValue(QDBusVariant(value)));
            return (wishes.reduceMotion() ? u"calm"_s : QString())
                + (wishes.wantHighContrast() ? u"strong"_s : QString());
        };
        QCOMPARE(asks("org.gnome.desktop.interface", "enable-animations", false), u"calm"_s);
        QCOMPARE(asks("org.gnome.desktop.interface", "enable-animations", true), QString());
        QCOMPARE(asks("org.freedesktop.appearance", "reduced-motion", 1U), u"calm"_s);
        QCOMPARE(asks("org.freedesktop.appearance", "reduced-motion", 0U), QString());
        QCOMPARE(asks("org.kde.kdeglobals.KDE", "AnimationDurationFactor", u"0"_s), u"calm"_s);
        QCOMPARE(asks("org.kde.kdeglobals.KDE", "AnimationDurationFactor", u"odd"_s), QString());
        QCOMPARE(asks("org.freedesktop.appearance", "contrast", 1U), u"strong"_s);
        QCOMPARE(asks("org.gnome.desktop.a11y.interface", "high-contrast", true), u"strong"_s);
        QCOMPARE(asks("org.freedesktop.appearance", "color-scheme", 1U), QString());
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

    void anUntrustedUserIsToldTheWayOfTheDesktop_data()
    {
        // The desktop, a word of where its shortcuts are made, what is opened there, and the line.
        const Table<QString, QString, QString, QString> row;
        const QString line = u"'/a#b c' --summon"_s;
        row("known", u"XFCE"_s, u"Application Shortcuts"_s, u"/xfce"_s, line);
        row("a flavour of one", u"ubuntu:GNOME"_s, u"Settings › Keyboard"_s, u"/gnome"_s, line);
        row("known, not installed", u"MATE"_s, u"Control Center"_s, {}, line);
        row("with a text file", u"sway"_s, u"bindsym"_s, {}, u"bindsym Mod4+space exec "_s + line);
        row("with another",
            u"Hyprland"_s,
            u"with bind"_s,
            {},
            u"bind = SUPER, SPACE, exec, '/a##b c' --summon"_s);
        row("another's settings are no help", u"openbox"_s, u"window manager"_s, {}, line);
    }
    void anUntrustedUserIsToldTheWayOfTheDesktop()
    {
        const auto [desktop, place, program, line] = fetch<QString, QString, QString, QString>();
        FakeWorkspace workspace;
        workspace.paths
            = {{u"xfce-keyboard-settings"_s, u"/xfce"_s}, {u"gnome-keyboard-panel"_s, u"/gnome"_s}};
        SessionAccessibilityPermission permission(workspace,
                                                  {u"It does not."_s, desktop, u"'/a#b c'"_s});
        QVERIFY(!permission.isTrusted());
        const auto told = permission.obstacle();
        QCOMPARE(told.limit, u"It does not."_s);
        QVERIFY2(told.remedy.contains(place), qPrintable(told.remedy));
        QCOMPARE(told.line, line);
        QCOMPARE(told.command, u"'/a#b c' --summon"_s);
        QVERIFY(told.remedy.contains(told.command));
        QCOMPARE(told.hasSettings, !program.isEmpty());
        int failures = 0;
        const auto failed = counting(failures);
        permission.openSettings(failed);
        QCOMPARE(workspace.opened.join(u','), program);
        QCOMPARE(failures, program.isEmpty() ? 1 : 0);
        workspace.openError = u"broken"_s;
        permission.openSettings(failed);
        QCOMPARE(failures, program.isEmpty() ? 2 : 1);
    }

    void whereNothingHindersThereIsNothingToTell()
    {
        FakeWorkspace workspace;
        const SessionAccessibilityPermission permission(workspace, {std::nullopt, u"GNOME"_s, {}});
        QVERIFY(permission.isTrusted() && permission.obstacle().limit.isEmpty());
    }
};

} // namespace Tavik

QTEST_GUILESS_MAIN(Tavik::SessionRulesTest)
#include "SessionRulesTest.moc"
