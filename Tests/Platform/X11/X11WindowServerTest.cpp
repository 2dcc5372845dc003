// SPDX-License-Identifier: MIT
#include "TestClient.h"
#include <TavikLauncherPlatform/Linux/X11/X11WindowServer.h>
#include <TavikLauncherPlatform/QtMainQueue.h>

#include <QKeyEvent>
#include <QProcess>
#include <QRasterWindow>
#include <QTest>

namespace Tavik {

namespace {

using namespace Test;

constexpr xcb_keycode_t keyA = 38;

/// A window of the shape that the launcher's panel has.
class Panel final : public QRasterWindow
{
public:
    Panel()
    {
        setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
        setGeometry(300, 200, 240, 240);
        create();
    }
    [[nodiscard]] xcb_window_t id() const { return static_cast<xcb_window_t>(winId()); }

    int keys = 0;

protected:
    void keyPressEvent(QKeyEvent*) override { ++keys; }
};

} // namespace

class X11WindowServerTest : public QObject
{
    Q_OBJECT

private:
    TestClient m_client;
    QtMainQueue m_queue;
    const QByteArray m_manager = qgetenv("TAVIK_TEST_MANAGER");

    [[nodiscard]] bool hasManager() const { return m_manager != "none"; }

    /// Another program's window that has the focus and is being typed into.
    xcb_window_t showVictim()
    {
        const xcb_window_t victim = m_client.createWindow(QByteArrayLiteral("victim\0Victim\0"));
        // Input hint: the window takes the focus from the window manager.
        m_client.setNumbers(victim, "WM_HINTS", {1, 1, 0, 0, 0, 0, 0, 0, 0}, "WM_HINTS");
        m_client.map(victim);
        for (int i = 0; i < 50 && m_client.focused() != victim; ++i) {
            QTest::qWait(20);
            m_client.focus(victim);
        }
        return victim;
    }

private Q_SLOTS:
    void panelIsMarkedAtEachShowing()
    {
        X11WindowServer server(toolkitConnection(), m_queue);
        Panel panel;
        for (int showing = 0; showing < 2; ++showing) {
            server.preparePanel(panel.winId());
            panel.show();
            QTRY_VERIFY(server.isOnScreen(panel.winId()));
            for (const char* state : {"_NET_WM_STATE_ABOVE",
                                      "_NET_WM_STATE_SKIP_TASKBAR",
                                      "_NET_WM_STATE_SKIP_PAGER"}) {
                QTRY_VERIFY2(
                    m_client.numbers(panel.id(), "_NET_WM_STATE").contains(m_client.atom(state)),
                    state);
            }
            QCOMPARE(m_client.numbers(panel.id(), "_NET_WM_DESKTOP"), QList<uint32_t>{0xffffffff});
            panel.hide();
            QTRY_VERIFY(!server.isOnScreen(panel.winId()));
        }
    }

    void stepsThatNoManagerTellsOfReachTheToolkit()
    {
        if (hasManager()) {
            QSKIP("The test puts the frame around the window itself.");
        }
        X11WindowServer server(toolkitConnection(), m_queue);
        Panel window;
        server.reportMoves(window.winId());
        window.show();
        QTRY_VERIFY(server.isOnScreen(window.winId()));
        const xcb_window_t frame = m_client.createWindow(QByteArrayLiteral("frame\0Frame\0"));
        m_client.map(frame);
        xcb_reparent_window(m_client.connection(), window.id(), frame, 5, 20);
        const int unframed = window.geometry().x();
        uint32_t x = 40; // Never comes to stand where the window stood.
        const auto step = [&] {
            x += 7;
            xcb_configure_window(m_client.connection(), frame, XCB_CONFIG_WINDOW_X, &x);
            xcb_flush(m_client.connection());
        };
        // A step that comes before the frame has been seen is told of by nobody.
        QTRY_VERIFY((step(), window.geometry().x() != unframed));
        for (int steps = 0; steps < 3; ++steps) {
            step();
            QTRY_COMPARE(window.geometry().x(), static_cast<int>(x) + 5);
            QCOMPARE(window.size(), QSize(240, 240));
        }
        window.destroy();
        m_client.destroy(frame);
    }

    void keyboardComesAndGoesBack()
    {
        X11WindowServer server(toolkitConnection(), m_queue);
        const xcb_window_t victim = showVictim();
        QCOMPARE(m_client.focused(), victim);
        Panel panel;
        for (int showing = 1; showing <= 4; ++showing) {
            server.preparePanel(panel.winId());
            if (showing > 2) { // The other window is typed into meanwhile.
                m_client.setNumbers(victim, "_NET_WM_USER_TIME", {m_client.time()}, "CARDINAL");
            }
            panel.show();
            server.takeKeyboardFocus(panel.winId());
            QTRY_VERIFY(server.hasKeyboardFocus(panel.winId()));
            m_client.tapKey(keyA);
            QTRY_COMPARE(panel.keys, showing);
            panel.hide();
            server.returnKeyboardFocus(panel.winId());
            QTRY_COMPARE(m_client.focused(), victim);
            QVERIFY(!server.hasKeyboardFocus(panel.winId()));
        }
        m_client.destroy(victim);
    }

    void focusTakenElsewhereIsLeftThereAndThePreviousWindowMayBeGone()
    {
        for (const bool isGone : {false, true}) {
            X11WindowServer server(toolkitConnection(), m_queue);
            const xcb_window_t victim = showVictim();
            Panel panel;
            server.preparePanel(panel.winId());
            panel.show();
            server.takeKeyboardFocus(panel.winId());
            QTRY_VERIFY(server.hasKeyboardFocus(panel.winId()));
            if (isGone) {
                m_client.destroy(victim);
            }
            const xcb_window_t other = isGone ? XCB_NONE : showVictim();
            panel.hide();
            server.returnKeyboardFocus(panel.winId());
            QTest::qWait(250);
            QVERIFY(!server.hasKeyboardFocus(panel.winId()));
            if (!isGone) {
                QCOMPARE(m_client.focused(), other);
                m_client.destroy(other);
                m_client.destroy(victim);
            }
        }
    }

    void coveredWindowIsNotOnScreen()
    {
        X11WindowServer server(toolkitConnection(), m_queue);
        Panel panel;
        QVERIFY(!server.isOnScreen(panel.winId()));
        server.preparePanel(panel.winId());
        panel.show();
        QTRY_VERIFY(server.isOnScreen(panel.winId()));

        const uint32_t values[] = {1, 1};
        const xcb_window_t curtain = m_client.createWindow(QByteArrayLiteral("lock\0Lock\0"));
        xcb_change_window_attributes(
            m_client.connection(), curtain, XCB_CW_OVERRIDE_REDIRECT, values);
        const uint32_t frame[] = {0, 0, 1280, 800};
        xcb_configure_window(m_client.connection(),
                             curtain,
                             XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH
                                 | XCB_CONFIG_WINDOW_HEIGHT,
                             frame);
        m_client.map(curtain);
        QTRY_VERIFY(!server.isOnScreen(panel.winId()));
        m_client.destroy(curtain);
        QTRY_VERIFY(server.isOnScreen(panel.winId()));
    }

    void compositorIsFollowed()
    {
        X11WindowServer server(toolkitConnection(), m_queue);
        int changes = 0;
        server.onCompositingChanged = [&changes] {
            ++changes;
        };
        QVERIFY(!server.isCompositing());
        QProcess picom;
        picom.start(QStringLiteral("picom"),
                    {u"--backend"_qs, u"xrender"_qs, u"--config"_qs, u"/dev/null"_qs});
        QVERIFY(picom.waitForStarted());
        QTRY_VERIFY(server.isCompositing());
        QCOMPARE(changes, 1);
        Panel panel;
        server.preparePanel(panel.winId());
        panel.show();
        QTRY_VERIFY(server.isOnScreen(panel.winId()));
        picom.terminate();
        QVERIFY(picom.waitForFinished());
        QTRY_VERIFY(!server.isCompositing());
        QCOMPARE(changes, 2);
    }

    void questionsAboutNoWindowAreAnswered()
    {
        X11WindowServer server(toolkitConnection(), m_queue);
        QVERIFY(!server.hasKeyboardFocus(0x12345678));
        QVERIFY(!server.isOnScreen(0x12345678));
        server.takeKeyboardFocus(0x12345678);
        server.returnKeyboardFocus(0x12345678);
    }
};

} // namespace Tavik

QTEST_MAIN(Tavik::X11WindowServerTest)
#include "X11WindowServerTest.moc"
