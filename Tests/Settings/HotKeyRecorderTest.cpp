// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/HotKeyRecorder.h>
#include <TavikLauncherPlatform/KeyEvents.h>

#include <QSignalSpy>
#include <QTest>

using namespace Tavik;
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
        recorder.start();
    }

    /// Plays "c co c -": what is held after each change of the modifiers.
    void hold(const QString& script)
    {
        for (const QString& step : script.split(u' ')) {
            recorder.modifierFlagsChanged(flags(step));
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
    QStringList names;
    HotKeyConfig last;
};

} // namespace

class HotKeyRecorderTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void modifiersAndAKeyAreCommittedAtThePress_data()
    {
        QTest::addColumn<quint16>("keyCode");
        QTest::addColumn<QString>("held");
        QTest::addColumn<QString>("characters");
        QTest::addColumn<QString>("name");
        QTest::newRow("space") << quint16{49} << u"co"_s << u" "_s << u"⌃⌥Space"_s;
        QTest::newRow("letter") << quint16{40} << u"sm"_s << u"k"_s << u"⇧⌘K"_s;
        QTest::newRow("another layout's letter") << quint16{0} << u"c"_s << u"ф"_s << u"⌃Ф"_s;
        QTest::newRow("no characters") << quint16{42} << u"c"_s << QString() << u"⌃Key42"_s;
        QTest::newRow("held escape") << quint16{53} << u"c"_s << QString() << u"⌃Esc"_s;
        QTest::newRow("shift alone holds") << quint16{122} << u"s"_s << QString() << u"⇧F1"_s;
    }

    void modifiersAndAKeyAreCommittedAtThePress()
    {
        QFETCH(const quint16, keyCode);
        QFETCH(const QString, held);
        QFETCH(const QString, characters);
        Recorded recorded;
        recorded.hold(held);
        QVERIFY(recorded.press(keyCode, held, characters));
        QTEST(recorded.names.join(u','), "name");
        QCOMPARE(recorded.last.keyCode, keyCode);
        QCOMPARE(recorded.last.modifierFlagsRaw, Recorded::flags(held) & ModifierFlags::all);
        // The releases that follow belong to nothing.
        recorded.hold(u"-"_s);
        QVERIFY(!recorded.press(keyCode, held));
        QCOMPARE(recorded.names.size(), 1);
    }

    void modifiersAloneAreCommittedAtTheirPeakWhenAllAreReleased_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("name"); // Empty: nothing is committed.
        QTest::addColumn<bool>("goesOn");
        QTest::newRow("two") << u"c co o -"_s << u"⌃⌥ (hold)"_s << false;
        QTest::newRow("two at once") << u"sm -"_s << u"⇧⌘ (hold)"_s << false;
        QTest::newRow("the peak counts") << u"c co com om m -"_s << u"⌃⌥⌘ (hold)"_s << false;
        QTest::newRow("the later of two equals") << u"c co o om m -"_s << u"⌥⌘ (hold)"_s << false;
        QTest::newRow("all four") << u"c cs cso csom -"_s << u"⌃⌥⇧⌘ (hold)"_s << false;
        QTest::newRow("still held") << u"c co o"_s << QString() << true;
        QTest::newRow("one cancels") << u"s -"_s << QString() << false;
        QTest::newRow("one after another cancels") << u"s c -"_s << QString() << false;
        QTest::newRow("none") << u"- -"_s << QString() << true;
    }

    void modifiersAloneAreCommittedAtTheirPeakWhenAllAreReleased()
    {
        QFETCH(const QString, script);
        Recorded recorded;
        recorded.hold(script);
        QTEST(recorded.names.join(u','), "name");
        QTEST(recorded.recorder.isRecording(), "goesOn");
        QVERIFY(!recorded.last.keyCode);
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

    void ownerMayRecordAgainAtOnce()
    {
        Recorded recorded;
        recorded.recorder.onCommit = [&](const HotKeyConfig& config) {
            recorded.names << config.displayName;
            recorded.recorder.start();
        };
        recorded.press(49, u"c"_s);
        recorded.press(49, u"o"_s);
        QCOMPARE(recorded.names, QStringList({u"⌃Space"_s, u"⌥Space"_s}));
    }
};

QTEST_GUILESS_MAIN(HotKeyRecorderTest)
#include "HotKeyRecorderTest.moc"
