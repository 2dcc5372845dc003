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

#include <Support/Counting.h>
#include <cstdlib>
#include <memory>

namespace Tavik {
using namespace Qt::StringLiterals;
using Host = StatusTray::Host;
using Test::counting;
using Test::TestClient;

/// Ended as the program ends it: what is still being read needs the rest.
struct EndPlatform
{
    void operator()(Platform* platform) const
    {
        platform->workQueue->finish();
        delete platform;
    }
};
using OwnPlatform = std::unique_ptr<Platform, EndPlatform>;

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
        const OwnPlatform platform(makePlatform({}).release());
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
        const X11InputGrabs ours(toolkit);
        const X11InputGrabs theirs(other);
        const auto sync = [](xcb_connection_t* client) {
            std::free(xcb_get_input_focus_reply(client, xcb_get_input_focus(client), nullptr));
        };
        const auto take = [&](xcb_connection_t* client, bool keyboard, bool pointer) {
            constexpr uint8_t async = XCB_GRAB_MODE_ASYNC;
            const xcb_window_t root = otherClient.root();
            xcb_ungrab_keyboard(client, XCB_CURRENT_TIME);
            xcb_ungrab_pointer(client, XCB_CURRENT_TIME);
            if (keyboard) {
                xcb_grab_keyboard_unchecked(client, 0, root, XCB_CURRENT_TIME, async, async);
            }
            if (pointer) {
                xcb_grab_pointer_unchecked(
                    client, 0, root, 0, async, async, 0, 0, XCB_CURRENT_TIME);
            }
            sync(client);
        };

        const xcb_window_t window = m_client.createWindow(QByteArrayLiteral("w\0W\0"));
        m_client.map(window);
        QTRY_COMPARE(m_client.focused(), window);
        const uint32_t mask = XCB_EVENT_MASK_FOCUS_CHANGE;
        xcb_change_window_attributes(other, window, XCB_CW_EVENT_MASK, &mask);
        sync(other);
        QVERIFY(!ours.areHeldElsewhere());
        sync(other);
        QVERIFY2(!X11Reply<xcb_generic_event_t>(xcb_poll_for_event(other)), "a focus that moves");

        take(toolkit, true, true);
        QVERIFY2(!ours.areHeldElsewhere() && theirs.areHeldElsewhere(), "a menu of ours");
        take(toolkit, false, false);
        for (const bool keyboard : {false, true}) {
            for (const bool pointer : {false, true}) {
                take(other, keyboard, pointer);
                QCOMPARE(ours.areHeldElsewhere(), keyboard && pointer);
            }
        }
        take(other, false, false);
        m_client.destroy(window);
    }

    void desktopThatChangesItsMindAboutLooksIsHeard()
    {
        const OwnPlatform platform(makePlatform({}).release());
        int changes = 0;
        platform->appearance->onChanged = counting(changes);
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
        tray.onChanged = counting(changes);
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
