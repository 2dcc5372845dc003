// SPDX-License-Identifier: MIT
#include "TestClient.h"
#include <TavikLauncherPlatform/Linux/X11/X11KeyEvents.h>
#include <TavikLauncherPlatform/QtMainQueue.h>

#include <QGuiApplication>
#include <QProcess>
#include <QTest>

#include <Support/FakeKeyEvents.h>

namespace Tavik {

namespace {

using Test::TestClient;

constexpr quint16 f9 = 101; // The virtual key code …
constexpr xcb_keycode_t f9Key = 75; // … and the server's.
constexpr xcb_keycode_t control = 37;
constexpr xcb_keycode_t shift = 50;
constexpr xcb_keycode_t super = 133;
constexpr xcb_keycode_t capsLock = 66;
constexpr xcb_keycode_t numLock = 77;

xcb_connection_t* toolkitConnection()
{
    return qApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
}

void settle()
{
    QTest::qWait(60);
}

} // namespace

class X11KeyEventsTest : public QObject
{
    Q_OBJECT

private:
    TestClient m_client;
    QtMainQueue m_queue;
    Test::FakeAccessibilityPermission m_permission;

    KeyEvents::HotKeyResult registerKey(KeyEvents& events, quint64 flags, QList<double>& presses)
    {
        return events.registerHotKey({.keyCode = f9, .modifierFlags = flags},
                                     [&presses](double time) { presses.append(time); });
    }

private Q_SLOTS:
    void pressIsReportedAtItsTimeWithAnyLocks_data()
    {
        QTest::addColumn<QList<int>>("locks");
        QTest::newRow("none") << QList<int>{};
        QTest::newRow("caps") << QList<int>{capsLock};
        QTest::newRow("num") << QList<int>{numLock};
        QTest::newRow("both") << QList<int>{capsLock, numLock};
    }

    void pressIsReportedAtItsTimeWithAnyLocks()
    {
        QFETCH(const QList<int>, locks);
        X11KeyEvents events(toolkitConnection(), m_queue, m_permission);
        QList<double> presses;
        const auto result = registerKey(events, ModifierFlags::control, presses);
        QCOMPARE(result.status, 0);
        for (const int lock : locks) {
            m_client.tapKey(static_cast<xcb_keycode_t>(lock));
        }
        const double before = m_queue.systemUptime();
        m_client.pressKey(control);
        m_client.tapKey(f9Key);
        m_client.tapKey(f9Key);
        m_client.releaseKey(control);
        for (const int lock : locks) {
            m_client.tapKey(static_cast<xcb_keycode_t>(lock));
        }
        QTRY_COMPARE(presses.size(), 2);
        QVERIFY(presses.first() > before - 0.05);
        QVERIFY(presses.last() <= m_queue.systemUptime());
    }

    void onlyTheExactModifiersCount()
    {
        X11KeyEvents events(toolkitConnection(), m_queue, m_permission);
        QList<double> plain;
        QList<double> controlled;
        const auto first = registerKey(events, 0, plain);
        const auto second = registerKey(events, ModifierFlags::control, controlled);
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
        QCOMPARE(
            QProcess::execute(QStringLiteral("xset"), {u"r"_qs, u"rate"_qs, u"100"_qs, u"50"_qs}),
            0);
        X11KeyEvents events(toolkitConnection(), m_queue, m_permission);
        QList<double> presses;
        const auto result = registerKey(events, 0, presses);
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
        X11KeyEvents events(toolkitConnection(), m_queue, m_permission);
        QList<double> presses;
        const auto result = registerKey(events, ModifierFlags::control, presses);
        QVERIFY(!result.registration);
        QCOMPARE(result.status, int{XCB_ACCESS});
        QVERIFY(m_client.grabKey(XCB_MOD_MASK_CONTROL, f9Key));
        m_client.ungrabKey(XCB_MOD_MASK_CONTROL, f9Key);
        m_client.ungrabKey(lockedControl, f9Key);
    }

    void endedRegistrationGivesTheKeyBack()
    {
        X11KeyEvents events(toolkitConnection(), m_queue, m_permission);
        QList<double> presses;
        {
            const auto result = registerKey(events, 0, presses);
            QVERIFY(result.registration);
            QVERIFY(!m_client.grabKey(0, f9Key));
        }
        QTRY_VERIFY(m_client.grabKey(0, f9Key));
        m_client.tapKey(f9Key);
        settle();
        QCOMPARE(presses.size(), 0);
        m_client.ungrabKey(0, f9Key);
    }

    void registrationMayEndInsideItsOwnPressAndOutliveTheKeyEvents()
    {
        auto events = std::make_unique<X11KeyEvents>(toolkitConnection(), m_queue, m_permission);
        KeyEvents::HotKeyResult result;
        int presses = 0;
        result = events->registerHotKey({.keyCode = f9, .modifierFlags = 0}, [&](double) {
            ++presses;
            result.registration.reset();
        });
        m_client.tapKey(f9Key);
        m_client.tapKey(f9Key);
        QTRY_COMPARE(presses, 1);
        settle();
        QCOMPARE(presses, 1);
        QList<double> more;
        result = registerKey(*events, 0, more);
        events.reset();
        QTRY_VERIFY(m_client.grabKey(0, f9Key));
        m_client.ungrabKey(0, f9Key);
    }

    void impossibleKeysAreRefused()
    {
        X11KeyEvents events(toolkitConnection(), m_queue, m_permission);
        QVERIFY(events.registerHotKey({.keyCode = 52, .modifierFlags = 0}, {}).status != 0);
        QVERIFY(events.registerHotKey({.keyCode = 0xffff, .modifierFlags = 0}, {}).status != 0);
        QList<double> presses;
        const auto result = registerKey(events, 0, presses);
        QCOMPARE(registerKey(events, 0, presses).status, int{XCB_ACCESS});
    }

    void keyFollowsAChangedModifierMap()
    {
        X11KeyEvents events(toolkitConnection(), m_queue, m_permission);
        QList<double> presses;
        const auto result = registerKey(events, ModifierFlags::command, presses);
        QVERIFY(result.registration);
        QCOMPARE(QProcess::execute(QStringLiteral("xmodmap"),
                                   {u"-e"_qs,
                                    u"clear mod4"_qs,
                                    u"-e"_qs,
                                    u"clear mod3"_qs,
                                    u"-e"_qs,
                                    u"add mod3 = Super_L Super_R"_qs}),
                 0);
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
