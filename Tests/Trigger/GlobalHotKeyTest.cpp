// SPDX-License-Identifier: MIT
#include <TavikLauncher/Trigger/GlobalHotKey.h>

#include <QTest>

#include <Support/FakeKeyEvents.h>
#include <Support/Table.h>
#include <Support/VirtualMainQueue.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

constexpr quint64 control = ModifierFlags::control;
constexpr quint64 chord = ModifierFlags::control | ModifierFlags::option;
constexpr quint64 lockBits = 0x10000; // Caps Lock, outside the four that count.
constexpr quint16 space = 49;

/// A registered hot key; `story` tells what it reported: "P", "R" or "U" and the time.
struct Triggered
{
    explicit Triggered(const HotKeyConfig& config = HotKeyConfig::defaultConfig())
        : hotKey(
            {keys, permission, queue},
            config,
            [this](double time) { tell(u'P', time); },
            [this](ReleaseReason reason, double time) {
                tell(reason == ReleaseReason::chordReleased ? u'R' : u'U', time);
            })
    { }

    void tell(char16_t what, double time) { story << what + QString::number(time); }

    /// Plays "L10:chord T10:chord G11:": the source, the event's time, what is held after it.
    void play(const QString& script)
    {
        static const QHash<QString, quint64> states{
            {u""_s, 0},
            {u"ctrl"_s, control},
            {u"chord"_s, chord},
            {u"locked"_s, chord | lockBits},
            {u"more"_s, chord | ModifierFlags::shift},
        };
        for (const QString& step : script.split(u' ')) {
            const QString state = step.section(u':', 1);
            if (!states.contains(state)) {
                qFatal("There is no such state.");
            }
            const KeyEvents::Event event{.modifierFlags = states.value(state),
                                         .time = step.section(u':', 0, 0).mid(1).toDouble()};
            send(step.front().unicode(), event);
        }
    }
    bool send(char16_t source, const KeyEvents::Event& event)
    {
        if (source == u'L') {
            return keys.local(event);
        }
        (source == u'T' ? keys.tap : keys.global)(event);
        return false;
    }
    bool sendKey(char16_t source, double time, quint64 flags = chord, bool isRepeat = false)
    {
        return send(source,
                    {.kind = KeyEvents::Kind::keyDown,
                     .keyCode = space,
                     .modifierFlags = flags,
                     .isRepeat = isRepeat,
                     .time = time});
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
    void sourcesTogetherTellEachPressOnce_data()
    {
        const Table<QString, QStringList> row;
        const QStringList once{u"P10"_s, u"R11"_s};
        row("local alone", u"L9:ctrl L10:chord L11:ctrl L11.1:"_s, once);
        row("tap alone", u"T9:ctrl T10:chord T11:ctrl T11.1:"_s, once);
        row("global alone", u"G9:ctrl G10:chord G11:ctrl G11.1:"_s, once);
        row("all three", u"L10:chord T10:chord G10:chord G11: T11: L11:"_s, once);
        row("each taking turns", u"T10:chord G11:"_s, once);
        row("one lost the press", u"T9:ctrl G10:chord T11:ctrl G11:ctrl"_s, once);
        row("locks change nothing", u"T10:locked T10.5:chord T10.7:locked T11:ctrl"_s, once);
        row("one modifier too few", u"T10:ctrl T11:"_s, {});
        row("one modifier more ends it",
            u"T10:chord T11:more T12:chord T13:"_s,
            {u"P10"_s, u"R11"_s, u"P12"_s, u"R13"_s});
        row("one modifier more from the start", u"T9:more T11:"_s, {});
        row("a source lags a whole tap behind",
            u"T10:chord T11: G9:ctrl G10:chord G11:ctrl G11.1: L10:chord L11:"_s,
            once);
        row("a source lags two taps behind",
            u"T10:chord T11: T12:chord T13: G10:chord G11: G12:chord G13:"_s,
            {u"P10"_s, u"R11"_s, u"P12"_s, u"R13"_s});
        row("lagging release meets the next press",
            u"T10:chord T11: T11.2:chord G10:chord G11: G11.2:chord T12: G12:"_s,
            {u"P10"_s, u"R11"_s, u"P11.2"_s, u"R12"_s});
        row("times within one millisecond",
            u"T10:ctrl T10:chord T10:ctrl T10: G10:ctrl G10:chord G10:ctrl G10:"_s,
            {u"P10"_s, u"R10"_s});
        row("the same twice", u"T10:chord T10.1:chord T11: T11.1:"_s, once);
    }

    void sourcesTogetherTellEachPressOnce()
    {
        const auto [script, story] = fetch<QString, QStringList>();
        Registered triggered;
        triggered.play(script);
        QCOMPARE(triggered.story, story);
    }

    void pressToldLateWithALaterTimeIsCheckedAgainstTheKeyboard()
    {
        // The second source stamps the same press and release some milliseconds later.
        Registered triggered;
        triggered.keys.held = 0;
        triggered.play(u"T10:chord T10.01: G10.012:chord G10.02:"_s);
        QCOMPARE(triggered.story, QStringList({u"P10"_s, u"R10.01"_s}));
        // A quick press that only that source has heard of is a press.
        triggered.keys.held = chord;
        triggered.play(u"T11:chord T11.1: G11.13:chord G11.2:"_s);
        QCOMPARE(triggered.story.mid(2),
                 QStringList({u"P11"_s, u"R11.1"_s, u"P11.13"_s, u"R11.2"_s}));
    }

    void fastChordsThatAreOverWhenTheyAreToldAllCount_data()
    {
        const Table<QString, QStringList> row;
        const QStringList two{u"P10"_s, u"R10.01"_s, u"P10.02"_s, u"R10.03"_s};
        row("the other source tells the second",
            u"T10:chord T10.01: G10:chord G10.01: G10.02:chord G10.03: T10.02:chord T10.03:"_s,
            two);
        row("who told the release tells the second",
            u"T10:chord G10.01: G10.02:chord G10.03:"_s,
            two);
        row("both stamp the release differently",
            u"T10:chord G10.001:chord T10.01: G10.012: G10.02:chord G10.03:"_s,
            two);
        row("a source that is one release behind waits for the keyboard's word",
            u"G9.99:chord T9.99:chord T9.995: T10:chord T10.01: G10.011: G10.011:chord G10.011:"_s,
            {u"P9.99"_s, u"R9.995"_s, u"P10"_s, u"R10.01"_s});
    }

    void fastChordsThatAreOverWhenTheyAreToldAllCount()
    {
        const auto [script, story] = fetch<QString, QStringList>();
        Registered triggered;
        triggered.keys.held = 0;
        triggered.play(script);
        QCOMPARE(triggered.story, story);
    }

    void lostReleaseIsFoundByAsking()
    {
        Registered triggered;
        triggered.keys.held = chord;
        triggered.play(u"T1000:chord"_s);
        triggered.queue.advance(5);
        QCOMPARE(triggered.story, QStringList{u"P1000"_s});
        triggered.keys.held = 0;
        triggered.queue.advance(0.3);
        QCOMPARE(triggered.story.size(), 2);
        QVERIFY(triggered.story.last().startsWith(u'R'));
        // And nobody is asked any more, until the next press.
        const int questions = triggered.keys.heldQuestions;
        triggered.queue.advance(5);
        QCOMPARE(triggered.keys.heldQuestions, questions);
        // What was lost may still come, and changes nothing.
        triggered.play(u"G1000:chord G1000.5:"_s);
        QCOMPARE(triggered.story.size(), 2);
    }

    void focusThatMovesIsAReasonToAskAtOnce()
    {
        Registered triggered;
        triggered.keys.focusChanged();
        QCOMPARE(triggered.keys.heldQuestions, 0);
        triggered.play(u"T1000:chord"_s);
        triggered.keys.held = chord;
        triggered.keys.focusChanged();
        QCOMPARE(triggered.story.size(), 1);
        triggered.keys.held = control;
        triggered.keys.focusChanged();
        QCOMPARE(triggered.story.size(), 2);
    }

    void keyboardThatCannotBeAskedLeavesItToTheSources()
    {
        Registered triggered;
        triggered.play(u"T1000:chord"_s);
        triggered.queue.advance(3);
        triggered.play(u"T1003:"_s);
        QCOMPARE(triggered.story, QStringList({u"P1000"_s, u"R1003"_s}));
    }

    void registrationSaysWhichSourcesServe_data()
    {
        const Table<QString, bool, QString, bool> row;
        row("all", u"LTG"_s, true, u"local=1 tap=1 global=1 AXTrusted=1"_s, true);
        row("no tap without trust", u"LTG"_s, false, u"local=1 tap=0 global=1 AXTrusted=0"_s, true);
        row("no tap", u"LG"_s, true, u"local=1 tap=0 global=1 AXTrusted=1"_s, true);
        row("tap alone", u"T"_s, true, u"local=0 tap=1 global=0 AXTrusted=1"_s, true);
        row("none", u""_s, true, u"local=0 tap=0 global=0 AXTrusted=1"_s, false);
    }

    void registrationSaysWhichSourcesServe()
    {
        const auto [sources, isTrusted, line, succeeds] = fetch<QString, bool, QString, bool>();
        Triggered triggered;
        triggered.keys.hasLocal = sources.contains(u'L');
        triggered.keys.hasTap = sources.contains(u'T');
        triggered.keys.hasGlobal = sources.contains(u'G');
        triggered.permission.trusted = isTrusted;
        QTest::ignoreMessage(
            QtInfoMsg, qPrintable(u"Tavik Launcher hotkey registered (modifier-only): "_s + line));
        if (!succeeds) {
            QTest::ignoreMessage(QtWarningMsg, "Tavik Launcher: failed to install hotkey monitors");
        }
        QCOMPARE(triggered.hotKey.registerHotKey(), succeeds);
    }

    void firstEventOfEachSourceIsLoggedOnce()
    {
        Registered triggered;
        QTest::failOnWarning(QRegularExpression(u".*"_s));
        for (const char* source : {"event tap", "global monitor", "local monitor"}) {
            QTest::ignoreMessage(
                QtInfoMsg,
                qPrintable(u"Tavik Launcher hotkey: first event from "_s + QLatin1String(source)));
        }
        triggered.play(u"T10:ctrl G10:ctrl L10:ctrl T11: G11: L11:"_s);
    }

    void tapThatWasSwitchedOffIsSwitchedOnAndItsFirstEventsAreOld()
    {
        Registered triggered;
        triggered.keys.tapEnabled = false;
        triggered.keys.tapDisabled();
        QVERIFY(triggered.keys.tapEnabled);
        triggered.queue.advance(0.25);
        triggered.play(u"T1000:chord"_s);
        QCOMPARE(triggered.story, QStringList());
        triggered.play(u"G1000:chord G1000.1:"_s);
        QCOMPARE(triggered.story.size(), 2);
        triggered.queue.advance(0.01);
        triggered.play(u"T1001:chord"_s);
        QCOMPARE(triggered.story.size(), 3);
    }

    void watchdogSwitchesTheTapOnWithinASecond()
    {
        Registered triggered;
        triggered.queue.advance(2.5);
        QCOMPARE(triggered.keys.tapEnablings, 0);
        triggered.keys.tapEnabled = triggered.keys.tapCanBeEnabled = false;
        triggered.queue.advance(2);
        QCOMPARE(triggered.keys.tapEnablings, 2);
        triggered.keys.tapCanBeEnabled = true;
        triggered.queue.advance(1);
        QVERIFY(triggered.keys.tapEnabled);
        triggered.queue.advance(3);
        QCOMPARE(triggered.keys.tapEnablings, 3);
    }

    void watchdogStandsDownWhenTrustIsWithdrawn()
    {
        Registered triggered;
        int revocations = 0;
        triggered.hotKey.onAccessibilityRevoked = [&] {
            ++revocations;
        };
        triggered.keys.held = chord;
        triggered.play(u"T1000:chord"_s);
        triggered.permission.trusted = false;
        triggered.queue.advance(2); // A tap that still works is none of its business.
        QCOMPARE(revocations, 0);
        triggered.keys.tapEnabled = false;
        QTest::ignoreMessage(
            QtWarningMsg,
            "Tavik Launcher hotkey: Accessibility revoked mid-session — standing down");
        triggered.queue.advance(1);
        QCOMPARE(revocations, 1);
        QVERIFY(triggered.story.last().startsWith(u'U'));
        QVERIFY(!triggered.keys.local && !triggered.keys.tap && !triggered.keys.global);
        QCOMPARE(triggered.queue.pendingTasks(), 0);
    }

    void ownerMayReplaceItInsideItsOwnCallbacks()
    {
        FakeKeyEvents keys;
        FakeAccessibilityPermission permission;
        VirtualMainQueue queue;
        std::unique_ptr<GlobalHotKey> hotKey;
        int releases = 0;
        const auto make = [&](const HotKeyConfig& config) {
            hotKey = std::make_unique<GlobalHotKey>(
                GlobalHotKey::Dependencies{keys, permission, queue},
                config,
                [&](double) { hotKey.reset(); },
                [&](ReleaseReason, double) { ++releases; });
            QVERIFY(hotKey->registerHotKey());
        };
        make(HotKeyConfig::defaultConfig());
        const KeyEvents::Observer tap = keys.tap;
        tap({.modifierFlags = chord, .time = 1});
        QVERIFY(!hotKey);
        QCOMPARE(releases, 1);

        make(HotKeyConfig::defaultConfig());
        hotKey->onAccessibilityRevoked = [&] {
            hotKey.reset();
        };
        keys.tapEnabled = permission.trusted = false;
        queue.advance(1);
        QVERIFY(!hotKey);
    }

    void unregisteringUndoesEverything()
    {
        Registered triggered;
        triggered.keys.held = chord;
        triggered.play(u"L1000:chord"_s);
        triggered.hotKey.unregister();
        QCOMPARE(triggered.story, QStringList({u"P1000"_s, u"U1000"_s}));
        QVERIFY(!triggered.keys.local && !triggered.keys.tap && !triggered.keys.global);
        QVERIFY(!triggered.keys.focusChanged);
        QCOMPARE(triggered.queue.pendingTasks(), 0);
        triggered.hotKey.unregister();
        QCOMPARE(triggered.story.size(), 2);
    }

    void keyIsAskedForSystemWideAndNothingElseWatches()
    {
        Triggered triggered(keyed());
        QVERIFY(triggered.hotKey.registerHotKey());
        QCOMPARE(triggered.keys.requests.first().keyCode, space);
        QCOMPARE(triggered.keys.requests.first().modifierFlags, chord);
        QVERIFY(!triggered.keys.tap && !triggered.keys.global);
        triggered.keys.hotKeyPressed(12);
        QVERIFY(triggered.sendKey(u'L', 13));
        QVERIFY(!triggered.sendKey(u'L', 14, control));
        QVERIFY(!triggered.sendKey(u'L', 15, chord | ModifierFlags::command));
        QVERIFY2(triggered.sendKey(u'L', 16, chord, true), "a repetition goes nowhere");
        QCOMPARE(triggered.story, QStringList({u"P12"_s, u"P13"_s}));
        triggered.hotKey.unregister();
        QVERIFY(!triggered.keys.hotKeyPressed && !triggered.keys.local);
        QCOMPARE(triggered.story.size(), 2);
    }

    void keyOfAnotherProgramIsWatchedFor()
    {
        Triggered triggered(keyed());
        triggered.keys.hotKeyError = 10;
        QTest::ignoreMessage(QtWarningMsg, "Tavik Launcher: RegisterEventHotKey status 10");
        QTest::ignoreMessage(QtWarningMsg,
                             "Tavik Launcher: Carbon RegisterEventHotKey failed, falling back to "
                             "NSEvent monitors");
        QVERIFY(triggered.hotKey.registerHotKey());
        triggered.sendKey(u'T', 1000);
        triggered.sendKey(u'G', 1000.001);
        QCOMPARE(triggered.story, QStringList{u"P1000"_s});
        triggered.sendKey(u'T', 1000.2, chord, true);
        triggered.queue.advance(0.09);
        triggered.sendKey(u'G', 1000.1);
        QCOMPARE(triggered.story.size(), 1);
        triggered.queue.advance(0.2);
        triggered.sendKey(u'G', 1000.3);
        triggered.sendKey(u'T', 1000.3, control);
        QCOMPARE(triggered.story, QStringList({u"P1000"_s, u"P1000.3"_s}));
        // One key press in our own window, told by the tap first.
        triggered.queue.advance(1);
        triggered.sendKey(u'T', 1001.3);
        QVERIFY(triggered.sendKey(u'L', 1001.3));
        QCOMPARE(triggered.story.size(), 3);
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
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(u"^Tavik Launcher: failed to install hotkey "
                                                "monitors: .*"_s));
        QTest::failOnWarning(QRegularExpression(u".*"_s));
        QVERIFY(!triggered.hotKey.registerHotKey());
        QVERIFY(!triggered.keys.local && !triggered.keys.tap);
        QVERIFY(GlobalHotKey::refusal(triggered.keys, config));
    }

    void unknownBitsBesideKnownOnesAreIgnored()
    {
        Triggered triggered(HotKeyConfig::make(chord | quint64{1} << 60 | lockBits, std::nullopt));
        QVERIFY(triggered.hotKey.registerHotKey());
        triggered.play(u"T10:chord T11:"_s);
        QCOMPARE(triggered.story, QStringList({u"P10"_s, u"R11"_s}));
    }

    void trialSaysWhyAShortcutCannotBeHad()
    {
        FakeKeyEvents keys;
        QVERIFY(!GlobalHotKey::refusal(keys, HotKeyConfig::defaultConfig()));
        QVERIFY(!GlobalHotKey::refusal(keys, keyed()));
        keys.hotKeyError = 10;
        QVERIFY(!GlobalHotKey::refusal(keys, HotKeyConfig::defaultConfig()));
        QCOMPARE(GlobalHotKey::refusal(keys, keyed()),
                 u"⌃⌥Space is already used by another application."_s);
        QVERIFY(keys.requests.isEmpty());
    }
};

QTEST_GUILESS_MAIN(GlobalHotKeyTest)
#include "GlobalHotKeyTest.moc"
