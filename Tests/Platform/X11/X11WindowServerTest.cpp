// SPDX-License-Identifier: MIT
#include "TestClient.h"
#include <TavikLauncherPlatform/Linux/X11/X11WindowServer.h>
#include <TavikLauncherPlatform/QtMainQueue.h>

#include <QKeyEvent>
#include <QRasterWindow>
#include <QTest>

#include <Support/Counting.h>
#include <algorithm>
#include <span>

namespace Tavik {

namespace {

using namespace Test;
using namespace Qt::StringLiterals;

using Xwayland = X11WindowServer::Xwayland;

constexpr xcb_keycode_t keyA = 38;

/// A window of the shape that the launcher's panel has.
class Panel final : public QRasterWindow
{
public:
    explicit Panel(bool isManaged = false)
    {
        setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
        setFlag(Qt::BypassWindowManagerHint, !isManaged);
        setGeometry(300, 200, 240, 240);
        create();
    }
    [[nodiscard]] xcb_window_t id() const { return static_cast<xcb_window_t>(winId()); }

    int keys = 0;
    xcb_timestamp_t lastKeyTime = 0;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        ++keys;
        lastKeyTime = static_cast<xcb_timestamp_t>(event->timestamp());
    }
};

} // namespace

class X11WindowServerTest : public QObject
{
    Q_OBJECT

private:
    TestClient m_client;
    QtMainQueue m_queue;

    /// Another program's window that has the focus and is being typed into.
    xcb_window_t showVictim()
    {
        const xcb_window_t victim = m_client.createWindow(QByteArrayLiteral("victim\0Victim\0"));
        m_client.map(victim);
        const bool hasFocus = QTest::qWaitFor([&] {
            m_client.focus(victim);
            return m_client.focused() == victim;
        });
        settle(); // The manager carries out what it was asked for last.
        return hasFocus ? victim : XCB_NONE;
    }

    [[nodiscard]] bool isScreenCovered() const
    {
        xcb_connection_t* connection = m_client.connection();
        const X11Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(connection, xcb_query_tree(connection, m_client.root()), nullptr));
        const std::span children(xcb_query_tree_children(tree.get()), tree->children_len);
        return std::ranges::any_of(children, [connection](xcb_window_t window) {
            const X11Reply<xcb_get_geometry_reply_t> place(
                xcb_get_geometry_reply(connection, xcb_get_geometry(connection, window), nullptr));
            return place && place->depth == 32 && place->width == 1280;
        });
    }

private Q_SLOTS:
    void panelIsMarkedAtEachShowing()
    {
        X11WindowServer server(toolkitConnection(), m_queue, Xwayland::yes);
        Panel panel(true);
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
        if (qgetenv("TAVIK_TEST_MANAGER") != "none") {
            QSKIP("The test puts the frame around the window itself.");
        }
        X11WindowServer server(toolkitConnection(), m_queue);
        Panel window(true);
        server.reportMoves(window.winId());
        window.show();
        QTRY_VERIFY(server.isOnScreen(window.winId()));
        const xcb_window_t frame = m_client.createWindow(QByteArrayLiteral("frame\0Frame\0"));
        m_client.map(frame);
        xcb_reparent_window(m_client.connection(), window.id(), frame, 5, 20);
        const int unframed = window.geometry().x();
        int x = 40; // Never comes to stand where the window stood.
        const auto step = [&] {
            x += 7;
            m_client.place(frame, {x, 100, 200, 150});
        };
        // A step that comes before the frame has been seen is told of by nobody.
        QTRY_VERIFY((step(), window.geometry().x() != unframed));
        for (int steps = 0; steps < 3; ++steps) {
            step();
            QTRY_COMPARE(window.geometry().x(), x + 5);
            QCOMPARE(window.size(), QSize(240, 240));
        }
        window.destroy();
        m_client.destroy(frame);
    }

    void keyboardComesAndGoesToWhomItBelongs_data()
    {
        QTest::addColumn<bool>("isManaged");
        QTest::newRow("placed by ourselves") << false;
        if (qgetenv("TAVIK_TEST_MANAGER") != "none") {
            QTest::newRow("managed") << true;
        }
    }
    void keyboardComesAndGoesToWhomItBelongs()
    {
        QFETCH(const bool, isManaged);
        X11WindowServer server(
            toolkitConnection(), m_queue, isManaged ? Xwayland::yes : Xwayland::no);
        Panel panel(isManaged);
        int keys = 0;
        int lefts = 0;
        server.onPanelLeft = counting(lefts);
        for (const QString& owner : {u"previous"_s, u"previous"_s, u"other"_s, u"nobody"_s}) {
            const xcb_window_t victim = showVictim();
            QVERIFY(victim != XCB_NONE);
            server.preparePanel(panel.winId());
            // The other window is typed into meanwhile.
            m_client.setNumbers(victim, "_NET_WM_USER_TIME", {m_client.time()}, "CARDINAL");
            panel.show();
            server.takeKeyboardFocusForPanel();
            QTRY_VERIFY(server.hasKeyboardFocus(panel.winId()));
            m_client.tapKey(keyA);
            ++keys;
            QTRY_COMPARE(panel.keys, keys);
            QVERIFY(server.panelGotKey(keyA, panel.lastKeyTime));
            QVERIFY(!server.panelGotKey(keyA, panel.lastKeyTime + 1));
            lefts = 0;
            const xcb_window_t other = owner == u"other" ? showVictim() : victim;
            QTRY_VERIFY(owner != u"other" || lefts > 0);
            if (owner == u"nobody") {
                m_client.destroy(victim);
            }
            server.returnKeyboardFocus();
            panel.hide();
            if (owner != u"previous") {
                QTest::qWait(250); // Longer than a return takes.
            }
            QTRY_VERIFY(owner == u"nobody" || m_client.focused() == other);
            QVERIFY(!server.hasKeyboardFocus(panel.winId()));
            m_client.destroy(other);
            m_client.destroy(victim);
        }
    }

    void aClickOutsideThePanelIsToldAndTheWheelIsNot()
    {
        X11WindowServer server(toolkitConnection(), m_queue);
        Panel panel;
        int lefts = 0;
        server.onPanelLeft = counting(lefts);
        const QPoint inside = QRect(300, 200, 240, 240).center();
        const QPoint corner(304, 204);
        server.setInputRegion(panel.winId(), QRegion(0, 0, 240, 240, QRegion::Ellipse));
        server.preparePanel(panel.winId());
        panel.show();
        server.takeKeyboardFocusForPanel();
        QTRY_VERIFY(server.hasKeyboardFocus(panel.winId()));
        m_client.click(inside, 1);
        settle();
        QCOMPARE(lefts, 0);
        if (qgetenv("TAVIK_TEST_MANAGER") == "none") { // Others turn to the next desktop.
            m_client.click(corner, 5);
            settle();
            QCOMPARE(lefts, 0);
        }
        m_client.click(corner, 1);
        QTRY_COMPARE(lefts, 1);
        server.returnKeyboardFocus();
        panel.hide();
        m_client.click(corner, 1);
        settle();
        QCOMPARE(lefts, 1);
    }

    void coveredWindowIsNotOnScreen()
    {
        X11WindowServer server(toolkitConnection(), m_queue);
        Panel panel;
        QVERIFY(!server.isOnScreen(panel.winId()));
        server.preparePanel(panel.winId());
        panel.show();
        QTRY_VERIFY(server.isOnScreen(panel.winId()));

        const uint32_t isUnmanaged = 1;
        const xcb_window_t curtain = m_client.createWindow(QByteArrayLiteral("lock\0Lock\0"));
        xcb_change_window_attributes(
            m_client.connection(), curtain, XCB_CW_OVERRIDE_REDIRECT, &isUnmanaged);
        m_client.place(curtain, {0, 0, 1280, 800});
        m_client.map(curtain);
        QTRY_VERIFY(!server.isOnScreen(panel.winId()));
        m_client.destroy(curtain);
        QTRY_VERIFY(server.isOnScreen(panel.winId()));
    }

    void panelWaitsForAPointerThatIsNotSure()
    {
        X11WindowServer server(toolkitConnection(), m_queue, Xwayland::findsPointer);
        QStringList told;
        server.onPointerFound = [&] {
            told << u"found"_s;
        };
        server.onPanelPlaced = [&] {
            told << u"placed"_s;
        };
        Panel panel(true);
        for (const bool isHidden : {true, false}) {
            QVERIFY(server.pointer());
            server.preparePanel(panel.winId());
            panel.show();
            QVERIFY(!server.panelShown(panel.winId()));
            QTRY_VERIFY(isScreenCovered());
            if (isHidden) {
                server.panelHides(panel.winId());
                panel.hide();
            }
            // Nobody tells of the pointer, and that is waited for so long only.
            QTRY_VERIFY(!isScreenCovered());
            QTest::qWait(isHidden ? 1050 : 0);
            QCOMPARE(told, isHidden ? QStringList() : (QStringList{u"found"_s, u"placed"_s}));
        }
    }

    void questionsAboutNoWindowAreAnswered()
    {
        X11WindowServer server(toolkitConnection(), m_queue);
        QVERIFY(!server.hasKeyboardFocus(0x12345678));
        QVERIFY(!server.isOnScreen(0x12345678));
        server.takeKeyboardFocus(0x12345678);
        server.returnKeyboardFocus();
    }
};

} // namespace Tavik

QTEST_MAIN(Tavik::X11WindowServerTest)
#include "X11WindowServerTest.moc"
