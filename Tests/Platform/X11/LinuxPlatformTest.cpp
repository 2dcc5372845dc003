// SPDX-License-Identifier: MIT
#include "TestClient.h"
#include <TavikLauncherPlatform/Linux/X11/X11Workspace.h>
#include <TavikLauncherPlatform/Platform.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QElapsedTimer>
#include <QProcess>
#include <QTest>

namespace Tavik {

class LinuxPlatformTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void platformIsWholeAndQuicklyMade()
    {
        QElapsedTimer timer;
        timer.start();
        const auto platform = makePlatform({});
        const double milliseconds = static_cast<double>(timer.nsecsElapsed()) / 1e6;
        qInfo("makePlatform took %.2f ms", milliseconds);
        QVERIFY(milliseconds < 50);
        QVERIFY(dynamic_cast<X11Workspace*>(platform->workspace.get()));
        QVERIFY(platform->userDefaults && platform->iconDecoder && platform->loginItem);
        QVERIFY(!platform->appearance->reducesMotion());
        QVERIFY(!platform->windowServer->isCompositing());
        // Work that is under way when the platform goes must not reach what has gone.
    }

    void pointerIsKnownWithoutAWindow()
    {
        const auto platform = makePlatform({});
        Test::TestClient client;
        client.movePointer(321, 123);
        QTRY_COMPARE(platform->screens->mouseLocation(), QPointF(321, 800 - 123));
        client.movePointer(10, 790);
        QTRY_COMPARE(platform->screens->mouseLocation(), QPointF(10, 10));
    }

    void screensLeaveOutThePanelsOnThem()
    {
        Test::TestClient client;
        const xcb_window_t dock = client.createWindow(QByteArrayLiteral("dock\0Dock\0"));
        client.setNumbers(
            dock, "_NET_WM_WINDOW_TYPE", {client.atom("_NET_WM_WINDOW_TYPE_DOCK")}, "ATOM");
        client.setNumbers(
            dock, "_NET_WM_STRUT_PARTIAL", {0, 0, 0, 32, 0, 0, 0, 0, 0, 0, 0, 639}, "CARDINAL");
        client.map(dock);
        const auto platform = makePlatform({});
        QTRY_COMPARE(platform->screens->all().constFirst().visibleFrame, QRectF(0, 32, 1280, 768));
        QCOMPARE(platform->screens->main()->frame, QRectF(0, 0, 1280, 800));

        for (const char* monitor :
             {"L 640/169x800/211+0+0 screen", "R 640/169x800/211+640+0 none"}) {
            QStringList arguments{u"--setmonitor"_qs};
            arguments += QString::fromLatin1(monitor).split(u' ');
            QCOMPARE(QProcess::execute(u"xrandr"_qs, arguments), 0);
        }
        QTRY_COMPARE(platform->screens->all().size(), 2);
        QTRY_COMPARE(platform->screens->all().at(0).visibleFrame, QRectF(0, 32, 640, 768));
        QTRY_COMPARE(platform->screens->all().at(1).visibleFrame, QRectF(640, 0, 640, 800));

        const xcb_window_t window = client.createWindow(QByteArrayLiteral("w\0W\0"));
        client.setNumbers(window, "WM_HINTS", {1, 1, 0, 0, 0, 0, 0, 0, 0}, "WM_HINTS");
        const uint32_t x = 900;
        client.map(window);
        xcb_configure_window(client.connection(), window, XCB_CONFIG_WINDOW_X, &x);
        QTRY_COMPARE(client.focused(), window);
        client.movePointer(5, 5);
        QTRY_COMPARE(platform->screens->main()->frame, QRectF(640, 0, 640, 800));
        client.destroy(window);
        client.destroy(dock);
    }

    void desktopThatChangesItsMindAboutLooksIsHeard()
    {
        const auto platform = makePlatform({});
        int changes = 0;
        platform->appearance->onChanged = [&changes] {
            ++changes;
        };
        const auto say = [](const QString& group, const QString& key, const QVariant& value) {
            QDBusMessage signal = QDBusMessage::createSignal(u"/org/freedesktop/portal/desktop"_qs,
                                                             u"org.freedesktop.portal.Settings"_qs,
                                                             u"SettingChanged"_qs);
            signal << group << key << QVariant::fromValue(QDBusVariant(value));
            QDBusConnection::sessionBus().send(signal);
        };
        const auto animate = [&](bool animates) {
            say(u"org.gnome.desktop.interface"_qs, u"enable-animations"_qs, animates);
        };
        const auto darken = [&](bool isDark) {
            say(u"org.freedesktop.appearance"_qs, u"color-scheme"_qs, isDark ? 1U : 2U);
        };
        QTRY_VERIFY((animate(false), platform->appearance->reducesMotion()));
        QCOMPARE(changes, 1);
        QTRY_VERIFY((animate(true), !platform->appearance->reducesMotion()));
        QCOMPARE(changes, 2);
        QTRY_COMPARE((darken(true), platform->appearance->colorScheme()), ColorScheme::dark);
        QTRY_COMPARE((darken(false), platform->appearance->colorScheme()), ColorScheme::light);
        QCOMPARE(changes, 4);
    }
};

} // namespace Tavik

QTEST_MAIN(Tavik::LinuxPlatformTest)
#include "LinuxPlatformTest.moc"
