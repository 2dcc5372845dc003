// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/SwayShortcuts.h>
#include <TavikLauncherPlatform/Linux/Desktops/SwayWindows.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QLocalServer>
#include <QTemporaryDir>
#include <QTest>

#include <Support/Table.h>
#include <cstring>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

constexpr quint64 chord = ModifierFlags::control | ModifierFlags::option;

QByteArray framed(quint32 type, const QByteArray& payload)
{
    const auto number = [](quint32 value) {
        return QByteArray(reinterpret_cast<const char*>(&value), sizeof value);
    };
    return "i3-ipc" + number(static_cast<quint32>(payload.size())) + number(type) + payload;
}

QByteArray ran(const QByteArray& command, const QByteArray& held = {})
{
    return framed(0x80000005,
                  R"({"change":"run","binding":{"command":")" + command
                      + R"(","event_state_mask":[)" + held + "]}}");
}

/// The other side of the socket: what it was told, and what it says.
struct FakeSway
{
    FakeSway() { server.listen(folder.filePath(u"socket"_s)); }
    /// The next request of that number; empty when none comes.
    [[nodiscard]] QByteArray next(char type)
    {
        if (!peer) {
            (void)server.waitForNewConnection(1000);
            peer = server.nextPendingConnection();
        }
        while (true) {
            quint32 size = 0;
            if (received.size() >= 14) {
                std::memcpy(&size, received.constData() + 6, sizeof size);
            }
            if (received.size() >= 14 + qsizetype{size} && received.size() >= 14) {
                const QByteArray payload = received.mid(14, size);
                const bool isWanted = received.at(10) == type;
                received.remove(0, 14 + qsizetype{size});
                if (isWanted) {
                    return payload;
                }
            } else if (!QTest::qWaitFor([this] { return peer->bytesAvailable() > 0; }, 1000)) {
                return {};
            } else {
                received += peer->readAll();
            }
        }
    }
    [[nodiscard]] QStringList nextCommands() { return QString::fromUtf8(next(0)).split(u';'); }
    void say(const QByteArray& bytes)
    {
        peer->write(bytes);
        peer->flush();
        QTest::qWait(20);
    }

    QTemporaryDir folder;
    QLocalServer server;
    QLocalSocket* peer = nullptr;
    QByteArray received;
};

struct Listening
{
    explicit Listening(const KeyEvents::HotKey& hotKey = {.keyCode = {}, .modifierFlags = chord})
    {
        status = shortcuts.bind(hotKey,
                                {.pressed = [this] { story << u"P"_s; },
                                 .released = [this] { story << u"R"_s; },
                                 .joined = [this] { story << u"J"_s; },
                                 .lost =
                                     [this](int) {
                                         story << u"lost"_s;
                                     }});
        commands = sway.nextCommands();
    }

    FakeSway sway;
    SwayShortcuts shortcuts{sway.server.fullServerName()};
    QStringList story;
    QStringList commands;
    int status = 0;
};

const QByteArray alder = R"({"id":7,"pid":70,"app_id":"alder","focused":true})";
const QByteArray birch
    = R"({"id":8,"pid":80,"window_properties":{"class":"Birch","instance":"it"}})";

QByteArray tree(const QByteArray& windows, const QByteArray& floating = {})
{
    return framed(4,
                  R"({"id":1,"nodes":[{"nodes":[)" + windows + R"(],"floating_nodes":[)" + floating
                      + "]}]}");
}

QString described(const SwayWindows& windows)
{
    QStringList all;
    for (const WindowId window : windows.windows()) {
        const WindowSource::Facts facts = windows.factsOf(window);
        all << u"%1/%2/%3/%4%5%6"_s
                   .arg(facts.clues.applicationId, facts.clues.instanceName, facts.clues.className)
                   .arg(facts.processId)
                   .arg(facts.isOnTaskbar ? QString() : u"-"_s)
                   .arg(window == windows.activeWindow() ? u"*"_s : QString());
    }
    return all.join(u' ');
}

} // namespace

class SwayTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shortcutsAreBoundInEveryOrderOfTheirKeys_data()
    {
        const Table<quint64, int, QStringList> row; // Modifiers, key, and keys of the bindings.
        row("a key", chord, 49, {u"bindcode|Ctrl+Mod1+65"_s});
        row("a chord",
            chord,
            -1,
            {u"bindsym|Mod1+Control_L"_s,
             u"bindsym|Mod1+Control_R"_s,
             u"bindsym|Ctrl+Alt_L"_s,
             u"bindsym|Ctrl+Alt_R"_s,
             u"bindsym|Ctrl+Meta_L"_s,
             u"bindsym|Ctrl+Meta_R"_s});
    }

    void shortcutsAreBoundInEveryOrderOfTheirKeys()
    {
        const auto [modifiers, key, keys] = fetch<quint64, int, QStringList>();
        KeyEvents::HotKey hotKey{.keyCode = {}, .modifierFlags = modifiers};
        if (key >= 0) {
            hotKey.keyCode = static_cast<quint16>(key);
        }
        Listening listening(hotKey);
        QCOMPARE(listening.status, 0);
        QStringList given;
        QStringList taken;
        for (qsizetype i = 0; i < 4 * keys.size(); ++i) {
            QString each = keys.at(i / 4);
            each.insert(each.indexOf(u'|') + 1, u"Group%1+"_s.arg(i % 4 + 1));
            given << QString(each).replace(u'|', u" --no-repeat "_s)
                    + u" nop tavik-launcher press"_s
                  << QString(each).replace(u'|', u" --release "_s)
                    + u" nop tavik-launcher release"_s;
            taken << u"un"_s + QString(each).replace(u'|', u' ')
                  << u"un"_s + QString(each).replace(u'|', u" --release "_s);
        }
        QCOMPARE(listening.commands, given);
        listening.shortcuts.unbind();
        QCOMPARE(listening.sway.nextCommands(), taken);
    }

    void whatSwayTellsIsPassedOn_data()
    {
        const Table<QByteArray, QString> row;
        const QByteArray press = ran("nop tavik-launcher press");
        const QByteArray release = ran("nop tavik-launcher release");
        row("press and release", press + release, u"P R"_s);
        row("in pieces of one answer", framed(0, R"([{"success":true}])") + press, u"P"_s);
        row("another binding with the chord", press + ran("exec x", R"("Ctrl","Mod1")"), u"P J"_s);
        row("another binding", ran("exec x", R"("Mod1")"), {});
        row("refused",
            framed(0, R"([{"success":true},{"success":false,"error":"no"}])"),
            u"lost"_s);
        row("an unasked answer",
            framed(0, R"([])") + framed(0, R"([{"success":false}])") + press,
            u"P"_s);
        row("other shapes", framed(0x80000005, "[1]") + framed(0x80000000, "{}") + press, u"P"_s);
        row("no JSON", framed(0x80000005, "{") + press, u"lost"_s);
        row("no message", "GET / HTTP/1.1\r\n" + press, u"lost"_s);
        row("a size beyond reason", QByteArray("i3-ipc\xff\xff\xff\x7f\5\0\0\x80", 14), u"lost"_s);
        row("half a message", press.chopped(1), {});
    }

    void whatSwayTellsIsPassedOn()
    {
        const auto [told, story] = fetch<QByteArray, QString>();
        Listening listening;
        if (story == u"lost") {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^sway.*"_s));
        }
        listening.sway.say(told);
        QCOMPARE(listening.story.join(u' '), story);
        QCOMPARE(listening.shortcuts.serves(), story != u"lost");
    }

    void aNewConfigurationIsGivenTheBindingsAgain()
    {
        Listening listening;
        listening.sway.say(framed(0, R"([{"success":true}])")
                           + framed(0x80000000, R"({"change":"focus"})")
                           + framed(0x80000000, R"({"change":"reload"})"));
        QCOMPARE(listening.sway.nextCommands(), listening.commands);
        listening.sway.peer->abort();
        QTRY_COMPARE(listening.story, QStringList{u"lost"_s});
        QVERIFY(!listening.shortcuts.serves());
    }

    void theUsersOwnBindingsAreTold_data()
    {
        const Table<QByteArray, int, QString> row; // Configuration, key, and what it does there.
        row("by name",
            R"(set $mod Mod1\n  bindsym --to-code Control+$mod+Space exec a b)",
            49,
            u"exec a b"_s);
        row("by place", R"(bindcode ctrl+Alt+65 kill)", 49, u"kill"_s);
        row("in a block",
            R"(bindsym {\n # two\n Ctrl+Mod1+x nop\n Ctrl+Mod1+space \\\n exec a\n})",
            49,
            u"exec a"_s);
        row("a chord", R"(bindsym Mod1+Control_L exec a)", -1, u"exec a"_s);
        row("longer names first",
            R"(set $m Mod4\nset $mod Mod1\nbindsym Ctrl+$mod+space a)",
            49,
            u"a"_s);
        row("of a mode",
            R"(mode \"x\" {\nbindsym Ctrl+Mod1+space kill\n}\n#bindsym Ctrl+Mod1+space a)",
            49,
            {});
        row("of other keys",
            R"(bindsym Ctrl+Mod1+Return a\nbindsym Mod1+space b\nbindsym\n}\n{)",
            49,
            {});
        row("of values that double",
            R"(set $a x\n)" + QByteArray(R"(set $a $a$a\n)").repeated(16)
                + "bindsym Ctrl+Mod1+space $a",
            49,
            {});
    }
    void theUsersOwnBindingsAreTold()
    {
        const auto [told, key, command] = fetch<QByteArray, int, QString>();
        KeyEvents::HotKey hotKey{.keyCode = {}, .modifierFlags = chord};
        if (key >= 0) {
            hotKey.keyCode = static_cast<quint16>(key);
        }
        Listening listening(hotKey);
        listening.sway.say(framed(9, R"({"config":")" + told + R"("})"));
        QCOMPARE(listening.shortcuts.status(hotKey) != 0, !command.isEmpty());
        QCOMPARE(listening.shortcuts.means().lack.section(u"“"_s, 1).section(u"”"_s, 0, 0),
                 command);
    }

    void whereNobodyListensNothingIsHad()
    {
        SwayShortcuts shortcuts(u"/nonexistent/socket"_s);
        QVERIFY(!shortcuts.serves());
        QVERIFY(shortcuts.bind({.keyCode = {}, .modifierFlags = chord}, {}) != 0);
    }

    void whatSwayTellsIsRemembered_data()
    {
        const Table<QByteArray, QString> row;
        row("of both kinds", tree(alder, birch), u"alder//alder/70* /it/Birch/80"_s);
        row("a panel has the keyboard",
            tree(alder, birch) + tree(QByteArray(alder).replace("true", "false")),
            u"alder//alder/70*"_s);
        row("an empty workspace",
            tree(QByteArray(alder).replace("true", "false") + R"(,{"focused":true})"),
            u"alder//alder/70"_s);
        row("a menu",
            tree(QByteArray(birch).replace("\"it\"", "\"it\",\"window_type\":\"menu\"")),
            u"/it/Birch/80-"_s);
        row("gone", tree(alder) + tree({}), {});
        row("other shapes", framed(4, "[7]") + tree(R"({"id":"x","pid":-3},9,[],{"nodes":7})"), {});
    }

    void whatSwayTellsIsRemembered()
    {
        const auto [told, windows] = fetch<QByteArray, QString>();
        FakeSway sway;
        SwayWindows source(sway.server.fullServerName());
        QVERIFY(!source.isReady());
        QCOMPARE(sway.next(4), QByteArray());
        sway.say(told);
        QVERIFY(source.isReady());
        QCOMPARE(described(source), windows);
    }

    void ownWindowsHaveAPlace()
    {
        FakeSway sway;
        SwayWindows source(sway.server.fullServerName());
        (void)sway.next(4);
        int changes = 0;
        source.onOwnPlacesChanged = [&changes] {
            ++changes;
        };
        const QByteArray place = R"(,"name":"Ours","rect":{"x":1,"y":-2,"width":30,"height":40}})";
        sway.say(tree(alder.chopped(1) + place));
        QCOMPARE(source.placeOfOwn(u"Ours"_s), std::nullopt);
        const QByteArray own = QByteArray::number(QCoreApplication::applicationPid());
        const QByteArray told = tree(QByteArray(alder).replace("70", own).chopped(1) + place);
        sway.say(told + told);
        QCOMPARE(source.placeOfOwn(u"Ours"_s), QRect(1, -2, 30, 40));
        sway.say(tree(alder));
        QCOMPARE(source.placeOfOwn(u"Ours"_s), std::nullopt);
        QCOMPARE(changes, 2);
    }

    void itIsAskedOnceForManyChangesAndRaisesByNumber()
    {
        FakeSway sway;
        SwayWindows source(sway.server.fullServerName());
        (void)sway.next(4);
        const QByteArray change = framed(0x80000003, R"({"change":"new"})");
        sway.say(tree(alder) + change + change + change);
        QCOMPARE(sway.peer->readAll().count("i3-ipc"), 1);
        sway.say(tree(alder));
        QCOMPARE(sway.peer->readAll().count("i3-ipc"), 1); // Again for what has come meanwhile.
        source.activate(99);
        source.activate(source.windows().value(0));
        QCOMPARE(sway.nextCommands(), QStringList{u"[con_id=7] focus"_s});
        sway.peer->abort();
        QTRY_COMPARE(described(source), QString());
    }
};

QTEST_GUILESS_MAIN(SwayTest)
#include "SwayTest.moc"
