// SPDX-License-Identifier: MIT
#include "TestClient.h"
#include <TavikLauncherPlatform/Linux/LinuxStatusTray.h>
#include <TavikLauncherPlatform/QtWorkQueue.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QTest>

namespace Tavik {

using namespace Qt::StringLiterals;
using Host = StatusTray::Host;
using Test::TestClient;

namespace {

constexpr auto watcherName = "org.kde.StatusNotifierWatcher";

/// A panel's half of the status notifier protocol, as far as we ask it.
class Watcher final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered MEMBER hasHost)

public:
    Watcher()
        : m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"panel"_s))
    {
        m_bus.registerObject(
            u"/StatusNotifierWatcher"_s, this, QDBusConnection::ExportAllProperties);
    }
    ~Watcher() override { QDBusConnection::disconnectFromBus(u"panel"_s); }

    [[nodiscard]] bool start() { return m_bus.registerService(QString::fromLatin1(watcherName)); }
    void stop() { m_bus.unregisterService(QString::fromLatin1(watcherName)); }
    void setHost(bool has)
    {
        hasHost = has;
        m_bus.send(QDBusMessage::createSignal(u"/StatusNotifierWatcher"_s,
                                              QString::fromLatin1(watcherName),
                                              has ? u"StatusNotifierHostRegistered"_s
                                                  : u"StatusNotifierHostUnregistered"_s));
    }

    bool hasHost = false;

private:
    QDBusConnection m_bus;
};

} // namespace

class StatusTrayTest : public QObject
{
    Q_OBJECT

private:
    TestClient m_client;
    QtWorkQueue m_workQueue;
    const LinuxStatusTray::Session m_session{.isX11 = true, .desktop = u"XFCE"_s};

private Q_SLOTS:
    void cleanupTestCase() { m_workQueue.finish(); }

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

    void notifierIsFollowed()
    {
        LinuxStatusTray tray(m_workQueue, m_session);
        Watcher watcher;
        QVERIFY(watcher.start());
        QTest::qWait(100);
        QCOMPARE(tray.host(), Host::none); // A watcher, but nobody who shows anything.
        watcher.setHost(true);
        QTRY_COMPARE(tray.host(), Host::notifier);
        for (int i = 0; i < 500; ++i) {
            watcher.setHost(i % 2 == 0);
        }
        QTRY_COMPARE(tray.host(), Host::none);
        watcher.setHost(true);
        QTRY_COMPARE(tray.host(), Host::notifier);
        watcher.stop();
        QTRY_COMPARE(tray.host(), Host::none);
        QVERIFY(watcher.start());
        QTRY_COMPARE(tray.host(), Host::notifier);
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

QTEST_MAIN(Tavik::StatusTrayTest)
#include "StatusTrayTest.moc"
