// SPDX-License-Identifier: MIT
#include <TavikLauncher/Trigger/GlobalHotKey.h>

#include <QRandomGenerator>
#include <QTest>

#include <Support/Counting.h>
#include <Support/FakeKeyEvents.h>
#include <Support/Table.h>
#include <Support/VirtualMainQueue.h>
#include <Support/Warnings.h>
#include <algorithm>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

constexpr quint64 control = ModifierFlags::control;
constexpr quint64 chord = ModifierFlags::control | ModifierFlags::option;
constexpr quint64 lockBits = 0x10000; // Caps Lock, outside the four that count.
constexpr quint16 space = 49;
constexpr const char* fallingBack
    = "Tavik Launcher: Carbon RegisterEventHotKey failed, falling back to NSEvent monitors";

/// A hot key among fakes; `story` tells what it reported: "P", "R", "U" or "N" (it was never held)
/// and the time; "A" and the time of a press that is held after all; "M", a modifier joined, "O",
/// another key did, and "L", all was let go.
struct Triggered
{
    explicit Triggered(const HotKeyConfig& config = HotKeyConfig::defaultConfig())
        : hotKey(
            {keys, permission, queue},
            config,
            [this](double time) { tell(u'P', time); },
            [this](ReleaseReason reason, double time) {
                tell(u"RUN"[static_cast<int>(reason)], time);
            })
    {
        hotKey.onOtherKey = [this](OtherKey key) {
            story << (key == OtherKey::modifier ? u"M"_s : u"O"_s);
        };
        hotKey.onHeldAfterAll = [this](double time) {
            tell(u'A', time);
        };
        hotKey.onLetGo = [this] {
            story << u"L"_s;
        };
    }

    void tell(char16_t what, double time) { story << what + QString::number(time); }
    [[nodiscard]] bool isWatching() const { return keys.local || keys.tap || keys.global; }

    /// Returns the story after "L10:chord G11:", a source, the event's time and what is held after
    /// it; "l10:chord", the key pressed with that held; "O10:chord", a key that somebody else got;
    /// "K10", the hot key; "H:chord", what the keyboard answers from now on (until then, and after
    /// "H:nobody", it cannot be asked); "W0.5", time goes by; and by a letter: D the tap is
    /// switched off, X the hot key is unregistered, S a command summons, Y and Z the desktop tells
    /// press and release of the chord, J what joined it.
    QString play(const QString& script)
    {
        static const QHash<QString, quint64> states{
            {u"ctrl"_s, control},
            {u"chord"_s, chord},
            {u"locked"_s, chord | lockBits},
            {u"more"_s, chord | ModifierFlags::shift},
            {u"again"_s, chord}, // As the keyboard repeats a key that is held.
        };
        double time = 0;
        quint64 state = 0;
        QString name;
        QHash<QChar, std::function<void()>> acts;
        acts.insert(u'H',
                    [&] { keys.held = name == u"nobody" ? std::nullopt : std::optional(state); });
        acts.insert(u'W', [&] { queue.advance(time); });
        acts.insert(u'D', [&] {
            keys.tapEnabled = false;
            keys.tapDisabled();
        });
        acts.insert(u'X', [&] { hotKey.unregister(); });
        acts.insert(u'K', [&] { keys.hotKeyPressed(time); });
        acts.insert(u'S', [&] { hotKey.summon(); });
        acts.insert(u'Y', [&] { keys.hotKeyPressed(queue.systemUptime()); });
        acts.insert(u'J', [&] { keys.hotKeyJoined(queue.systemUptime()); });
        acts.insert(u'Z', [&] { keys.hotKeyReleased(queue.systemUptime()); });
        for (const QString& step : script.split(u' ')) {
            name = step.section(u':', 1);
            time = step.section(u':', 0, 0).mid(1).toDouble();
            state = states.value(name);
            if (const auto act = acts.value(step.front())) {
                act();
            } else {
                send(step.front(),
                     {.keyCode = space,
                      .modifierFlags = state,
                      .isRepeat = name == u"again",
                      .time = time});
            }
        }
        return story.join(u' ');
    }
    void send(QChar source, KeyEvents::Event event)
    {
        using enum KeyEvents::Kind;
        event.kind = source == u'O' ? takenElsewhere
            : source.isLower()      ? keyDown
                                    : modifiersChanged;
        if (source.toUpper() != u'L') {
            (source.toUpper() == u'G' ? keys.global : keys.tap)(event);
        } else if (keys.local(event)) {
            story << u"taken"_s;
        }
    }

    FakeKeyEvents keys;
    FakeAccessibilityPermission permission;
    VirtualMainQueue queue;
    QStringList story;
    GlobalHotKey hotKey;
};

struct Registered : Triggered
{
    Registered()
    {
        if (!hotKey.registerHotKey()) {
            qFatal("The shortcut could not be registered.");
        }
    }
};

HotKeyConfig keyed()
{
    return HotKeyConfig::make(chord, space);
}

} // namespace

class GlobalHotKeyTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachPressIsToldOnce_data()
    {
        const Table<QString, QString> row;
        row("local alone", u"L9:ctrl L10:chord L11:ctrl L11.1:"_s, u"P10 R11"_s);
        row("tap alone", u"T9:ctrl T10:chord T11:ctrl T11.1:"_s, u"P10 R11"_s);
        row("global alone", u"G9:ctrl G10:chord G11:ctrl G11.1:"_s, u"P10 R11"_s);
        row("all three", u"L10:chord T10:chord G10:chord G11: T11: L11:"_s, u"P10 R11"_s);
        row("each taking turns", u"T10:chord G11:"_s, u"P10 R11"_s);
        row("one lost the press", u"T9:ctrl G10:chord T11:ctrl G11:ctrl"_s, u"P10 R11"_s);
        row("locks change nothing", u"T10:locked T10.5:chord T10.7:locked T11:"_s, u"P10 R11"_s);
        row("one modifier too few", u"T10:ctrl T11:"_s, {});
        row("one modifier more", u"T10:chord T11:more T12:chord T13:"_s, u"P10 M R11 P12 R13 L"_s);
        row("one more from the start", u"T9:more T10:chord T11:"_s, u"M P10 R11 L"_s);
        row("let go one by one",
            u"T10:chord T11:more T12:ctrl T13: T14:chord T15:"_s,
            u"P10 M R11 L P14 R15"_s);
        row("others get a key", u"T10:chord O10.1:chord T10.2:ctrl T10.3:"_s, u"P10 O R10.2 L"_s);
        row("told before its chord", u"O10.1:chord T10:chord T11:"_s, u"O P10 R11 L"_s);
        row("told after its chord", u"T10:chord T10.2: O10.1:chord"_s, u"P10 R10.2 O L"_s);
        row("the key of an earlier shortcut", u"O9:chord W0.06 T10:chord T11:"_s, u"P10 R11"_s);
        row("a key with other modifiers", u"T10:chord O10.1:ctrl T11:"_s, u"P10 R11"_s);
        row("a lost release", u"H:chord T1000:chord W5 H: W0.3 G1005.4:"_s, u"P1000 R1005.25"_s);
        row("nobody can be asked", u"T1000:chord W3 T1003:"_s, u"P1000 R1003"_s);
        row("a tap that was off tells old news first",
            u"D W0.25 T1000:chord T1000.1: G1000.2:chord G1000.3: W0.01 T1001:chord T1002:"_s,
            u"P1000.2 R1000.3 P1001 R1002"_s);
        row("summoned with the chord down", u"H:chord S W1 H: W0.25"_s, u"P1000 R1001.25"_s);
        row("summoned by another key", u"H:ctrl S W2 S W0.1"_s, u"P1000 N1000 P1002 N1002"_s);
        row("summoned, and it is held", u"S W0.1 L1000.1:chord L1003:"_s, u"P1000 R1003"_s);
        row("summoned, and nothing is held", u"S W0.1 L1000.1: W0.1"_s, u"P1000 N1000"_s);
        row("summoned while another window gets the keyboard",
            u"H: S W0.05 H:nobody W0.1 H:chord L1000.15:chord L1003:"_s,
            u"P1000 R1003"_s);
        row("which hears of the chord late",
            u"H: S W0.08 L1000.08: W0.09 H:chord L1000.17:chord L1003:"_s,
            u"P1000 R1003"_s);
        row("which hears of it too late",
            u"H: S W0.1 L1000.3:chord L1003:"_s,
            u"P1000 N1000 A1000 R1003"_s);
        row("a command twice, the second time heard first",
            u"H: S W0.1 H:chord L1000.3:chord S L1003:"_s,
            u"P1000 N1000 A1000 P1000.1 R1003"_s);
        row("the chord some time after a command",
            u"H: S W1.1 L1001.1:chord L1003:"_s,
            u"P1000 N1000 P1001.1 R1003"_s);
        row("summoned by what was heard", u"H:chord T1000:chord S T1001:"_s, u"P1000 R1001"_s);
        row("the first release is lost",
            u"S W1.5 S W1.5 L1003: W0.1"_s,
            u"P1000 N1001.5 P1001.5 N1001.5"_s);
        row("unregistered while it is held", u"H:chord L1000:chord X X"_s, u"P1000 U1000"_s);
    }

    void eachPressIsToldOnce()
    {
        const auto [script, story] = fetch<QString, QString>();
        Registered triggered;
        QCOMPARE(triggered.play(script), story);
        // The keyboard is asked only while the chord is held; the tap's watchdog goes on.
        QCOMPARE(triggered.queue.pendingTasks(), triggered.isWatching() ? 1 : 0);
    }

    void aDesktopThatListensInOurPlaceIsBelieved_data()
    {
        const Table<QString, QString> row;
        row("both told", u"Y W0.1 Z W0.4 Y W2 Z"_s, u"P1000 R1000.1 P1000.5 R1002.5"_s);
        row("released before the ring could see it", u"Y W0.1 L1000.1: W0.2 Z"_s, u"P1000 R1000"_s);
        row("the release is lost", u"Y W3 Y W0.1 Z"_s, u"P1000 R1003 P1003 R1003.1"_s);
        row("the ring hears of it first", u"H:chord L1000:chord Y W1 L1001: Z"_s, u"P1000 R1001"_s);
        row("somebody else's key joins it", u"Y W1 J W1 Z"_s, u"P1000 O R1002 L"_s);
        row("held keys are told to the ring one by one",
            u"Y W0.1 L1000.1: L1000.1:ctrl W0.05 L1000.2:chord W2 L1002:ctrl"_s,
            u"P1000 R1002"_s);
        row("the ring hears of one key alone", u"Y W0.1 L1000.1:ctrl W2 Z"_s, u"P1000 R1002.1"_s);
        row("and the release is lost", u"Y J W2 Y W0.1 Z"_s, u"P1000 O R1002 L P1002 R1002.1"_s);
        row("its command", u"S W0.2 L1000.2: W0.1"_s, u"P1000 R1000"_s);
    }

    void aDesktopThatListensInOurPlaceIsBelieved()
    {
        const auto [script, story] = fetch<QString, QString>();
        Triggered triggered;
        triggered.keys.listensForChords = true;
        triggered.keys.hasTap = triggered.keys.hasGlobal = false;
        QVERIFY(triggered.hotKey.registerHotKey());
        QCOMPARE(triggered.play(script), story);
        QCOMPARE(triggered.queue.pendingTasks(), 0);
    }

    /// A keyboard at random, and sources each of which loses a third of it, repeats another third,
    /// and hears of some of it late; what they tell then is what is held by that time.
    void noSequenceStrandsTheChordOrRepeatsIt()
    {
        Registered triggered;
        QRandomGenerator random(20261121);
        quint64 held = 0;
        qsizetype chords = 0;
        const auto count = [&](QChar what) {
            return std::ranges::count_if(
                triggered.story, [what](const QString& told) { return told.startsWith(what); });
        };
        std::vector<Task> late;
        const auto tell = [&](QChar source) {
            triggered.send(source, {.modifierFlags = held, .time = triggered.queue.systemUptime()});
        };
        for (int step = 1; step <= 10'000; ++step) {
            const bool ends = step % 8 == 0;
            const quint64 before = held;
            held = ends               ? 0
                : (step + 1) % 8 == 0 ? chord
                                      : held ^ (ModifierFlags::shift << random.bounded(4));
            chords += held == chord && before != chord ? 1 : 0;
            triggered.keys.held = held;
            for (const QChar source : u"LTG"_s) {
                for (int times = random.bounded(3); times > 0; --times) {
                    if (random.bounded(2) == 0) {
                        tell(source);
                    } else {
                        late.push_back(triggered.queue.after(0.001 * random.bounded(300),
                                                             [&tell, source] { tell(source); }));
                    }
                }
            }
            triggered.queue.advance(ends ? 0.6 : 0.004 * random.bounded(100));
            if (ends) {
                late.clear();
                QCOMPARE(count(u'P'), count(u'R'));
                QVERIFY2(count(u'P') <= chords, qPrintable(triggered.story.join(u' ')));
            }
        }
        QVERIFY(count(u'P') > chords / 2);
    }

    void registrationSaysWhichSourcesServe_data()
    {
        const Table<QString, bool, QString> row;
        row("all", u"LTG"_s, true, u"local=1 tap=1 global=1 AXTrusted=1"_s);
        row("no tap without trust", u"LTG"_s, false, u"local=1 tap=0 global=1 AXTrusted=0"_s);
        row("tap alone", u"T"_s, true, u"local=0 tap=1 global=0 AXTrusted=1"_s);
        row("none", u""_s, true, u"local=0 tap=0 global=0 AXTrusted=1"_s);
    }

    void registrationSaysWhichSourcesServe()
    {
        const auto [sources, isTrusted, line] = fetch<QString, bool, QString>();
        Triggered triggered;
        triggered.keys.hasLocal = sources.contains(u'L');
        triggered.keys.hasTap = sources.contains(u'T');
        triggered.keys.hasGlobal = sources.contains(u'G');
        triggered.permission.trusted = isTrusted;
        QTest::ignoreMessage(
            QtInfoMsg, qPrintable(u"Tavik Launcher hotkey registered (modifier-only): "_s + line));
        if (sources.isEmpty()) {
            QTest::ignoreMessage(QtWarningMsg, "Tavik Launcher: failed to install hotkey monitors");
        }
        QCOMPARE(triggered.hotKey.registerHotKey(), !sources.isEmpty());
        if (sources == u"T") {
            QTest::ignoreMessage(QtInfoMsg, "Tavik Launcher hotkey: first event from event tap");
            triggered.play(u"T10:ctrl T11:"_s);
        }
    }

    void watchdogSwitchesTheTapOnWithinASecond()
    {
        Registered triggered;
        triggered.play(u"W2.5 D"_s);
        QVERIFY(triggered.keys.tapEnabled);
        triggered.keys.tapEnabled = triggered.keys.tapCanBeEnabled = false;
        triggered.play(u"W2"_s);
        triggered.keys.tapCanBeEnabled = true;
        triggered.play(u"W1"_s);
        QVERIFY(triggered.keys.tapEnabled);
        QCOMPARE(triggered.keys.tapEnablings, 4);
    }

    void watchdogStandsDownWhenTrustIsWithdrawn()
    {
        Registered triggered;
        int revocations = 0;
        triggered.hotKey.onAccessibilityRevoked = counting(revocations);
        triggered.permission.trusted = false;
        triggered.play(u"H:chord T1000:chord W2"_s); // A tap that works is none of its business.
        QCOMPARE(revocations, 0);
        triggered.keys.tapEnabled = false;
        QTest::ignoreMessage(
            QtWarningMsg,
            "Tavik Launcher hotkey: Accessibility revoked mid-session — standing down");
        QCOMPARE(triggered.play(u"W1"_s), u"P1000 U1003"_s);
        QCOMPARE(revocations, 1);
        QVERIFY(!triggered.isWatching());
        QCOMPARE(triggered.queue.pendingTasks(), 0);
    }

    void ownerMayEndItInsideItsOwnCallbacks()
    {
        FakeKeyEvents keys;
        FakeAccessibilityPermission permission;
        VirtualMainQueue queue;
        std::unique_ptr<GlobalHotKey> hotKey;
        int releases = 0;
        const auto end = [&] {
            hotKey.reset();
        };
        for (const bool endsAtPress : {true, false}) {
            hotKey = std::make_unique<GlobalHotKey>(
                GlobalHotKey::Dependencies{keys, permission, queue},
                HotKeyConfig::defaultConfig(),
                [&](double) { end(); },
                [&](ReleaseReason, double) { ++releases; });
            hotKey->onAccessibilityRevoked = end;
            QVERIFY(hotKey->registerHotKey());
            if (endsAtPress) {
                const KeyEvents::Observer tap = keys.tap;
                tap({.modifierFlags = chord, .time = 1});
                QCOMPARE(releases, 1);
            } else {
                keys.tapEnabled = permission.trusted = false;
                queue.advance(1);
            }
            QVERIFY(!hotKey);
        }
    }

    void keyIsAskedForSystemWideAndNothingElseWatches()
    {
        Triggered triggered(keyed());
        QVERIFY(triggered.hotKey.registerHotKey());
        QCOMPARE(triggered.keys.requests.first().keyCode, space);
        QCOMPARE(triggered.keys.requests.first().modifierFlags, chord);
        QCOMPARE(triggered.keys.requests.first().label, u"Space"_s);
        QVERIFY(!triggered.keys.tap && !triggered.keys.global);
        QCOMPARE(triggered.play(u"K12 l13:chord l14:ctrl l15:more l16:again X"_s),
                 u"P12 P13 taken taken"_s);
        QVERIFY(!triggered.keys.hotKeyPressed && !triggered.isWatching());
    }

    void keyOfAnotherProgramIsWatchedFor()
    {
        Triggered triggered(keyed());
        triggered.keys.hotKeyError = 10;
        QTest::ignoreMessage(QtWarningMsg, "Tavik Launcher: RegisterEventHotKey status 10");
        QTest::ignoreMessage(QtWarningMsg, fallingBack);
        QVERIFY(triggered.hotKey.registerHotKey());
        // Two sources tell of one press, and a tenth of a second is one press too.
        QCOMPARE(triggered.play(u"t1000:chord g1000.001:chord t1000.2:again W0.09 g1000.1:chord"_s),
                 u"P1000"_s);
        triggered.play(u"W0.2 g1000.3:chord t1000.3:ctrl"_s);
        // A key press in our own window, told by the tap first.
        QCOMPARE(triggered.play(u"W1 t1001.3:chord l1001.3:chord"_s),
                 u"P1000 P1000.3 P1001.3 taken"_s);
    }

    void keyThatIsLostLaterIsWatchedForAndToldOf()
    {
        Triggered triggered(keyed());
        int status = 0;
        triggered.hotKey.onHotKeyLost = [&](int error) {
            status = error;
        };
        QVERIFY(triggered.hotKey.registerHotKey());
        QTest::ignoreMessage(QtWarningMsg, fallingBack);
        triggered.keys.hotKeyLost(10);
        QCOMPARE(status, 10);
        QVERIFY(!triggered.keys.hotKeyPressed);
        QCOMPARE(triggered.play(u"t1000:chord"_s), u"P1000"_s);
    }

    void impossibleShortcutsAreNotRegisteredWithOneLine_data()
    {
        const Table<HotKeyConfig> row;
        row("no modifier, no key", HotKeyConfig::make(0, std::nullopt));
        row("no modifier", HotKeyConfig::make(0, space));
        row("unknown bits alone", HotKeyConfig::make(quint64{1} << 60, std::nullopt));
        row("absent key", HotKeyConfig::make(chord, quint16{52}));
        row("absent modifier", HotKeyConfig::make(chord | ModifierFlags::command, std::nullopt));
    }

    void impossibleShortcutsAreNotRegisteredWithOneLine()
    {
        const auto [config] = fetch<HotKeyConfig>();
        Triggered triggered(config);
        triggered.keys.missingKeys = {52};
        triggered.keys.missingModifiers = ModifierFlags::command;
        expectWarning(u"^Tavik Launcher: failed to install hotkey "
                      "monitors: .*"_s);
        QTest::failOnWarning(QRegularExpression(u".*"_s));
        QVERIFY(!triggered.hotKey.registerHotKey());
        QVERIFY(!triggered.keys.local && !triggered.keys.tap);
        QVERIFY(GlobalHotKey::refusal(triggered.keys, config));
    }

    void trialSaysWhyAShortcutCannotBeHad()
    {
        FakeKeyEvents keys;
        QVERIFY(!GlobalHotKey::refusal(keys, HotKeyConfig::defaultConfig()));
        QVERIFY(!GlobalHotKey::refusal(keys, keyed()));
        keys.hotKeyError = 10;
        QVERIFY(!GlobalHotKey::refusal(keys, HotKeyConfig::defaultConfig()));
        QCOMPARE(GlobalHotKey::refusal(keys, keyed()),
                 u"Ctrl + Alt + Space is already used by another application."_s);
        keys.hearsOfChords = false;
        const auto reason = GlobalHotKey::refusal(keys, HotKeyConfig::defaultConfig());
        QVERIFY(reason && reason->contains(u"Ctrl + Alt + Space"));
        QVERIFY(keys.requests.isEmpty());
    }
};

QTEST_GUILESS_MAIN(GlobalHotKeyTest)
#include "GlobalHotKeyTest.moc"
