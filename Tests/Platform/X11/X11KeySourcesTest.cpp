// SPDX-License-Identifier: MIT
#include "TestClient.h"
#include <TavikLauncherPlatform/Linux/X11/X11EventTap.h>
#include <TavikLauncherPlatform/Linux/X11/X11KeyEvents.h>
#include <TavikLauncherPlatform/QtMainQueue.h>

#include <QProcess>
#include <QTest>
#include <QWindow>

#include <Support/FakeKeyEvents.h>

namespace Tavik {
namespace {
using namespace Test;
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
    X11KeyEvents m_events{toolkitConnection(), m_queue, m_permission};

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
            QTRY_COMPARE(tapped.flags, expected);
            QTRY_COMPARE(monitored.flags, expected);
            for (const Heard* heard : {&tapped, &monitored}) {
                QVERIFY(std::ranges::is_sorted(heard->times));
                QVERIFY(heard->times.first() > before - 0.05);
                QVERIFY(heard->times.last() <= m_queue.systemUptime());
            }
        }
    }

    void theOtherKeyOfAPairKeepsTheModifierAndOtherKeysAreNobodysBusiness()
    {
        Heard tapped;
        const auto recording = tap(tapped);
        m_client.tapKey(capsLock);
        m_client.tapKey(letterA);
        m_client.pressKey(control);
        m_client.pressKey(rightControl);
        m_client.releaseKey(control);
        QCOMPARE(m_events.heldModifiers(), controlFlag);
        m_client.releaseKey(rightControl);
        QCOMPARE(m_events.heldModifiers(), quint64{0});
        const QList<quint64> expected{controlFlag, controlFlag, controlFlag, 0};
        QTRY_COMPARE(tapped.flags, expected);
        m_client.tapKey(capsLock);
        settle();
        QCOMPARE(tapped.flags, expected);
    }

    void tapTellsKeysOnceAndTheirRepetitionsAsSuch()
    {
        QCOMPARE(QProcess::execute(u"xset"_qs, {u"r"_qs, u"rate"_qs, u"100"_qs, u"50"_qs}), 0);
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
        int focusChanges = 0;
        const auto focus = m_events.addFocusMonitor([&focusChanges] { ++focusChanges; });
        QVERIFY(activate(window));
        QVERIFY(focusChanges > 0);
        Heard tapped;
        const auto recording = tap(tapped);
        m_client.pressKey(rightControl);
        playChord();
        m_client.releaseKey(rightControl);
        QTRY_COMPARE(
            heard.flags,
            QList<quint64>({controlFlag, controlFlag, chordFlags, controlFlag, controlFlag, 0}));
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
