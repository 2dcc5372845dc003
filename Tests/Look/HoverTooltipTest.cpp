// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/HoverTooltip.h>
#include <TavikLauncher/Look/Look.h>

#include <QPushButton>
#include <QTest>

#include <Support/Table.h>
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

} // namespace

class HoverTooltipTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tooltipComesAfterItsDelay()
    {
        HoveredButton hovered;
        hovered.send(QEvent::Enter);
        hovered.mainQueue.advance(0.49);
        QVERIFY(!hovered.tooltip.isShowing());
        hovered.mainQueue.advance(0.01);
        const QWidget* label = hovered.tooltip.label();
        QVERIFY(label->isVisible());
        QCOMPARE(label->font().pixelSize(), qRound(12 * textScale()));
        const QRect text = QFontMetrics(label->font())
                               .boundingRect(QRect(0, 0, 280, 99), Qt::AlignLeading, u"Explains"_s);
        QCOMPARE(label->size(), text.size() + QSize(2 * 10, 2 * 7));
        hovered.send(QEvent::Leave);
        QVERIFY(!hovered.tooltip.isShowing() && !hovered.tooltip.label());
        // Every hover starts the delay anew.
        hovered.send(QEvent::Enter);
        hovered.mainQueue.advance(0.4);
        hovered.send(QEvent::Leave);
        hovered.mainQueue.advance(0.2);
        hovered.send(QEvent::Enter);
        hovered.mainQueue.advance(0.4);
        QVERIFY(!hovered.tooltip.isShowing());

        QCOMPARE(hovered.button.accessibleDescription(), u"Explains"_s);
        hovered.tooltip.setText(u"Explains more"_s);
        QCOMPARE(hovered.button.accessibleDescription(), u"Explains more"_s);
    }

    void tooltipGoesWhenSomethingIsDone()
    {
        using enum QEvent::Type;
        for (const auto use :
             {KeyPress, MouseButtonPress, Wheel, WindowActivate, WindowDeactivate}) {
            for (const double hovering : {0.2, 1.0}) {
                HoveredButton hovered;
                hovered.send(QEvent::Enter);
                hovered.mainQueue.advance(hovering);
                QCOMPARE(hovered.tooltip.isShowing(), hovering > 0.5);
                // Anywhere in the program.
                QEvent event(use);
                hovered.tooltip.eventFilter(&hovered.window, &event);
                hovered.mainQueue.advance(1);
                QVERIFY(!hovered.tooltip.isShowing());
                QCOMPARE(hovered.mainQueue.pendingTasks(), 0);
            }
        }
        HoveredButton hovered;
        hovered.send(QEvent::Enter);
        hovered.mainQueue.advance(1);
        // As large as its text, which is larger than nothing and no wider than the window.
        QVERIFY(hovered.tooltip.label()->width() > 40 && hovered.tooltip.label()->width() < 200);
        // Two lines of much the same length.
        hovered.tooltip.setText(u"Restore size, thickness, icon size and number of slots."_s);
        QVERIFY(hovered.tooltip.label()->width() > 150 && hovered.tooltip.label()->width() < 230);
        QVERIFY(hovered.tooltip.label()->height() > 35);
        hovered.button.hide();
        QVERIFY(!hovered.tooltip.isShowing());
    }

    void tooltipStaysInTheWindow_data()
    {
        const Table<QRect, QRect> row;
        // On the control's own line, while there is room beside it.
        row("left of it", {200, 100, 80, 20}, {94, 98, 100, 24});
        row("right of it", {20, 100, 80, 20}, {106, 98, 100, 24});
        row("at the bottom", {200, 288, 80, 12}, {94, 272, 100, 24});
        row("a wide one: below", {40, 100, 320, 20}, {150, 126, 100, 24});
        row("a wide one at the bottom: above", {40, 275, 320, 20}, {150, 245, 100, 24});
        row("as large as the window", {0, 0, 400, 300}, {150, 272, 100, 24});
    }
    void tooltipStaysInTheWindow()
    {
        const auto [control, label] = fetch<QRect, QRect>();
        QCOMPARE(HoverTooltip::placement(control, QSize(100, 24), QRect(0, 0, 400, 300)), label);
    }
};

QTEST_MAIN(HoverTooltipTest)
#include "HoverTooltipTest.moc"
