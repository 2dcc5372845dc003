// SPDX-License-Identifier: MIT
#include <TavikLauncher/Ring/LauncherCommands.h>
#include <TavikLauncher/Ring/LauncherKeys.h>

#include <QStringList>
#include <QTest>

using namespace Tavik;
using namespace Qt::StringLiterals;

namespace {

LauncherCommands recordingCommands(QStringList& calls)
{
    const auto note = [&calls](const QString& name) {
        return [&calls, name] {
            calls << name;
        };
    };
    return {.moveSelectionUp = note(u"up"_s),
            .moveSelectionDown = note(u"down"_s),
            .close = note(u"close"_s),
            .moveSelectionLeft = note(u"left"_s),
            .moveSelectionRight = note(u"right"_s),
            .activate = note(u"activate"_s),
            .quickLaunchAtIndex = [&calls](int n) { calls << u"quick %1"_s.arg(n); },
            .insertText = [&calls](const QString& text) { calls << u"insert "_s + text; },
            .deleteBackward = note(u"delete"_s)};
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
        QTest::newRow("Return") << 36 << u"\r"_s << false << false << u"activate"_s << true;
        QTest::newRow("held Return launches once")
            << 36 << u"\r"_s << false << true << QString() << true;
        QTest::newRow("Delete") << 51 << u"\b"_s << false << false << u"delete"_s << true;
        QTest::newRow("held Delete goes on")
            << 51 << u"\b"_s << false << true << u"delete"_s << true;
        QTest::newRow("Forward Delete")
            << 117 << QString() << false << false << u"delete"_s << true;
        QTest::newRow("Escape") << 53 << u"\x1b"_s << false << false << u"close"_s << true;
        QTest::newRow("Left") << 123 << QString() << false << false << u"left"_s << true;
        QTest::newRow("Right repeats") << 124 << QString() << false << true << u"right"_s << true;
        QTest::newRow("Down") << 125 << QString() << false << false << u"down"_s << true;
        QTest::newRow("Up") << 126 << QString() << false << false << u"up"_s << true;
        QTest::newRow("Command+3") << -1 << u"3"_s << true << false << u"quick 3"_s << true;
        QTest::newRow("held Command+3 launches once")
            << -1 << u"3"_s << true << true << QString() << true;
        QTest::newRow("Command+0 types") << -1 << u"0"_s << true << false << u"insert 0"_s << true;
        QTest::newRow("digit types") << -1 << u"3"_s << false << false << u"insert 3"_s << true;
        QTest::newRow("Command+letter types")
            << -1 << u"q"_s << true << false << u"insert q"_s << true;
        QTest::newRow("accented letter") << -1 << u"é"_s << false << false << u"insert é"_s << true;
        QTest::newRow("letter with a combining mark")
            << -1 << u"e\u0301"_s << false << false << u"insert e\u0301"_s << true;
        QTest::newRow("beyond the basic plane")
            << -1 << u"𝒜"_s << false << false << u"insert 𝒜"_s << true;
        QTest::newRow("Tab passes") << -1 << u"\t"_s << false << false << QString() << false;
        QTest::newRow("C1 control passes")
            << -1 << QString(QChar(0x85)) << false << false << QString() << false;
        QTest::newRow("two characters pass")
            << -1 << u"ab"_s << false << false << QString() << false;
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
        QVERIFY(dispatchLauncherKey({.charactersIgnoringModifiers = u"a"_s}, empty));
        QVERIFY(dispatchLauncherKey({.charactersIgnoringModifiers = u"1"_s, .hasCommand = true},
                                    empty));
    }
};

QTEST_APPLESS_MAIN(LauncherKeysTest)
#include "LauncherKeysTest.moc"
