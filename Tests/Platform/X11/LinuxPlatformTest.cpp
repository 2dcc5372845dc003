// SPDX-License-Identifier: MIT
#include "TestClient.h"
#include <TavikLauncherPlatform/Linux/LinuxStatusTray.h>
#include <TavikLauncherPlatform/Linux/X11/X11InputGrabs.h>
#include <TavikLauncherPlatform/Platform.h>
#include <TavikLauncherPlatform/QtWorkQueue.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QProcess>
#include <QTest>

#include <array>

namespace Tavik {
using namespace Qt::StringLiterals;
using Host = StatusTray::Host;
using Test::TestClient;

class LinuxPlatformTest : public QObject
{
    Q_OBJECT

private:
    TestClient m_client;
    QtWorkQueue m_workQueue;
    const LinuxStatusTray::Session m_session{.isX11 = true, .desktop = u"XFCE"_s};

private Q_SLOTS:
    void cleanupTestCase() { m_workQueue.finish(); }

    void screensLeaveOutThePanelsOnThem()
    {
        const xcb_window_t dock = m_client.createWindow(QByteArrayLiteral("dock\0Dock\0"));
        m_client.setNumbers(
            dock, "_NET_WM_WINDOW_TYPE", {m_client.atom("_NET_WM_WINDOW_TYPE_DOCK")}, "ATOM");
        m_client.setNumbers(
            dock, "_NET_WM_STRUT_PARTIAL", {0, 0, 0, 32, 0, 0, 0, 0, 0, 0, 0, 639}, "CARDINAL");
        m_client.map(dock);
        const auto platform = makePlatform({});
        QTRY_COMPARE(platform->screens->all().constFirst().visibleFrame, QRectF(0, 32, 1280, 768));
        QCOMPARE(platform->screens->main()->frame, QRectF(0, 0, 1280, 800));

        // The first stands alone for a while: what the toolkit takes for the rest of a screen
        // depends on how many there were when it heard of it.
        const QStringList monitors{u"L 640/169x800/211+0+0 screen"_s,
                                   u"R 640/169x800/211+640+0 none"_s};
        for (int i = 0; i < int(monitors.size()); ++i) {
            const QStringList place = monitors.at(i).split(u' ');
            QCOMPARE(QProcess::execute(u"xrandr"_s, QStringList(u"--setmonitor"_s) + place), 0);
            QTRY_COMPARE(platform->screens->all().size(), i + 1);
            QTRY_COMPARE(platform->screens->all().at(i).frame, QRectF(640 * i, 0, 640, 800));
        }
        QTRY_COMPARE(platform->screens->all().at(0).visibleFrame, QRectF(0, 32, 640, 768));
        QTRY_COMPARE(platform->screens->all().at(1).visibleFrame, QRectF(640, 0, 640, 800));

        const xcb_window_t window = m_client.createWindow(QByteArrayLiteral("w\0W\0"));
        m_client.map(window);
        m_client.place(window, {900, 100, 200, 150});
        QTRY_COMPARE(m_client.focused(), window);
        m_client.movePointer({5, 5});
        QTRY_COMPARE(platform->screens->main()->frame, QRectF(640, 0, 640, 800));
        m_client.destroy(window);
        m_client.destroy(dock);
    }

    void inputIsTakenOnlyWhenAnotherHasAllOfItAndAskingDisturbsNobody()
    {
        xcb_connection_t* toolkit = Test::toolkitConnection();
        const X11Connection otherClient;
        xcb_connection_t* other = otherClient.get();
        const xcb_window_t window = xcb_generate_id(other);
        const std::array<uint32_t, 2> values{1,
                                             XCB_EVENT_MASK_FOCUS_CHANGE
                                                 | XCB_EVENT_MASK_ENTER_WINDOW
                                                 | XCB_EVENT_MASK_LEAVE_WINDOW};
        xcb_create_window(other,
                          XCB_COPY_FROM_PARENT,
                          window,
                          otherClient.root(),
                          0,
                          0,
                          1280,
                          800,
                          0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT,
                          XCB_COPY_FROM_PARENT,
                          XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK,
                          values.data());
        xcb_map_window(other, window);
        xcb_set_input_focus(other, XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
        const auto eventCount = [&] {
            const X11Reply<xcb_get_input_focus_reply_t> sync(
                xcb_get_input_focus_reply(other, xcb_get_input_focus(other), nullptr));
            int count = 0;
            while (X11Reply<xcb_generic_event_t>{xcb_poll_for_event(other)}) {
                ++count;
            }
            return count;
        };
        const auto takeKeyboard = [&](xcb_connection_t* client) {
            const auto cookie = xcb_grab_keyboard(client,
                                                  0,
                                                  otherClient.root(),
                                                  XCB_CURRENT_TIME,
                                                  XCB_GRAB_MODE_ASYNC,
                                                  XCB_GRAB_MODE_ASYNC);
            const X11Reply<xcb_grab_keyboard_reply_t> reply(
                xcb_grab_keyboard_reply(client, cookie, nullptr));
            return reply->status == XCB_GRAB_STATUS_SUCCESS;
        };
        const auto takePointer = [&](xcb_connection_t* client) {
            const auto cookie = xcb_grab_pointer(client,
                                                 0,
                                                 otherClient.root(),
                                                 0,
                                                 XCB_GRAB_MODE_ASYNC,
                                                 XCB_GRAB_MODE_ASYNC,
                                                 XCB_NONE,
                                                 XCB_NONE,
                                                 XCB_CURRENT_TIME);
            const X11Reply<xcb_grab_pointer_reply_t> reply(
                xcb_grab_pointer_reply(client, cookie, nullptr));
            return reply->status == XCB_GRAB_STATUS_SUCCESS;
        };
        const auto release = [](xcb_connection_t* client) {
            xcb_ungrab_keyboard(client, XCB_CURRENT_TIME);
            xcb_ungrab_pointer(client, XCB_CURRENT_TIME);
            const X11Reply<xcb_get_input_focus_reply_t> sync(
                xcb_get_input_focus_reply(client, xcb_get_input_focus(client), nullptr));
        };

        const X11InputGrabs grabs(toolkit);
        QTRY_COMPARE(eventCount(), 0);
        QVERIFY(!grabs.areHeldElsewhere());
        QCOMPARE(eventCount(), 0);
        QVERIFY(takeKeyboard(toolkit) && takePointer(toolkit));
        QVERIFY2(!grabs.areHeldElsewhere(), "a menu of ours");
        release(toolkit);
        QVERIFY(takeKeyboard(other) && !grabs.areHeldElsewhere());
        QVERIFY(takePointer(other) && grabs.areHeldElsewhere());
        release(other);
        QVERIFY(takePointer(other) && !grabs.areHeldElsewhere());
        release(other);
        xcb_destroy_window(other, window);
        QVERIFY(!grabs.areHeldElsewhere());
    }

    void desktopThatChangesItsMindAboutLooksIsHeard()
    {
        const auto platform = makePlatform({});
        int changes = 0;
        platform->appearance->onChanged = [&changes] {
            ++changes;
        };
        const auto animate = [](bool animates) {
            QDBusMessage signal = QDBusMessage::createSignal(u"/org/freedesktop/portal/desktop"_s,
                                                             u"org.freedesktop.portal.Settings"_s,
                                                             u"SettingChanged"_s);
            signal << u"org.gnome.desktop.interface"_s << u"enable-animations"_s
                   << QVariant::fromValue(QDBusVariant(animates));
            QDBusConnection::sessionBus().send(signal);
        };
        QTRY_VERIFY((animate(false), platform->appearance->reducesMotion()));
        QCOMPARE(changes, 1);
        QTRY_VERIFY((animate(true), !platform->appearance->reducesMotion()));
        QCOMPARE(changes, 2);
    }

    void trayWindowIsFollowed()
    {
        LinuxStatusTray tray(m_workQueue, m_session);
        int changes = 0;
        tray.onChanged = [&changes] {
            ++changes;
        };
        QCOMPARE(tray.host(), Host::none);

        const xcb_window_t panel = m_client.createWindow(QByteArrayLiteral("panel\0Panel\0"));
        m_client.setNumbers(
            panel, "_NET_SYSTEM_TRAY_COLORS", {0xffff, 0x8000, 0, 1, 2, 3}, "CARDINAL");
        xcb_set_selection_owner(
            m_client.connection(), panel, m_client.atom("_NET_SYSTEM_TRAY_S0"), XCB_CURRENT_TIME);
        m_client.sync();
        QTRY_COMPARE(tray.host(), Host::embedding);
        QCOMPARE(tray.symbolColor(), std::optional(QColor(0xff, 0x80, 0)));
        const LinuxStatusTray late(m_workQueue, m_session);
        QCOMPARE(late.host(), Host::embedding);
        const LinuxStatusTray elsewhere(m_workQueue, {.isX11 = false, .desktop = {}});
        QCOMPARE(elsewhere.host(), Host::none);

        m_client.setNumbers(panel, "_NET_SYSTEM_TRAY_COLORS", {0, 0, 0xffff}, "CARDINAL");
        QTRY_COMPARE(tray.symbolColor(), std::optional(QColor(0, 0, 0xff)));
        // Nonsense is as good as nothing.
        m_client.setNumbers(panel, "_NET_SYSTEM_TRAY_COLORS", {0xffffffff, 0, 0}, "CARDINAL");
        QTRY_VERIFY(!tray.symbolColor());
        QCOMPARE(changes, 3);

        m_client.destroy(panel);
        QTRY_COMPARE(tray.host(), Host::none);
    }

    void panelsThatNeverTellTheirColorAreKnown()
    {
        const auto colorOn = [this](const QString& desktop) {
            return LinuxStatusTray(m_workQueue, {.isX11 = true, .desktop = desktop}).symbolColor();
        };
        QCOMPARE(colorOn(u"ubuntu:GNOME"_s), std::optional(QColor(Qt::white)));
        QCOMPARE(colorOn(u"KDE"_s), std::optional<QColor>());
        QCOMPARE(colorOn(QString()), std::optional<QColor>());
    }
};

} // namespace Tavik

QTEST_MAIN(Tavik::LinuxPlatformTest)
#include "LinuxPlatformTest.moc"
