// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/SessionAccessibilityPermission.h>

#include <QTest>

#include <Support/FakeWorkspace.h>
#include <Support/Table.h>

namespace Tavik {
using namespace Test;
using namespace Qt::StringLiterals;

class SessionAccessibilityPermissionTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anUntrustedUserIsToldTheWayOfTheDesktop_data()
    {
        // The desktop, a word of where its shortcuts are made, and what is opened there.
        const Table<QString, QString, QString> row;
        row("known", u"XFCE"_s, u"Application Shortcuts"_s, u"/xfce"_s);
        row("a flavour of a known one", u"ubuntu:GNOME"_s, u"Settings › Keyboard"_s, u"/gnome"_s);
        row("known, not installed", u"MATE"_s, u"Control Center"_s, QString());
        row("with a text file", u"sway"_s, u"bindsym"_s, QString());
        row("another's settings are no help", u"openbox"_s, u"window manager"_s, QString());
    }
    void anUntrustedUserIsToldTheWayOfTheDesktop()
    {
        const auto [desktop, place, program] = fetch<QString, QString, QString>();
        FakeWorkspace workspace;
        workspace.paths
            = {{u"xfce-keyboard-settings"_s, u"/xfce"_s}, {u"gnome-keyboard-panel"_s, u"/gnome"_s}};
        SessionAccessibilityPermission permission(workspace, {u"It does not."_s, desktop});
        QVERIFY(!permission.isTrusted());
        const auto told = permission.obstacle();
        QCOMPARE(told.limit, u"It does not."_s);
        QVERIFY2(told.remedy.contains(place), qPrintable(told.remedy));
        QVERIFY(told.remedy.contains(u"tavik-launcher --summon"_s));
        QCOMPARE(told.hasSettings, !program.isEmpty());
        int failures = 0;
        const auto failed = [&failures] {
            ++failures;
        };
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
        const SessionAccessibilityPermission permission(workspace, {std::nullopt, u"GNOME"_s});
        QVERIFY(permission.isTrusted() && permission.obstacle().limit.isEmpty());
    }
};

} // namespace Tavik

QTEST_GUILESS_MAIN(Tavik::SessionAccessibilityPermissionTest)
#include "SessionAccessibilityPermissionTest.moc"
