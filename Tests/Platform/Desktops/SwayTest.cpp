// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/SwayShortcuts.h>
#include <TavikLauncherPlatform/Linux/Desktops/SwayWindows.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

#include <Support/Counting.h>
#include <Support/ShortcutStory.h>
#include <Support/Table.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

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
        constexpr qsizetype head = 14;
        while (true) {
            const qsizetype end = received.size() < head
                ? head
                : head + qFromUnaligned<quint32>(received.constData() + 6);
            if (received.size() >= end) {
                const QByteArray message = received.first(end);
                received.remove(0, end);
                if (message.at(10) == type) {
                    return message.sliced(head);
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
    explicit Listening(const KeyEvents::HotKey& hotKey = chord)
        : status(shortcuts.bind(hotKey, story.handlers()))
        , commands(sway.nextCommands())
    { }

    FakeSway sway;
    SwayShortcuts shortcuts{sway.server.fullServerName()};
    ShortcutStory story;
    int status;
    QStringList commands;
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
        const Table<KeyEvents::HotKey, QString, QString> row; // And its bindings.
        row("a key", chordAndSpace, u"bindcode"_s, u"Ctrl+Mod1+65"_s);
        row("a chord",
            chord,
            u"bindsym"_s,
            u"Mod1+Control_L Mod1+Control_R Ctrl+Alt_L Ctrl+Alt_R Ctrl+Meta_L Ctrl+Meta_R"_s);
    }

    void shortcutsAreBoundInEveryOrderOfTheirKeys()
    {
        const auto [hotKey, verb, orders] = fetch<KeyEvents::HotKey, QString, QString>();
        Listening listening(hotKey);
        QCOMPARE(listening.status, 0);
        QStringList given;
        QStringList taken;
        for (const QString& keys : orders.split(u' ')) {
            for (int layout = 1; layout <= 4; ++layout) {
                const QString binding = u" Group%1+"_s.arg(layout) + keys;
                const QString release = u" --release"_s + binding;
                given << verb + u" --no-repeat"_s + binding + u" nop tavik-launcher press"_s
                      << verb + release + u" nop tavik-launcher release"_s;
                taken << u"un"_s + verb + binding << u"un"_s + verb + release;
            }
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
        row("press and release", press + release, u"PR"_s);
        row("in pieces of one answer", framed(0, R"([{"success":true}])") + press, u"P"_s);
        row("another binding with the chord", press + ran("exec x", R"("Ctrl","Mod1")"), u"PJ"_s);
        row("another binding", ran("exec x", R"("Mod1")"), {});
        row("refused", framed(0, R"([{"success":true},{"success":false,"error":"no"}])"), u"L"_s);
        row("an unasked answer",
            framed(0, R"([])") + framed(0, R"([{"success":false}])") + press,
            u"P"_s);
        row("other shapes", framed(0x80000005, "[1]") + framed(0x80000000, "{}") + press, u"P"_s);
        row("no JSON", framed(0x80000005, "{") + press, u"L"_s);
        row("no message", "GET / HTTP/1.1\r\n" + press, u"L"_s);
        row("a size beyond reason", QByteArray("i3-ipc\xff\xff\xff\x7f\5\0\0\x80", 14), u"L"_s);
        row("half a message", press.chopped(1), {});
    }

    void whatSwayTellsIsPassedOn()
    {
        const auto [told, story] = fetch<QByteArray, QString>();
        Listening listening;
        if (story == u"L") {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^sway.*"_s));
        }
        listening.sway.say(told);
        QCOMPARE(listening.story.told, story);
        QCOMPARE(listening.shortcuts.serves(), story != u"L");
    }

    void aNewConfigurationIsGivenTheBindingsAgain()
    {
        Listening listening;
        listening.sway.say(framed(0, R"([{"success":true}])")
                           + framed(0x80000000, R"({"change":"focus"})")
                           + framed(0x80000000, R"({"change":"reload"})"));
        QCOMPARE(listening.sway.nextCommands(), listening.commands);
        listening.sway.peer->abort();
        QTRY_COMPARE(listening.story.told, u"L"_s);
        QVERIFY(!listening.shortcuts.serves());
    }

    void theUsersOwnBindingsAreTold_data()
    {
        const Table<QByteArray, QString> row; // Configuration, and what it does there.
        row("name", R"(set $mod Mod1\n  bindsym --to-code Control+$mod+Space exec a)", u"exec a"_s);
        row("place", R"(bindcode ctrl+Alt+65 kill)", u"kill"_s);
        row("in a block",
            R"(bindsym {\n # two\n Ctrl+Mod1+x nop\n Ctrl+Mod1+space \\\n exec a\n})",
            u"exec a"_s);
        row("a chord", R"(bindsym Mod1+Control_L exec b)", u"exec b"_s);
        row("longer first", R"(set $m Mod4\nset $mod Mod1\nbindsym Ctrl+$mod+space a)", u"a"_s);
        row("of a mode",
            R"(mode \"x\" {\nbindsym Ctrl+Mod1+space kill\n}\n#bindsym Ctrl+Mod1+space a)",
            {});
        row("other keys", R"(bindsym Ctrl+Mod1+Return a\nbindsym Mod1+space b\nbindsym\n}\n{)", {});
        row("of values that double",
            R"(set $a x\n)" + QByteArray(R"(set $a $a$a\n)").repeated(16)
                + "bindsym Ctrl+Mod1+space $a",
            {});
    }
    void theUsersOwnBindingsAreTold()
    {
        const auto [told, command] = fetch<QByteArray, QString>();
        QString found;
        for (const KeyEvents::HotKey& hotKey : {chordAndSpace, chord}) {
            Listening listening(hotKey);
            listening.sway.say(framed(9, R"({"config":")" + told + R"("})"));
            const QString lack = listening.shortcuts.means().lack;
            QCOMPARE(listening.shortcuts.status(hotKey) != 0, !lack.isEmpty());
            found += lack.section(u"“"_s, 1).section(u"”"_s, 0, 0);
        }
        QCOMPARE(found, command);
    }

    void whereNobodyListensNothingIsHad()
    {
        SwayShortcuts shortcuts(u"/nonexistent/socket"_s);
        QVERIFY(!shortcuts.serves());
        QVERIFY(shortcuts.bind(chord, {}) != 0);
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
        source.onOwnPlacesChanged = counting(changes);
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
