// SPDX-License-Identifier: MIT
#include "TestClient.h"
#include <TavikLauncherPlatform/Linux/X11/X11KeyEvents.h>
#include <TavikLauncherPlatform/QtMainQueue.h>

#include <QProcess>
#include <QTest>

#include <Support/FakeKeyEvents.h>

namespace Tavik {

namespace {

using namespace Test;

constexpr xcb_keycode_t super = 133;
constexpr xcb_keycode_t numLock = 77;

} // namespace

class X11KeyEventsTest : public QObject
{
    Q_OBJECT

private:
    TestClient m_client;
    QtMainQueue m_queue;
    FakeAccessibilityPermission m_permission;
    X11KeyEvents m_events{toolkitConnection(), m_queue, m_permission};

    KeyEvents::HotKeyResult registerKey(quint64 flags, QList<double>& presses)
    {
        return m_events.registerHotKey({.keyCode = f9, .modifierFlags = flags},
                                       [&presses](double time) { presses.append(time); });
    }

private Q_SLOTS:
    void pressIsReportedAtItsTimeWithAnyLocks()
    {
        QList<double> presses;
        const auto result = registerKey(ModifierFlags::control, presses);
        QCOMPARE(result.status, 0);
        // Toggled in turn: none, caps, both, num alone.
        for (const xcb_keycode_t lock : {xcb_keycode_t{}, capsLock, numLock, capsLock}) {
            if (lock != 0) {
                m_client.tapKey(lock);
            }
            presses.clear();
            const double before = m_queue.systemUptime();
            m_client.pressKey(control);
            m_client.tapKey(f9Key);
            m_client.tapKey(f9Key);
            m_client.releaseKey(control);
            QTRY_COMPARE(presses.size(), 2);
            QVERIFY(presses.first() > before - 0.05);
            QVERIFY(presses.last() <= m_queue.systemUptime());
        }
        m_client.tapKey(numLock);
    }

    void onlyTheExactModifiersCount()
    {
        QList<double> plain;
        QList<double> controlled;
        const auto first = registerKey(0, plain);
        const auto second = registerKey(ModifierFlags::control, controlled);
        QVERIFY(first.registration && second.registration);
        m_client.pressKey(control);
        m_client.tapKey(f9Key);
        m_client.pressKey(shift);
        m_client.tapKey(f9Key);
        m_client.releaseKey(shift);
        m_client.releaseKey(control);
        QTRY_COMPARE(controlled.size(), 1);
        settle();
        QCOMPARE(controlled.size(), 1);
        QCOMPARE(plain.size(), 0);
        m_client.tapKey(f9Key);
        QTRY_COMPARE(plain.size(), 1);
    }

    void heldKeyIsReportedOnce()
    {
        QCOMPARE(QProcess::execute(u"xset"_qs, {u"r"_qs, u"rate"_qs, u"100"_qs, u"50"_qs}), 0);
        QList<double> presses;
        const auto result = registerKey(0, presses);
        QVERIFY(result.registration);
        m_client.pressKey(f9Key);
        QTest::qWait(500);
        m_client.releaseKey(f9Key);
        settle();
        QCOMPARE(presses.size(), 1);
        m_client.tapKey(f9Key);
        QTRY_COMPARE(presses.size(), 2);
    }

    void keyOfAnotherProgramIsRefusedAndNothingIsKept()
    {
        constexpr uint16_t lockedControl = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_LOCK;
        QVERIFY(m_client.grabKey(lockedControl, f9Key));
        QList<double> presses;
        const auto result = registerKey(ModifierFlags::control, presses);
        QVERIFY(!result.registration);
        QCOMPARE(result.status, int{XCB_ACCESS});
        QTRY_VERIFY(m_client.grabKey(XCB_MOD_MASK_CONTROL, f9Key));
        m_client.ungrabKey(XCB_MOD_MASK_CONTROL, f9Key);
        m_client.ungrabKey(lockedControl, f9Key);
    }

    void registrationGivesTheKeyBackEvenInsideItsOwnPress()
    {
        auto events = std::make_unique<X11KeyEvents>(toolkitConnection(), m_queue, m_permission);
        const KeyEvents::HotKey hotKey{.keyCode = f9, .modifierFlags = 0};
        KeyEvents::HotKeyResult result;
        int presses = 0;
        result = events->registerHotKey(hotKey, [&](double) {
            ++presses;
            result.registration.reset();
        });
        m_client.tapKey(f9Key);
        m_client.tapKey(f9Key);
        QTRY_COMPARE(presses, 1);
        QTRY_VERIFY(m_client.grabKey(0, f9Key));
        m_client.ungrabKey(0, f9Key);
        settle();
        QCOMPARE(presses, 1);
        result = events->registerHotKey(hotKey, [&presses](double) { ++presses; });
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
        const auto held = m_events.registerHotKey(hotKey, [](double) {});
        QCOMPARE(m_events.hotKeyStatus(hotKey), 0);
        QVERIFY2(!m_client.grabKey(XCB_MOD_MASK_CONTROL, f9Key), "it is still ours");
    }

    void impossibleKeysAreRefused()
    {
        constexpr quint16 yen = 93; // Of Japanese keyboards.
        for (const quint16 key : {quint16{52}, quint16{0xffff}, yen}) {
            QVERIFY(m_events.registerHotKey({.keyCode = key, .modifierFlags = 0}, {}).status != 0);
        }
        QList<double> presses;
        const auto result = registerKey(0, presses);
        QCOMPARE(registerKey(0, presses).status, int{XCB_ACCESS});
    }

    void keyFollowsAChangedModifierMap()
    {
        QList<double> presses;
        const auto result = registerKey(ModifierFlags::command, presses);
        QVERIFY(result.registration);
        const QString moved = u"-e|clear mod4|-e|clear mod3|-e|add mod3 = Super_L Super_R"_qs;
        QCOMPARE(QProcess::execute(u"xmodmap"_qs, moved.split(u'|')), 0);
        QTRY_VERIFY_WITH_TIMEOUT(!m_client.grabKey(XCB_MOD_MASK_3, f9Key)
                                     || (m_client.ungrabKey(XCB_MOD_MASK_3, f9Key), false),
                                 3000);
        m_client.pressKey(super);
        m_client.tapKey(f9Key);
        m_client.releaseKey(super);
        QTRY_COMPARE(presses.size(), 1);
    }
};

} // namespace Tavik

QTEST_MAIN(Tavik::X11KeyEventsTest)
#include "X11KeyEventsTest.moc"
