// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/DesktopCheck.h>

#include <QTest>

#include <Support/Table.h>

using namespace Tavik;
using namespace Tavik::DesktopCheck;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

class DesktopCheckTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsMissingHasItsRemedy_data()
    {
        // What a terminal is told that something is wrong, and what the button says.
        const Table<Facts, QString, QString> row;
        const QString taken = u"Trigger: W. Ctrl + Alt cannot be had."_s;
        const QString choose = u"Choose Shortcut"_s;
        const HotKeyConfig chord = HotKeyConfig::defaultConfig();
        const HotKeyConfig key{.keyCode = 49, .displayName = u"Keys"_s};
        const Means lacking{.way = u"W."_s, .lack = u"L."_s};
        const Means way{.way = u"W."_s};
        using enum Trigger;
        using enum StatusTray::Host;
        using enum LoginItem::Status;
        row("nothing", {.triggerMeans = way}, {}, {});
        row("a key needs no release", {.shortcut = key, .releaseMeans = lacking}, {}, {});
        row("a chord does", {.releaseMeans = lacking}, u"Release: W. L."_s, {});
        row("no pointer", {.pointer = lacking}, u"Pointer: W. L."_s, {});
        row("nobody runs",
            {.trigger = notRunning, .command = u"'/a b'"_s},
            u"Trigger: Nobody listens. Tavik Launcher is not running. Start it. $ '/a b'"_s,
            {});
        row("a key is taken",
            {.trigger = refused, .shortcut = chord, .triggerMeans = way},
            taken,
            choose);
        row("this shortcut is refused",
            {.trigger = unheard,
             .shortcut = chord,
             .isTrusted = false,
             .obstacle = {.limit = u"No."_s, .isOfShortcut = true},
             .triggerMeans = way},
            taken,
            choose);
        row("consent is awaited",
            {.isTrusted = false,
             .obstacle = {.limit = u"May I?"_s,
                          .remedy = u"Bind."_s,
                          .line = u"bind"_s,
                          .isLiftedByPrompt = true},
             .triggerMeans = way},
            u"Trigger: W. May I?"_s,
            u"Set Up"_s);
        row("nobody listens",
            {.trigger = unheard,
             .obstacle = {.limit = u"No."_s, .remedy = u"Bind."_s, .line = u"bind"_s},
             .triggerMeans = way},
            u"Trigger: W. No. Bind. $ bind"_s,
            {});
        row("keys of the user's own", {.triggerMeans = lacking}, u"Trigger: W. L."_s, choose);
        row("no tray",
            {.tray = none, .command = u"'/a b'"_s},
            u"Tray: No panel shows status items. Add a tray to your panel; for GNOME there is an extension. Meanwhile this command opens the settings. $ '/a b' --settings"_s,
            {});
        row("no login", {.login = notRegistered}, u"Autostart: There is no entry"_s, u"Turn On"_s);
        row("switched off elsewhere",
            {.login = requiresApproval},
            u"Autostart: The entry in the autostart folder is switched off."_s,
            u"Turn On"_s);
        row("nobody reads the folder",
            {.loginLine = u"exec"_s},
            u"Autostart: This session is not known to read the autostart folder. Add this line to what your session starts. $ exec"_s,
            {});
        row("a line of its own",
            {.login = notRegistered, .loginLine = u"exec"_s, .isStartedAtLogin = true},
            {},
            {});
    }
    void whatIsMissingHasItsRemedy()
    {
        const auto [facts, told, button] = fetch<Facts, QString, QString>();
        const QList<Finding> found = findings(facts);
        const QString said = text(found);
        QCOMPARE(said.count(u"[ok]"), told.isEmpty() ? 8 : 7);
        QVERIFY2(said.section(u"[!!] "_s, 1).simplified().startsWith(told), qPrintable(said));
        QVERIFY(said.endsWith(told.isEmpty() ? u"all it needs.\n"_s : u": 1 of 8.\n"_s));
        QString buttons;
        for (const Finding& finding : found) {
            buttons += nameOf(finding.repair);
        }
        QCOMPARE(buttons, button);
    }
};

QTEST_APPLESS_MAIN(DesktopCheckTest)
#include "DesktopCheckTest.moc"
