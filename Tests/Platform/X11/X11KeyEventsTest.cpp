// SPDX-License-Identifier: MIT
#include "TestClient.h"
#include <TavikLauncherPlatform/Linux/X11/X11KeyEvents.h>
#include <TavikLauncherPlatform/QtMainQueue.h>

#include <QKeyEvent>
#include <QProcess>
#include <QTest>
#include <QThread>
#include <QWindow>

#include <Support/Counting.h>
#include <Support/FakeKeyEvents.h>
#include <array>

namespace Tavik {

namespace {

using namespace Test;

constexpr xcb_keycode_t super = 133;
constexpr xcb_keycode_t numLock = 77;
constexpr xcb_keycode_t letterA = 38;

/// A window that nobody manages, and what is typed into it.
class Typed final : public QWindow
{
public:
    Typed()
    {
        setFlag(Qt::BypassWindowManagerHint);
        resize(100, 100);
        create();
    }
    [[nodiscard]] xcb_window_t id() const { return static_cast<xcb_window_t>(winId()); }

    QList<int> keys;

protected:
    void keyPressEvent(QKeyEvent* event) override { keys << event->key(); }
};

} // namespace

class X11KeyEventsTest : public QObject
{
    Q_OBJECT

private:
    TestClient m_client;
    QtMainQueue m_queue;
    FakeAccessibilityPermission m_permission;
    X11KeyEvents m_events{
        {.toolkit = toolkitConnection(), .mainQueue = m_queue, .permission = m_permission}};

    KeyEvents::HotKeyResult registerKey(quint64 flags, std::function<void(double)> pressed)
    {
        return m_events.registerHotKey({f9, flags}, {.pressed = std::move(pressed)});
    }
    /// Each press is told in `m_presses`.
    KeyEvents::HotKeyResult registerKey(quint64 flags = 0)
    {
        return registerKey(flags, [this](double time) { m_presses << time; });
    }

    /// "+38 -38": a key goes down and up, as fast as the server takes it.
    void play(const QString& script)
    {
        for (const QString& step : script.split(u' ')) {
            const auto key = static_cast<xcb_keycode_t>(step.mid(1).toInt());
            step.startsWith(u'+') ? m_client.pressKey(key) : m_client.releaseKey(key);
        }
    }

    QList<double> m_presses; ///< The time of each.

private Q_SLOTS:
    void init() { m_presses.clear(); }

    void pressIsReportedAtItsTimeWithAnyLocks()
    {
        const auto result = registerKey(ModifierFlags::control);
        QCOMPARE(result.status, 0);
        // Toggled in turn: none, caps, both, num alone.
        for (const xcb_keycode_t lock : {xcb_keycode_t{}, capsLock, numLock, capsLock}) {
            if (lock != 0) {
                m_client.tapKey(lock);
            }
            m_presses.clear();
            const double before = m_queue.systemUptime();
            m_client.pressKey(control);
            play(u"+75 -75 +75 -75 +75 -75"_qs); // Most of it in one millisecond.
            m_client.releaseKey(control);
            QTRY_COMPARE(m_presses.size(), 3);
            QVERIFY(m_presses.first() > before - 0.05);
            QVERIFY(m_presses.last() <= m_queue.systemUptime());
        }
        m_client.tapKey(numLock);
    }

    void latchedAndLockedLevelsMakeNoDifference()
    {
        QCOMPARE(QProcess::execute(u"xmodmap"_qs, {u"-e"_qs, u"add mod3 = Scroll_Lock"_qs}), 0);
        QTest::qWait(400); // The map settles.
        const auto result = registerKey(ModifierFlags::control);
        // Every set of what is neither Shift, Control, Alt nor Super.
        constexpr quint8 others
            = XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2 | XCB_MOD_MASK_3 | XCB_MOD_MASK_5;
        quint8 locked = 0;
        int expected = 0;
        do {
            m_client.lockModifiers(others, locked);
            m_client.pressKey(control);
            m_client.tapKey(f9Key);
            m_client.releaseKey(control);
            ++expected;
            QTRY_COMPARE(m_presses.size(), expected);
            locked = static_cast<quint8>((locked - others) & others);
        } while (locked != 0);
        m_client.lockModifiers(others, 0);
    }

    void onlyTheExactModifiersCount()
    {
        int controlled = 0;
        const auto first = registerKey();
        const auto second = registerKey(ModifierFlags::control, counting(controlled));
        QVERIFY(first.registration && second.registration);
        m_client.pressKey(control);
        m_client.tapKey(f9Key);
        m_client.pressKey(shift);
        m_client.tapKey(f9Key);
        m_client.releaseKey(shift);
        m_client.releaseKey(control);
        QTRY_COMPARE(controlled, 1);
        settle();
        QCOMPARE(controlled, 1);
        QCOMPARE(m_presses.size(), 0);
        m_client.tapKey(f9Key);
        QTRY_COMPARE(m_presses.size(), 1);
    }

    void keysThatFollowWaitForThePressToBeAnswered()
    {
        Typed window;
        const auto result = registerKey(0, [&](double) {
            window.show();
            xcb_set_input_focus(
                toolkitConnection(), XCB_INPUT_FOCUS_POINTER_ROOT, window.id(), XCB_CURRENT_TIME);
            xcb_flush(toolkitConnection());
        });
        QVERIFY(result.registration);
        // With no pause, and with the hot key still down when the next key comes.
        for (const QString& script : {u"+75 -75 +38 -38 +56 -56"_qs,
                                      u"+75 +38 -38 +56 -56 -75"_qs,
                                      u"+75 -75 +38 +56 -38 -56"_qs}) {
            window.keys.clear();
            play(script);
            QTRY_COMPARE(window.keys, QList<int>({Qt::Key_A, Qt::Key_B}));
            window.hide();
        }
    }

    void keysGoOnWhenNobodyAnswers()
    {
        TestClient other;
        const xcb_window_t window = other.createWindow(QByteArrayLiteral("other\0Other\0"));
        const std::array<uint32_t, 2> values{1, XCB_EVENT_MASK_KEY_PRESS};
        xcb_change_window_attributes(other.connection(),
                                     window,
                                     XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK,
                                     values.data());
        other.map(window);
        xcb_set_input_focus(
            other.connection(), XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
        other.sync();
        const auto hasKey = [&other] {
            return X11Reply<xcb_generic_event_t>(xcb_poll_for_event(other.connection())) != nullptr;
        };
        bool wasHeld = false;
        bool wentOn = false;
        const auto result = registerKey(0, [&](double) {
            QThread::msleep(100);
            wasHeld = !hasKey();
            QThread::msleep(250);
            wentOn = hasKey();
        });
        play(u"+75 -75 +38 -38"_qs);
        QTRY_VERIFY(wentOn);
        QVERIFY(wasHeld);
        QVERIFY2(m_client.grabKey(0, letterA), "and nothing of it is left");
        m_client.ungrabKey(0, letterA);
    }

    void whatAnotherProgramMakesUpPressesNothing()
    {
        const auto result = registerKey();
        xcb_key_press_event_t event{};
        event.response_type = XCB_KEY_PRESS;
        event.detail = f9Key;
        event.root = event.event = m_client.root();
        xcb_send_event(m_client.connection(),
                       0,
                       m_client.root(),
                       XCB_EVENT_MASK_NO_EVENT,
                       reinterpret_cast<const char*>(&event));
        m_client.sync();
        settle();
        QCOMPARE(m_presses.size(), 0);
    }

    void heldKeyIsReportedOnce()
    {
        QCOMPARE(QProcess::execute(u"xset"_qs, {u"r"_qs, u"rate"_qs, u"100"_qs, u"50"_qs}), 0);
        const auto result = registerKey();
        QVERIFY(result.registration);
        m_client.pressKey(f9Key);
        QTest::qWait(500);
        m_client.releaseKey(f9Key);
        settle();
        QCOMPARE(m_presses.size(), 1);
        m_client.tapKey(f9Key);
        QTRY_COMPARE(m_presses.size(), 2);
    }

    void keyOfAnotherProgramIsRefusedAndNothingIsKept()
    {
        constexpr uint16_t lockedControl = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_LOCK;
        QVERIFY(m_client.grabKey(lockedControl, f9Key));
        const auto result = registerKey(ModifierFlags::control);
        QVERIFY(!result.registration);
        QCOMPARE(result.status, int{XCB_ACCESS});
        QTRY_VERIFY(m_client.grabKey(XCB_MOD_MASK_CONTROL, f9Key));
        m_client.ungrabKey(XCB_MOD_MASK_CONTROL, f9Key);
        m_client.ungrabKey(lockedControl, f9Key);
    }

    void registrationGivesTheKeyBackEvenInsideItsOwnPress()
    {
        auto events = std::make_unique<X11KeyEvents>(X11KeyEvents::Dependencies{
            .toolkit = toolkitConnection(), .mainQueue = m_queue, .permission = m_permission});
        const KeyEvents::HotKey hotKey{.keyCode = f9, .modifierFlags = 0};
        KeyEvents::HotKeyResult result;
        int presses = 0;
        result = events->registerHotKey(hotKey, {.pressed = [&](double) {
                                            ++presses;
                                            result.registration.reset();
                                        }});
        m_client.tapKey(f9Key);
        m_client.tapKey(f9Key);
        QTRY_COMPARE(presses, 1);
        QTRY_VERIFY(m_client.grabKey(0, f9Key));
        m_client.ungrabKey(0, f9Key);
        settle();
        QCOMPARE(presses, 1);
        result = events->registerHotKey(hotKey, {.pressed = counting(presses)});
        m_client.tapKey(f9Key);
        QTRY_COMPARE(presses, 2);
        events.reset();
        QTRY_VERIFY(m_client.grabKey(0, f9Key));
        m_client.ungrabKey(0, f9Key);
    }

    void trialOfAHotKeyLeavesNothingBehind()
    {
        const KeyEvents::HotKey hotKey{.keyCode = f9, .modifierFlags = ModifierFlags::control};
        QCOMPARE(m_events.hotKeyStatus(hotKey), 0);
        QTRY_VERIFY(m_client.grabKey(XCB_MOD_MASK_CONTROL, f9Key));
        QCOMPARE(m_events.hotKeyStatus(hotKey), int{XCB_ACCESS});
        m_client.ungrabKey(XCB_MOD_MASK_CONTROL, f9Key);
        const auto held = m_events.registerHotKey(hotKey, {.pressed = [](double) {
                                                  }});
        QCOMPARE(m_events.hotKeyStatus(hotKey), 0);
        QVERIFY2(!m_client.grabKey(XCB_MOD_MASK_CONTROL, f9Key), "it is still ours");
    }

    void impossibleKeysAreRefused()
    {
        constexpr quint16 yen = 93; // Of Japanese keyboards.
        for (const quint16 key : {quint16{52}, quint16{0xffff}, yen}) {
            QVERIFY(m_events.registerHotKey({key}, {}).status != 0);
        }
        const auto result = registerKey();
        QCOMPARE(registerKey().status, int{XCB_ACCESS});
    }

    void keyFollowsAChangedModifierMap()
    {
        const auto result = registerKey(ModifierFlags::command);
        QVERIFY(result.registration);
        const QString moved = u"-e|clear mod4|-e|clear mod3|-e|add mod3 = Super_L Super_R"_qs;
        QCOMPARE(QProcess::execute(u"xmodmap"_qs, moved.split(u'|')), 0);
        QTRY_VERIFY_WITH_TIMEOUT(!m_client.grabKey(XCB_MOD_MASK_3, f9Key)
                                     || (m_client.ungrabKey(XCB_MOD_MASK_3, f9Key), false),
                                 3000);
        m_client.pressKey(super);
        m_client.tapKey(f9Key);
        m_client.releaseKey(super);
        QTRY_COMPARE(m_presses.size(), 1);
    }
};

} // namespace Tavik

QTEST_MAIN(Tavik::X11KeyEventsTest)
#include "X11KeyEventsTest.moc"
