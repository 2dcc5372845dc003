// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/ConfettiWindow.h>
#include <TavikLauncher/Views/HoverTooltip.h>

#include <QApplication>
#include <QPushButton>
#include <QTest>

#include <Support/FakeDesktop.h>
#include <Support/FakeWindowServer.h>
#include <Support/VirtualMainQueue.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

struct HoveredButton
{
    HoveredButton()
    {
        window.resize(400, 300);
        button.setGeometry(40, 40, 120, 30);
        window.show();
    }
    void send(QEvent::Type type)
    {
        QEvent event(type);
        QCoreApplication::sendEvent(&button, &event);
    }

    VirtualMainQueue mainQueue;
    QWidget window;
    QPushButton button{&window};
    HoverTooltip tooltip{mainQueue, button, {.text = u"Explains"_s, .delay = 0.5}};
};

QList<QWidget*> overlays()
{
    QList<QWidget*> found;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == u"confetti"_s && window->isVisible()) {
            found << window;
        }
    }
    return found;
}

int opaquePixels(QWidget& window)
{
    const QImage image = window.grab().toImage();
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += image.pixelColor(x, y).alpha() > 128 ? 1 : 0;
        }
    }
    return count;
}

} // namespace

class DecorationsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tooltipComesAfterItsDelay()
    {
        HoveredButton hovered;
        hovered.send(QEvent::Enter);
        QVERIFY(hovered.tooltip.isHovering());
        hovered.mainQueue.advance(0.49);
        QVERIFY(!hovered.tooltip.isShowing());
        hovered.mainQueue.advance(0.01);
        QVERIFY(hovered.tooltip.isShowing());
        QVERIFY(hovered.tooltip.label()->isVisible());
        QVERIFY(hovered.window.rect().contains(hovered.tooltip.label()->geometry()));

        hovered.send(QEvent::Leave);
        QVERIFY(!hovered.tooltip.isShowing());
        QVERIFY(!hovered.tooltip.label());
        hovered.mainQueue.advance(10);
        QVERIFY(!hovered.tooltip.isShowing());
    }

    void everyHoverStartsTheDelayAnew()
    {
        HoveredButton hovered;
        hovered.send(QEvent::Enter);
        hovered.mainQueue.advance(0.4);
        hovered.send(QEvent::Leave);
        hovered.mainQueue.advance(0.2);
        QVERIFY(!hovered.tooltip.isShowing());
        hovered.send(QEvent::Enter);
        hovered.mainQueue.advance(0.4);
        QVERIFY(!hovered.tooltip.isShowing());
        hovered.mainQueue.advance(0.1);
        QVERIFY(hovered.tooltip.isShowing());
    }

    void tooltipGoesWhenItsControlIsUsed()
    {
        for (const bool isByKeyboard : {false, true}) {
            for (const double hovering : {0.2, 1.0}) {
                HoveredButton hovered;
                hovered.window.show();
                hovered.send(QEvent::Enter);
                hovered.mainQueue.advance(hovering);
                QCOMPARE(hovered.tooltip.isShowing(), hovering > 0.5);
                if (isByKeyboard) {
                    QTest::keyClick(&hovered.button, Qt::Key_Space);
                } else {
                    QTest::mouseClick(&hovered.button, Qt::LeftButton);
                }
                hovered.mainQueue.advance(1);
                QVERIFY(!hovered.tooltip.isShowing());
            }
        }
    }

    void tooltipGoesWithItsControl()
    {
        HoveredButton hovered;
        hovered.send(QEvent::Enter);
        hovered.mainQueue.advance(0.2);
        hovered.button.hide();
        hovered.mainQueue.advance(1);
        QVERIFY(!hovered.tooltip.isShowing());
        QCOMPARE(hovered.mainQueue.pendingTasks(), 0);
    }

    void tooltipIsReadAloud()
    {
        HoveredButton hovered;
        QCOMPARE(hovered.button.accessibleDescription(), u"Explains"_s);
        hovered.tooltip.setText(u"Explains more"_s);
        QCOMPARE(hovered.button.accessibleDescription(), u"Explains more"_s);
    }

    void tooltipStaysInTheWindow_data()
    {
        QTest::addColumn<QRect>("control");
        QTest::addColumn<QRect>("label");
        QTest::newRow("below") << QRect(100, 100, 80, 20) << QRect(90, 126, 100, 24);
        QTest::newRow("above at the bottom") << QRect(100, 275, 80, 20) << QRect(90, 245, 100, 24);
        QTest::newRow("left edge") << QRect(0, 100, 20, 20) << QRect(4, 126, 100, 24);
        QTest::newRow("right edge") << QRect(380, 100, 20, 20) << QRect(296, 126, 100, 24);
        QTest::newRow("as high as the window") << QRect(100, 0, 80, 300) << QRect(90, 272, 100, 24);
    }
    void tooltipStaysInTheWindow()
    {
        QFETCH(QRect, control);
        QTEST(HoverTooltip::placement(control, QSize(100, 24), QRect(0, 0, 400, 300)), "label");
    }

    void confettiRainsAndGoes()
    {
        VirtualMainQueue mainQueue;
        FakeWindowServer windowServer;
        FakeAppearance appearance;
        QWidget window;
        window.setGeometry(200, 300, 400, 300);
        window.show();

        ConfettiWindow::burst({mainQueue, windowServer, appearance}, &window);
        mainQueue.advance(0.5);
        QCOMPARE(overlays().size(), 1);
        QWidget* overlay = overlays().front();
        QVERIFY(overlay->windowFlags() & Qt::WindowTransparentForInput);
        QVERIFY(!overlay->isActiveWindow());
        QVERIFY(opaquePixels(*overlay) > 1000);
        QVERIFY(window.screen()->geometry().contains(overlay->geometry()));

        ConfettiWindow::burst({mainQueue, windowServer, appearance}, &window);
        QCOMPARE(overlays().size(), 2);
        mainQueue.advance(4.09);
        QCOMPARE(overlays().size(), 2);
        mainQueue.advance(0.02);
        QCOMPARE(overlays().size(), 1);
        mainQueue.advance(0.5);
        QCOMPARE(overlays().size(), 0);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(mainQueue.pendingTasks(), 0);
    }

    void confettiIsAllThereIsOfItsWindowWithoutACompositor()
    {
        VirtualMainQueue mainQueue;
        FakeWindowServer windowServer;
        windowServer.compositing = false;
        FakeAppearance appearance;
        ConfettiWindow::burst({mainQueue, windowServer, appearance}, nullptr);
        for (int frame = 0; frame < 40; ++frame) {
            mainQueue.advance(0.1);
            const QRegion mask = overlays().front()->mask();
            QVERIFY(!mask.isEmpty());
            int area = 0;
            for (const QRect& rect : mask) {
                area += rect.width() * rect.height();
            }
            QVERIFY(area < 98 * 14 * 14);
            if (frame < 20) {
                // Every pixel of the window is a piece: nothing half transparent shows black.
                QCOMPARE(opaquePixels(*overlays().front()), area);
            }
        }
        mainQueue.advance(1);
        QCOMPARE(overlays().size(), 0);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void noConfettiWithReducedMotion()
    {
        VirtualMainQueue mainQueue;
        FakeWindowServer windowServer;
        FakeAppearance appearance;
        appearance.reduced = true;
        ConfettiWindow::burst({mainQueue, windowServer, appearance}, nullptr);
        QCOMPARE(overlays().size(), 0);
        QCOMPARE(mainQueue.pendingTasks(), 0);
    }
};

QTEST_MAIN(DecorationsTest)
#include "DecorationsTest.moc"
