// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/HotKeyConfig.h>
#include <TavikLauncher/Settings/HotKeyRecorder.h>
#include <TavikLauncher/Settings/ShortcutWords.h>
#include <TavikLauncherPlatform/KeyEvents.h>

#include <QSignalSpy>
#include <QTest>

#include <Support/Counting.h>
#include <Support/Table.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

constexpr quint64 capsLock = 0x10000;

/// A recorder that keeps what it commits.
struct Recorded
{
    Recorded()
    {
        recorder.onCommit = [this](const HotKeyConfig& config) {
            QVERIFY(!recorder.isRecording());
            names << config.displayName;
            last = config;
        };
        recorder.onLevelRefused = counting(refusals);
        recorder.start();
    }

    /// Plays "c co c -": what is held after each change of the modifiers. AltGr goes down with "G"
    /// and up with "g", of which what is held with it may be told: "G:c"; "E" and "e" are that key
    /// with AltGr in effect and without.
    void hold(const QString& script)
    {
        QString held;
        for (const QString& step : script.split(u' ')) {
            if (step.toLower().startsWith(u"g")) {
                const bool isTold = step.contains(u':');
                recorder.levelKeyChanged(step.startsWith(u"G"),
                                         flags(isTold ? step.section(u':', 1) : held));
            } else if (step.toLower() == u"e") {
                recorder.keyDown({.keyCode = 14,
                                  .modifierFlags = flags(held),
                                  .characters = u"e"_s,
                                  .choosesLevel = step == u"E"});
            } else {
                held = step;
                recorder.modifierFlagsChanged(flags(held));
            }
        }
    }
    bool press(quint16 keyCode, const QString& held, const QString& characters = {})
    {
        return recorder.keyDown({
            .keyCode = keyCode,
            .modifierFlags = flags(held) | capsLock,
            .characters = characters.isEmpty() ? std::nullopt : std::optional(characters),
        });
    }
    static quint64 flags(const QString& letters)
    {
        quint64 result = capsLock;
        result |= letters.contains(u's') ? ModifierFlags::shift : 0;
        result |= letters.contains(u'c') ? ModifierFlags::control : 0;
        result |= letters.contains(u'o') ? ModifierFlags::option : 0;
        result |= letters.contains(u'm') ? ModifierFlags::command : 0;
        return result;
    }

    HotKeyRecorder recorder;
    int refusals = 0;
    QStringList names;
    HotKeyConfig last;
};

} // namespace

class HotKeyTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void makeKeepsNoDeviceDependentFlags()
    {
        QCOMPARE(HotKeyConfig::make(0xC0101, std::nullopt), HotKeyConfig::defaultConfig());
        QCOMPARE(HotKeyConfig::defaultConfig().modifierFlagsRaw, quint64{0xC0000});
    }

    void jsonKeepsTheRecordAndItsName()
    {
        for (const HotKeyConfig& config : {
                 HotKeyConfig{0xC0000, std::nullopt, u"⌃⌥ (hold)"_s},
                 HotKeyConfig{0x100000, 0, u"\"\\\u2028 \u00e9😀"_s},
                 HotKeyConfig{~quint64{0xFFFF}, 65535, QString()},
                 HotKeyConfig{0x7FFFFFFFFFFF0000, 1, u"more than a double counts"_s},
             }) {
            QCOMPARE(HotKeyConfig::fromJson(config.toJson()), config);
            QCOMPARE(config.toJson().contains("keyCode"), config.keyCode.has_value());
        }
    }

    void jsonIsReadStrictly_data();

    void jsonIsReadStrictly()
    {
        const auto [json, accepted] = fetch<QByteArray, bool>();
        QCOMPARE(HotKeyConfig::fromJson(json).has_value(), accepted);
    }

    void modifiersAndAKeyAreCommittedAtThePress_data()
    {
        const Table<quint16, QString, QString, QString> row;
        row("space with all", 49, u"csom"_s, u" "_s, u"⌃⌥⇧⌘Space"_s);
        row("letter", 40, u"sm"_s, u"k"_s, u"⇧⌘K"_s);
        row("another layout's letter, code 0", 0, u"c"_s, u"ф"_s, u"⌃Ф"_s);
        row("longer in upper case", 27, u"c"_s, u"ß"_s, u"⌃SS"_s);
        row("no characters", 42, u"c"_s, {}, u"⌃Key42"_s);
        row("held escape", 53, u"c"_s, u"\u001b"_s, u"⌃Esc"_s);
        row("shift alone holds", 109, u"s"_s, {}, u"⇧F10"_s);
    }

    void modifiersAndAKeyAreCommittedAtThePress()
    {
        const auto [keyCode, held, characters, name] = fetch<quint16, QString, QString, QString>();
        Recorded recorded;
        recorded.hold(held);
        QVERIFY(recorded.press(keyCode, held, characters));
        QCOMPARE(recorded.names.join(u','), name);
        QCOMPARE(recorded.last.keyCode, keyCode);
        QCOMPARE(recorded.last.modifierFlagsRaw, Recorded::flags(held) & ModifierFlags::all);
        // The releases that follow belong to nothing.
        recorded.hold(u"-"_s);
        QVERIFY(!recorded.press(keyCode, held));
        QCOMPARE(recorded.names.size(), 1);
    }

    void modifiersAloneAreCommittedAtTheirPeakWhenAllAreReleased_data()
    {
        // What is held in turn; the shortcut, empty when none is committed; whether it goes on.
        const Table<QString, QString, bool> row;
        row("two", u"c co o -"_s, u"⌃⌥ (hold)"_s, false);
        row("two at once", u"sm -"_s, u"⇧⌘ (hold)"_s, false);
        row("the peak counts", u"c co com om m -"_s, u"⌃⌥⌘ (hold)"_s, false);
        row("the later of two equals", u"c co o om m -"_s, u"⌥⌘ (hold)"_s, false);
        row("still held", u"c co o"_s, {}, true);
        row("one cancels", u"s -"_s, {}, false);
        row("none", u"- -"_s, {}, true);
    }

    void modifiersAloneAreCommittedAtTheirPeakWhenAllAreReleased()
    {
        const auto [script, name, goesOn] = fetch<QString, QString, bool>();
        Recorded recorded;
        recorded.hold(script);
        QCOMPARE(recorded.names.join(u','), name);
        QCOMPARE(recorded.recorder.isRecording(), goesOn);
        QVERIFY(!recorded.last.keyCode);
    }

    void aGestureWithAltGrIsRefused_data()
    {
        // The gesture, how often it is refused, and the shortcut that comes of it.
        const Table<QString, int, QString> row;
        row("control, then AltGr", u"c G E g -"_s, 2, QString());
        row("AltGr latched before", u"c E -"_s, 1, QString());
        row("only in a chord's middle", u"c G co g o -"_s, 1, QString());
        row("held across a chord", u"G c co -"_s, 1, QString());
        row("the next chord", u"c G g - c co -"_s, 1, u"⌃⌥ (hold)"_s);
        row("alone, then a chord", u"G g c co -"_s, 1, u"⌃⌥ (hold)"_s);
        row("let go before the key", u"c G g e"_s, 1, u"⌃E"_s);
        row("with a bare key", u"G E g"_s, 2, QString());
        row("control told late", u"G:c E g:c c -"_s, 2, QString());
    }
    void aGestureWithAltGrIsRefused()
    {
        const auto [script, refusals, name] = fetch<QString, int, QString>();
        Recorded recorded;
        recorded.hold(script);
        QCOMPARE(recorded.refusals, refusals);
        QCOMPARE(recorded.names.join(u','), name);
        QCOMPARE(recorded.recorder.isRecording(), name.isEmpty());
    }

    void shortcutsThatCostTheUserSomethingAreWarnedOf_data()
    {
        // The modifiers, the key with what it types, and a word of the warning.
        const Table<quint64, quint16, QString, QString> row;
        using namespace ModifierFlags;
        row("copy", control, 8, u"c"_s, u"Control + C themselves to copy."_s);
        row("a letter of another layout", control, 8, u"с"_s, u"Control + С themselves."_s);
        row("words are moved by", control | shift, 123, {}, u"Control + Shift + ← themselves."_s);
        row("a menu", option, 3, u"f"_s, u"Alt + F themselves."_s);
        row("close", option, 118, {}, u"to close a window"_s);
        row("a capital", shift, 0, u"a"_s, u"Shift + A types a character."_s);
        row("a blank", shift, 49, u" "_s, u"types a character"_s);
        row("selects", shift, 126, {}, u"themselves"_s);
        row("control, space", control, 49, u" "_s, {});
        row("control, function key", control, 101, {}, {});
        row("shift, function key", shift, 101, {}, {});
        row("super", command, 8, u"c"_s, {});
        row("three", control | option, 8, u"c"_s, {});
        row("keypad", control, 83, u"1"_s, {});
    }
    void shortcutsThatCostTheUserSomethingAreWarnedOf()
    {
        const auto [modifiers, keyCode, characters, words]
            = fetch<quint64, quint16, QString, QString>();
        const auto typed = characters.isEmpty() ? std::nullopt : std::optional(characters);
        const auto warning = ShortcutWords::warning(HotKeyConfig::make(modifiers, keyCode, typed));
        QCOMPARE(warning.has_value(), !words.isEmpty());
        QVERIFY2(warning.value_or(QString()).contains(words), qPrintable(warning.value_or(u"-"_s)));
        QVERIFY(!ShortcutWords::warning(HotKeyConfig::make(modifiers, std::nullopt)));
    }

    void bareKeysAreSwallowedAndIgnored()
    {
        Recorded recorded;
        QVERIFY(recorded.press(0, u""_s, u"a"_s));
        QVERIFY(recorded.recorder.isRecording());
        QVERIFY(recorded.press(53, u""_s));
        QVERIFY(!recorded.recorder.isRecording());
        QVERIFY(recorded.names.isEmpty());
    }

    void aNewRecordingKnowsNothingOfTheLast()
    {
        Recorded recorded;
        QSignalSpy changes(&recorded.recorder, &HotKeyRecorder::isRecordingChanged);
        recorded.hold(u"c co com"_s);
        recorded.recorder.stop();
        recorded.hold(u"-"_s);
        QVERIFY(recorded.names.isEmpty());
        recorded.recorder.start();
        recorded.recorder.start();
        recorded.hold(u"c cs -"_s);
        QCOMPARE(recorded.names, QStringList{u"⌃⇧ (hold)"_s});
        QCOMPARE(changes.size(), 3);
    }
};

// Outside of the class: moc 6.4 loses its way in raw strings.
void HotKeyTest::jsonIsReadStrictly_data()
{
    const Table<QByteArray, bool> text;
    const auto row = [&text](const char* name, const QByteArray& members, bool accepted) {
        text(name, '{' + members + '}', accepted);
    };
    const QByteArray rest = R"(,"displayName":"x")";
    row("hold form", R"("modifierFlagsRaw":786432)" + rest, true);
    row("absent key code", R"("keyCode":null,"modifierFlagsRaw":786432)" + rest, true);
    row("no name", R"("modifierFlagsRaw":786432)", false);
    row("no flags", R"("displayName":"x")", false);
    row("name of another type", R"("modifierFlagsRaw":786432,"displayName":1)", false);
    row("flags as truth", R"("modifierFlagsRaw":true)" + rest, false);
    row("negative flags", R"("modifierFlagsRaw":-65536)" + rest, false);
    row("broken flags", R"("modifierFlagsRaw":786432.5)" + rest, false);
    row("flags beyond 64 bits", R"("modifierFlagsRaw":18446744073709551616)" + rest, false);
    row("key code too large", R"("keyCode":65536,"modifierFlagsRaw":786432)" + rest, false);
    text("nothing", {}, false);
    text("deep", QByteArray(60'000, '['), false);
    row("huge",
        R"("modifierFlagsRaw":786432,"displayName":")" + QByteArray(1 << 20, 'x') + '"',
        false);
}

QTEST_GUILESS_MAIN(HotKeyTest)
#include "HotKeyTest.moc"
