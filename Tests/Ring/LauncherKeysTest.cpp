// SPDX-License-Identifier: MIT
#include <TavikLauncher/Ring/LauncherCommands.h>
#include <TavikLauncher/Ring/LauncherKeys.h>

#include <QStringList>
#include <QTest>

using namespace Tavik;

namespace {

LauncherCommands recordingCommands(QStringList& calls)
{
    const auto note = [&calls](const QString& name) {
        return [&calls, name] {
            calls << name;
        };
    };
    return {.moveSelectionUp = note(u"up"_qs),
            .moveSelectionDown = note(u"down"_qs),
            .close = note(u"close"_qs),
            .moveSelectionLeft = note(u"left"_qs),
            .moveSelectionRight = note(u"right"_qs),
            .activate = note(u"activate"_qs),
            .quickLaunchAtIndex = [&calls](int n) { calls << u"quick %1"_qs.arg(n); },
            .insertText = [&calls](const QString& text) { calls << u"insert "_qs + text; },
            .deleteBackward = note(u"delete"_qs)};
}

} // namespace

class LauncherKeysTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keysReachTheirCommand_data()
    {
        QTest::addColumn<int>("keyCode");
        QTest::addColumn<QString>("characters");
        QTest::addColumn<bool>("hasCommand");
        QTest::addColumn<bool>("repeats");
        QTest::addColumn<QString>("call");
        QTest::addColumn<bool>("used");
        QTest::newRow("Return") << 36 << u"\r"_qs << false << false << u"activate"_qs << true;
        QTest::newRow("held Return launches once")
            << 36 << u"\r"_qs << false << true << QString() << true;
        QTest::newRow("Delete") << 51 << u"\b"_qs << false << false << u"delete"_qs << true;
        QTest::newRow("held Delete goes on")
            << 51 << u"\b"_qs << false << true << u"delete"_qs << true;
        QTest::newRow("Forward Delete")
            << 117 << QString() << false << false << u"delete"_qs << true;
        QTest::newRow("Escape") << 53 << u"\x1b"_qs << false << false << u"close"_qs << true;
        QTest::newRow("Left") << 123 << QString() << false << false << u"left"_qs << true;
        QTest::newRow("Right repeats") << 124 << QString() << false << true << u"right"_qs << true;
        QTest::newRow("Down") << 125 << QString() << false << false << u"down"_qs << true;
        QTest::newRow("Up") << 126 << QString() << false << false << u"up"_qs << true;
        QTest::newRow("Command+3") << -1 << u"3"_qs << true << false << u"quick 3"_qs << true;
        QTest::newRow("held Command+3 launches once")
            << -1 << u"3"_qs << true << true << QString() << true;
        QTest::newRow("Command+0 types")
            << -1 << u"0"_qs << true << false << u"insert 0"_qs << true;
        QTest::newRow("digit types") << -1 << u"3"_qs << false << false << u"insert 3"_qs << true;
        QTest::newRow("Command+letter types")
            << -1 << u"q"_qs << true << false << u"insert q"_qs << true;
        QTest::newRow("accented letter")
            << -1 << u"é"_qs << false << false << u"insert é"_qs << true;
        QTest::newRow("letter with a combining mark")
            << -1 << u"e\u0301"_qs << false << false << u"insert e\u0301"_qs << true;
        QTest::newRow("beyond the basic plane")
            << -1 << u"𝒜"_qs << false << false << u"insert 𝒜"_qs << true;
        QTest::newRow("Tab passes") << -1 << u"\t"_qs << false << false << QString() << false;
        QTest::newRow("C1 control passes")
            << -1 << QString(QChar(0x85)) << false << false << QString() << false;
        QTest::newRow("two characters pass")
            << -1 << u"ab"_qs << false << false << QString() << false;
        QTest::newRow("no characters pass")
            << -1 << QString() << true << false << QString() << false;
    }
    void keysReachTheirCommand()
    {
        QFETCH(int, keyCode);
        QFETCH(QString, characters);
        QFETCH(bool, hasCommand);
        QFETCH(bool, repeats);
        QFETCH(QString, call);
        QStringList calls;
        LauncherKey key{.charactersIgnoringModifiers = characters,
                        .hasCommand = hasCommand,
                        .isAutoRepeat = repeats};
        if (keyCode >= 0) {
            key.keyCode = static_cast<quint16>(keyCode);
        }
        QTEST(dispatchLauncherKey(key, recordingCommands(calls)), "used");
        QCOMPARE(calls.join(u','), call);
    }

    void emptyCommandsStillUseUpTheirKeys()
    {
        const LauncherCommands empty;
        QVERIFY(dispatchLauncherKey({.keyCode = 36}, empty));
        QVERIFY(dispatchLauncherKey({.charactersIgnoringModifiers = u"a"_qs}, empty));
        QVERIFY(dispatchLauncherKey({.charactersIgnoringModifiers = u"1"_qs, .hasCommand = true},
                                    empty));
    }
};

QTEST_APPLESS_MAIN(LauncherKeysTest)
#include "LauncherKeysTest.moc"
