// SPDX-License-Identifier: MIT
#include "TestClient.h"
#include <TavikLauncherPlatform/Linux/X11/X11EventTap.h>
#include <TavikLauncherPlatform/Linux/X11/X11KeyEvents.h>
#include <TavikLauncherPlatform/QtMainQueue.h>

#include <QProcess>
#include <QTest>
#include <QWindow>

#include <Support/FakeKeyEvents.h>
#include <Support/Table.h>

namespace Tavik {
namespace {
using namespace Test;
using namespace Qt::StringLiterals;
using Kind = KeyEvents::Kind;

constexpr xcb_keycode_t rightControl = 105;
constexpr xcb_keycode_t alt = 64;
constexpr xcb_keycode_t letterA = 38;
constexpr quint64 controlFlag = ModifierFlags::control;
constexpr quint64 chordFlags = ModifierFlags::control | ModifierFlags::option;

/// What a source told, as flags in the order of the events.
struct Heard
{
    QList<quint64> flags;
    QList<double> times;
    QList<quint16> keys;
    int repeats = 0;

    void operator()(const KeyEvents::Event& event)
    {
        flags << event.modifierFlags;
        times << event.time;
        keys << event.keyCode;
        repeats += event.isRepeat ? 1 : 0;
    }
};

/// Without what was told again.
QList<quint64> changes(QList<quint64> told)
{
    const auto same = std::ranges::unique(told);
    told.erase(same.begin(), same.end());
    return told;
}

class Window final : public QWindow
{
public:
    QList<int> keys;

protected:
    void keyPressEvent(QKeyEvent* event) override { keys << event->key(); }
};

} // namespace

class X11KeySourcesTest : public QObject
{
    Q_OBJECT

private:
    TestClient m_client;
    QtMainQueue m_queue;
    FakeAccessibilityPermission m_permission;
    QList<xcb_keycode_t> m_ringsKeys;
    X11KeyEvents m_events{{.toolkit = toolkitConnection(),
                           .mainQueue = m_queue,
                           .permission = m_permission,
                           .ringGotKey = [this](xcb_keycode_t key, xcb_timestamp_t) {
                               return m_ringsKeys.contains(key);
                           }}};

    std::unique_ptr<EventTap> tap(Heard& heard, Kind kind = Kind::modifiersChanged)
    {
        auto made = m_events.createEventTap(
            kind, [&heard](const KeyEvents::Event& event) { heard(event); }, [this] { ++m_ends; });
        awaitRecording(*made);
        return made;
    }
    void awaitRecording(const EventTap& tap)
    {
        QTRY_VERIFY(m_client.isRecording(static_cast<const X11EventTap&>(tap).context()));
    }
    std::unique_ptr<KeyMonitor> globalMonitor(Heard& heard)
    {
        return m_events.addGlobalMonitor(Kind::modifiersChanged,
                                         [&heard](const KeyEvents::Event& event) { heard(event); });
    }
    /// Shows the window and waits until keys reach it; the last of these may come a little later.
    [[nodiscard]] bool activate(Window& window)
    {
        window.resize(100, 100);
        window.show();
        window.requestActivate();
        return QTest::qWaitFor([&] {
            m_client.tapKey(letterA);
            return !window.keys.isEmpty();
        });
    }
    void playChord()
    {
        m_client.pressKey(control);
        m_client.pressKey(alt);
        m_client.releaseKey(alt);
        m_client.releaseKey(control);
    }

    int m_ends = 0;

private Q_SLOTS:
    void tapAndMonitorTellTheStateAfterEachEventAndItsTimeThroughAGrabToo()
    {
        for (const bool isGrabbed : {false, true}) {
            Heard tapped;
            Heard monitored;
            const auto recording = tap(tapped);
            const auto monitor = globalMonitor(monitored);
            if (isGrabbed) {
                xcb_grab_keyboard(m_client.connection(),
                                  0,
                                  m_client.root(),
                                  XCB_CURRENT_TIME,
                                  XCB_GRAB_MODE_ASYNC,
                                  XCB_GRAB_MODE_ASYNC);
                m_client.sync();
            }
            const double before = m_queue.systemUptime();
            playChord();
            xcb_ungrab_keyboard(m_client.connection(), XCB_CURRENT_TIME);
            m_client.sync();
            const QList<quint64> expected{controlFlag, chordFlags, controlFlag, 0};
            QTRY_COMPARE(monitored.flags, expected);
            // A tap asks, and may find that more has happened meanwhile.
            QTRY_COMPARE(tapped.flags.size(), expected.size());
            QCOMPARE(tapped.flags.last(), quint64{0});
            for (const Heard* heard : {&tapped, &monitored}) {
                QVERIFY(std::ranges::is_sorted(heard->times));
                QVERIFY(heard->times.first() > before - 0.05);
                QVERIFY(heard->times.last() <= m_queue.systemUptime());
            }
        }
    }

    void whatTheServerCountsIsTold_data()
    {
        // Options of the layout, keys, and flags.
        const Table<QString, QString, QList<quint64>> row;
        const quint64 both = chordFlags;
        const quint64 option = ModifierFlags::option;
        row("one key of a pair let go", {}, u"+37 +105 -37 -105"_s, {controlFlag, 0});
        row("both Alts", {}, u"+37 +64 +108 -64 -108 -37"_s, {controlFlag, both, controlFlag, 0});
        row("an ordinary key", {}, u"+38 -38 +66 -66 +66 -66"_s, {});
        row("the layout's pair", u"grp:ctrl_alt_toggle"_s, u"+37 +64 -64 -37"_s, {controlFlag, 0});
        row("the other way round", u"grp:ctrl_alt_toggle"_s, u"+64 +37 -37 -64"_s, {option, 0});
        row("the left pair", u"grp:lctrl_lalt_toggle"_s, u"+37 +64 -64 -37"_s, {controlFlag, 0});
        row("the left Alt", u"grp:lalt_toggle"_s, u"+37 +64 -64 -37"_s, {controlFlag, 0});
        row("the third level", u"lv3:ralt_switch"_s, u"+37 +108 -108 -37"_s, {controlFlag, 0});
    }
    void whatTheServerCountsIsTold()
    {
        const auto [option, keys, expected] = fetch<QString, QString, QList<quint64>>();
        const auto layout = [](const QString& options) {
            QProcess::execute(
                u"setxkbmap"_s,
                {u"-layout"_s, u"us,ru"_s, u"-option"_s, QString(), u"-option"_s, options});
            QTest::qWait(300); // The map settles.
        };
        layout(option);
        Heard tapped;
        Heard monitored;
        const auto recording = tap(tapped);
        const auto monitor = globalMonitor(monitored);
        for (const QString& key : keys.split(u' ')) {
            const auto code = static_cast<xcb_keycode_t>(key.mid(1).toInt());
            key.startsWith(u'+') ? m_client.pressKey(code) : m_client.releaseKey(code);
            settle();
        }
        layout({});
        // Told again and again, it is one state all the same.
        for (const Heard& heard : {tapped, monitored}) {
            QCOMPARE(changes(QList<quint64>{0} + heard.flags).sliced(1), expected);
        }
    }

    void stickyKeysHoldWhatIsNotHeld()
    {
        Heard monitored;
        const auto monitor = globalMonitor(monitored);
        QCOMPARE(QProcess::execute(u"xkbset"_s, {u"accessx"_s, u"sticky"_s}), 0);
        m_client.tapKey(control);
        m_client.tapKey(alt);
        QTRY_VERIFY(monitored.flags.contains(chordFlags));
        QCOMPARE(m_events.heldModifiers(), chordFlags);
        m_client.tapKey(letterA);
        QTRY_COMPARE(monitored.flags.last(), quint64{0});
        QCOMPARE(QProcess::execute(u"xkbset"_s, {u"-accessx"_s, u"-sticky"_s}), 0);
    }

    void keysOfOthersAreToldWithModifiersHeldAndOnlyThen()
    {
        int taken = 0;
        const auto recording = m_events.createEventTap(
            Kind::modifiersChanged,
            [&](const KeyEvents::Event& event) {
                taken += event.kind == Kind::takenElsewhere ? 1 : 0;
                QCOMPARE(event.keyCode, quint16{0});
            },
            [] {});
        awaitRecording(*recording);
        const auto press = [this] {
            m_client.tapKey(letterA);
            settle();
        };
        press();
        m_client.pressKey(control);
        press();
        m_client.pressKey(alt);
        settle();
        QCOMPARE(taken, 0);
        press();
        QCOMPARE(taken, 1);
        m_ringsKeys = {letterA};
        press();
        QCOMPARE(taken, 1);
        m_ringsKeys.clear();
        m_client.releaseKey(alt);
        m_client.releaseKey(control);
    }

    /// As a server for another window system does at each change of the focus.
    void keysThatAreToldAgainWereNeverLetGo()
    {
        X11KeyEvents retelling({.toolkit = toolkitConnection(),
                                .mainQueue = m_queue,
                                .permission = m_permission,
                                .isXwayland = true});
        QList<quint64> told;
        const auto monitor = retelling.addGlobalMonitor(
            Kind::modifiersChanged,
            [&](const KeyEvents::Event& event) { told << event.modifierFlags; });
        const auto retell = [this] {
            m_client.releaseKey(control);
            m_client.releaseKey(alt);
            m_client.pressKey(control);
            m_client.pressKey(alt);
        };
        m_client.pressKey(control);
        m_client.pressKey(alt);
        for (int times = 0; times < 20; ++times) {
            retell();
            QTest::qWait(times);
            QVERIFY(retelling.heldModifiers() == chordFlags);
        }
        m_client.releaseKey(alt);
        m_client.releaseKey(control);
        QTRY_COMPARE(told.last(), quint64{0});
        QCOMPARE(changes(told), QList<quint64>({controlFlag, chordFlags, 0}));
    }

    void tapTellsKeysOnceAndTheirRepetitionsAsSuch()
    {
        QCOMPARE(QProcess::execute(u"xset"_s, {u"r"_s, u"rate"_s, u"100"_s, u"50"_s}), 0);
        Heard tapped;
        const auto recording = tap(tapped, Kind::keyDown);
        m_client.pressKey(control);
        m_client.pressKey(f9Key);
        QTest::qWait(400);
        m_client.releaseKey(f9Key);
        m_client.releaseKey(control);
        QTRY_VERIFY(!tapped.keys.isEmpty());
        QCOMPARE(tapped.keys.first(), f9);
        QCOMPARE(tapped.flags.first(), controlFlag);
        QCOMPARE(tapped.repeats, tapped.keys.size() - 1);
    }

    void tapThatIsDisabledOrLostSaysSoAndCanBeEnabledAgain()
    {
        for (const auto end : {xcb_record_disable_context, xcb_kill_client}) {
            Heard tapped;
            m_ends = 0;
            const auto recording = tap(tapped);
            end(m_client.connection(), static_cast<X11EventTap&>(*recording).context());
            m_client.sync();
            QTRY_COMPARE(m_ends, 1);
            QVERIFY(!recording->isEnabled());
            playChord();
            settle();
            QCOMPARE(tapped.flags.size(), 0);
            QVERIFY(recording->enable());
            awaitRecording(*recording);
            playChord();
            QTRY_COMPARE(tapped.flags.size(), 4);
            QVERIFY(recording->isEnabled());
        }
    }

    void endedSourcesTellNothingMoreAlsoFromInsideTheirOwnHandler()
    {
        std::unique_ptr<EventTap> recording;
        std::unique_ptr<KeyMonitor> monitor;
        int calls = 0;
        recording = m_events.createEventTap(
            Kind::modifiersChanged,
            [&](const KeyEvents::Event&) {
                ++calls;
                recording.reset();
            },
            [] {});
        monitor = m_events.addGlobalMonitor(Kind::modifiersChanged, [&](const KeyEvents::Event&) {
            ++calls;
            monitor.reset();
        });
        awaitRecording(*recording);
        playChord();
        QTRY_COMPARE(calls, 2);
        playChord();
        settle();
        QCOMPARE(calls, 2);
    }

    void localMonitorHearsOurWindowsOnlyAndCanSwallow()
    {
        Heard heard;
        bool swallows = false;
        const auto modifiers
            = m_events.addLocalMonitor(Kind::modifiersChanged, [&](const KeyEvents::Event& event) {
                  heard(event);
                  return false;
              });
        const auto keys
            = m_events.addLocalMonitor(Kind::keyDown, [&](const KeyEvents::Event& event) {
                  return swallows && event.keyCode == f9;
              });
        Window window;
        playChord();
        settle();
        QCOMPARE(heard.flags.size(), 0);
        QVERIFY(activate(window));
        Heard tapped;
        const auto recording = tap(tapped);
        m_client.pressKey(rightControl);
        playChord();
        m_client.releaseKey(rightControl);
        QTRY_COMPARE(heard.flags.size(), 6);
        QCOMPARE(heard.flags.last(), quint64{0});
        QTRY_COMPARE(tapped.times, heard.times);
        window.keys.clear();
        m_client.tapKey(f9Key);
        QTRY_COMPARE(window.keys, QList<int>{Qt::Key_F9});
        swallows = true;
        m_client.tapKey(f9Key);
        m_client.tapKey(letterA);
        QTRY_COMPARE(window.keys, QList<int>({Qt::Key_F9, Qt::Key_A}));
    }
};

} // namespace Tavik

QTEST_MAIN(Tavik::X11KeySourcesTest)
#include "X11KeySourcesTest.moc"
