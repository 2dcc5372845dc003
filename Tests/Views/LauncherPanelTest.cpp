// SPDX-License-Identifier: MIT
#include "PanelFixture.h"
#include <TavikLauncher/Views/RingAccessibility.h>
#include <TavikLauncher/Views/RingPainter.h>

#include <QAccessible>
#include <QFocusEvent>
#include <QPainter>
#include <QTest>
#include <QWindow>

#include <Support/Table.h>

using namespace Tavik;
using namespace Qt::StringLiterals;
using namespace Tavik::Test;

namespace {

QImage picture(PanelFixture& fixture)
{
    return fixture.panel->grab().toImage();
}

bool isNear(const QColor& left, const QColor& right, int tolerance = 6)
{
    return std::abs(left.red() - right.red()) <= tolerance
        && std::abs(left.green() - right.green()) <= tolerance
        && std::abs(left.blue() - right.blue()) <= tolerance
        && std::abs(left.alpha() - right.alpha()) <= tolerance;
}

/// `over` blended onto `under`, both with alpha.
QColor blended(QColor under, QColor over)
{
    QImage pixel(1, 1, QImage::Format_ARGB32_Premultiplied);
    pixel.fill(under);
    QPainter painter(&pixel);
    painter.fillRect(0, 0, 1, 1, over);
    painter.end();
    return pixel.pixelColor(0, 0);
}

constexpr QPoint center(176, 176);

} // namespace

class LauncherPanelTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { RingAccessibility::install(); }

    void keysGoThroughTheFieldToTheRing()
    {
        PanelFixture fixture;
        fixture.showRing();
        QWidget* field = &fixture.ring().filterField();
        QTest::keyClick(field, Qt::Key_Right, Qt::ControlModifier | Qt::AltModifier);
        QCOMPARE(fixture.ring().interaction().selectedIndex(), 1);
        QTest::keyClick(field, Qt::Key_Up);
        QCOMPARE(fixture.ring().interaction().selectedIndex(), 0);
        QTest::keyClick(field, 'c');
        QCOMPARE(fixture.ring().interaction().query(), u"c"_s);
        QCOMPARE(fixture.ring().filterField().text(), u"c"_s);
        QTest::keyClick(field, Qt::Key_Backspace);
        QCOMPARE(fixture.ring().interaction().query(), QString());
        QTest::keyClick(field, Qt::Key_Escape);
        QCOMPARE(fixture.closes, 1);
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
        QCoreApplication::sendEvent(field, &held);
        QVERIFY(fixture.workspace.opened.isEmpty());
        QTest::keyClick(field, Qt::Key_Return);
        QCOMPARE(fixture.workspace.opened, QStringList{fixture.path(u"A"_s)});
    }

    void modifiersDoNotChangeWhatAKeyTypes_data()
    {
        const Table<int, Qt::KeyboardModifiers, QString, QString> row;
        const Qt::KeyboardModifiers chord = Qt::ControlModifier | Qt::AltModifier;
        row("Control+a", Qt::Key_A, Qt::ControlModifier, u"\x01"_s, u"a"_s);
        row("held chord", Qt::Key_S, chord, {}, u"s"_s);
        row("held chord and Shift", Qt::Key_S, chord | Qt::ShiftModifier, {}, u"S"_s);
        row("Control+0", Qt::Key_0, Qt::ControlModifier, {}, u"0"_s);
        row("Alt+3 types", Qt::Key_3, Qt::AltModifier, {}, u"3"_s);
        row("Cyrillic", 0x0416, Qt::ControlModifier, {}, u"ж"_s);
        row("Shift types its capital", Qt::Key_A, Qt::ShiftModifier, u"A"_s, u"A"_s);
        row("function key types nothing", Qt::Key_F5, Qt::ControlModifier, {}, {});
    }
    void modifiersDoNotChangeWhatAKeyTypes()
    {
        const auto [key, modifiers, text, query]
            = fetch<int, Qt::KeyboardModifiers, QString, QString>();
        PanelFixture fixture;
        fixture.showRing();
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QCoreApplication::sendEvent(&fixture.ring().filterField(), &event);
        QCOMPARE(fixture.ring().interaction().query(), query);
    }

    void controlAndSuperDigitsLaunch()
    {
        for (const Qt::KeyboardModifiers modifiers : {Qt::KeyboardModifiers(Qt::ControlModifier),
                                                      Qt::KeyboardModifiers(Qt::MetaModifier),
                                                      Qt::ControlModifier | Qt::KeypadModifier,
                                                      Qt::ControlModifier | Qt::AltModifier}) {
            PanelFixture fixture;
            fixture.showRing();
            QTest::keyClick(&fixture.ring().filterField(), Qt::Key_3, modifiers);
            QCOMPARE(fixture.workspace.opened, QStringList{fixture.path(u"C"_s)});
            QCOMPARE(fixture.closes, 1);
        }
    }

    void showsAsAPanelAndGivesTheKeyboardBack()
    {
        PanelFixture fixture;
        fixture.showRing();
        QVERIFY(fixture.panel->isVisible());
        QCOMPARE(fixture.panel->frame(), QRectF(100, 100, 352, 352));
        QCOMPARE(fixture.windowServer.calls, (QStringList{u"prepare"_s, u"take focus"_s}));
        fixture.panel->orderOut();
        QVERIFY(!fixture.panel->isVisible());
        QCOMPARE(fixture.windowServer.calls.last(), u"return focus"_s);
    }

    void onlyTheRealLossOfTheKeyboardIsReported()
    {
        PanelFixture fixture;
        int resigned = 0;
        fixture.panel->onResignKey = [&resigned] {
            ++resigned;
        };
        fixture.showRing();
        QEvent deactivate(QEvent::WindowDeactivate);

        // Another program's grab: the focus stays, and goes only later.
        QCoreApplication::sendEvent(fixture.panel.get(), &deactivate);
        fixture.mainQueue.advance(1);
        QCOMPARE(resigned, 0);

        fixture.windowServer.hasFocus = false;
        QCoreApplication::sendEvent(fixture.panel.get(), &deactivate);
        QCOMPARE(resigned, 1);
        fixture.panel->orderOut();
        QCOMPARE(resigned, 1);
    }

    void previewNeitherTakesTheKeyboardNorLosesIt()
    {
        PanelFixture fixture;
        int resigned = 0;
        fixture.panel->onResignKey = [&resigned] {
            ++resigned;
        };
        const auto acceptsKeyboard = [&] {
            const QWindow* window = fixture.panel->windowHandle();
            return !window->flags().testFlag(Qt::WindowDoesNotAcceptFocus);
        };
        fixture.panel->orderFrontRegardless();
        QVERIFY(!acceptsKeyboard());
        fixture.windowServer.hasFocus = false;
        for (const QEvent::Type type : {QEvent::WindowActivate, QEvent::WindowDeactivate}) {
            QEvent event(type);
            QCoreApplication::sendEvent(fixture.panel.get(), &event);
        }
        QCOMPARE(resigned, 0);

        // A summon while the preview is shown.
        fixture.panel->makeKeyAndOrderFront();
        QVERIFY(acceptsKeyboard());
        fixture.panel->orderOut();
        fixture.panel->orderFrontRegardless();
        fixture.panel->orderOut();
        QVERIFY(acceptsKeyboard());
    }

    void bandIsAGradientOfTheRingColor_data()
    {
        const Table<QString, double, QColor, QColor> row;
        constexpr auto tone = &withOpacity;
        row("classic", u"#000000"_s, 0.82, tone(Qt::black, 0.82), tone(Qt::black, 0.574));
        row("faint keeps a minimum", u"#FF0000"_s, 0.1, tone(Qt::red, 0.1), tone(Qt::red, 0.12));
        row("opaque", u"#0000FF"_s, 1.0, tone(Qt::blue, 1.0), tone(Qt::blue, 0.7));
        row("invalid is black", u"#nonsense"_s, 1.0, tone(Qt::black, 1.0), tone(Qt::black, 0.7));
    }
    void bandIsAGradientOfTheRingColor()
    {
        const auto [hex, opacity, top, bottom] = fetch<QString, double, QColor, QColor>();
        PanelFixture fixture;
        fixture.settings.ringColorHex.set(hex);
        fixture.settings.ringOpacity.set(opacity);
        RingScene scene = fixture.ring().scene();
        const QImage band = RingPainter::bandImage(scene);
        const QColor material = withOpacity(QColor(40, 40, 42), 0.45);
        const double reach = scene.geometry.outerRadius - 3;
        QVERIFY(isNear(band.pixelColor(center.x(), qRound(center.y() - reach)),
                       blended(material, top)));
        QVERIFY(isNear(band.pixelColor(center.x(), qRound(center.y() + reach)),
                       blended(material, bottom)));
        QCOMPARE(band.pixelColor(center).alpha(), 0);
        QCOMPARE(band.pixelColor(0, 0).alpha(), 0);
    }

    void selectionIsSeenAndMoves()
    {
        PanelFixture fixture;
        fixture.showRing();
        const QImage before = picture(fixture);
        const QPoint slot0(center.x() + 36, 40); // Beside the icon.
        QVERIFY(before.pixelColor(slot0).blue() > before.pixelColor(slot0).red() + 40);

        fixture.commands.moveSelectionRight();
        fixture.mainQueue.advance(1);
        const QImage after = picture(fixture);
        QVERIFY(after.pixelColor(slot0).blue() < 40);
        QCOMPARE(fixture.mainQueue.pendingTasks(), 1); // Only the field's fading still waits.
    }

    void emptyRingHasNoWedge()
    {
        PanelFixture fixture;
        fixture.showRing();
        fixture.commands.insertText(u"zz"_s);
        fixture.settle();
        QVERIFY(!fixture.ring().scene().showsWedge);
        QCOMPARE(fixture.ring().scene().center.message, u"No matches"_s);
        fixture.catalog.reindex();
        QCOMPARE(fixture.ring().scene().center.message, QString());
        QVERIFY(fixture.ring().scene().center.spinnerStep >= 0);
    }

    void applicationsThatDoNotRunAreDimmedUnlessFiltering()
    {
        PanelFixture fixture;
        fixture.workspace.running.removeLast();
        fixture.pin({fixture.path(u"E"_s)});
        fixture.showRing();
        const QImage ring = picture(fixture);
        const QColor dimmed = ring.pixelColor(fixture.slotPoint(0));
        const QColor running = ring.pixelColor(fixture.slotPoint(1));
        QCOMPARE(running, QColor(Qt::red));
        QVERIFY(dimmed.red() < 230);

        fixture.commands.insertText(u"e"_s);
        fixture.settle();
        QCOMPARE(picture(fixture).pixelColor(fixture.slotPoint(0)), QColor(Qt::red));
    }

    void ringInFlightIsScaledAndFaded()
    {
        PanelFixture fixture;
        fixture.showRing();
        fixture.presentation.setAppearance(0.5, 0.5);
        const QImage flying = picture(fixture);
        const QPoint slot = fixture.slotPoint(2);
        QVERIFY(flying.pixelColor(slot).alpha() < 30);
        const QColor icon = flying.pixelColor((slot + center) / 2);
        QVERIFY(icon.red() > 200 && std::abs(icon.alpha() - 128) < 4);
    }

    void nextSummonIsDrawnAheadAndItsIconsDecoded()
    {
        PanelFixture fixture;
        fixture.showRing();
        fixture.commands.insertText(u"c"_s);
        fixture.panel->orderOut();
        fixture.settle();
        QCOMPARE(fixture.workQueue.waiting(), 0U);
        const RingScene hidden = fixture.ring().scene();
        fixture.commands.prepareForShow(true);
        QVERIFY(hidden == fixture.ring().scene());
        QCOMPARE(fixture.workQueue.waiting(), 0U);
        for (const RingIcon& icon : hidden.icons) {
            QVERIFY(!icon.icon.isNull());
        }
        fixture.mainQueue.advance(1);
        QCOMPARE(fixture.mainQueue.pendingTasks(), 0);
    }

    void emptyFieldFadesUnlessItIsToStay()
    {
        PanelFixture fixture;
        fixture.showRing();
        QCOMPARE(fixture.ring().scene().center.fieldOpacity, 1.0);
        fixture.mainQueue.advance(5);
        QCOMPARE(fixture.ring().scene().center.fieldOpacity, 0.0);
        fixture.commands.insertText(u"a"_s);
        QCOMPARE(fixture.ring().scene().center.fieldOpacity, 1.0);

        PanelFixture keeping;
        keeping.settings.keepsCenterHintVisible.set(true);
        keeping.showRing();
        keeping.mainQueue.advance(60);
        QCOMPARE(keeping.ring().scene().center.fieldOpacity, 1.0);
    }

    void clickLaunchesTheSlotThatWasPressed()
    {
        PanelFixture fixture;
        fixture.showRing();
        QWidget* ring = &fixture.ring();
        QTest::mousePress(ring, Qt::LeftButton, {}, fixture.slotPoint(1));
        QTest::mouseRelease(ring, Qt::LeftButton, {}, fixture.slotPoint(2));
        QTest::mouseClick(ring, Qt::RightButton, {}, fixture.slotPoint(2));
        QTest::mouseClick(ring, Qt::LeftButton, {}, center);
        QVERIFY(fixture.workspace.opened.isEmpty());
        QCOMPARE(fixture.closes, 0);
        QTest::mouseClick(ring, Qt::LeftButton, {}, fixture.slotPoint(3));
        QCOMPARE(fixture.workspace.opened, QStringList{fixture.path(u"D"_s)});
        QCOMPARE(fixture.closes, 1);
        QTest::mouseClick(ring, Qt::LeftButton, {}, QPoint(4, 4));
        QCOMPARE(fixture.closes, 2);
    }

    void pointerSelectsOnceItMoves()
    {
        PanelFixture fixture;
        fixture.showRing();
        QWidget* ring = &fixture.ring();
        const auto move = [ring](QPointF point) {
            QMouseEvent event(
                QEvent::MouseMove, point, ring->mapToGlobal(point), Qt::NoButton, {}, {});
            QCoreApplication::sendEvent(ring, &event);
        };
        move(fixture.slotPoint(2));
        QCOMPARE(fixture.ring().interaction().selectedIndex(), 0);
        move(fixture.slotPoint(2) + QPoint(5, 5));
        QCOMPARE(fixture.ring().interaction().selectedIndex(), 2);
    }

    void assistiveTechnologyReadsTheRingAndPressesItsButtons()
    {
        PanelFixture fixture;
        fixture.showRing();
        fixture.commands.moveSelectionRight();
        QAccessibleInterface* ring = QAccessible::queryAccessibleInterface(&fixture.ring());
        QList<QAccessibleInterface*> buttons;
        for (int i = 0; i < ring->childCount(); ++i) {
            QCOMPARE(ring->indexOfChild(ring->child(i)), i);
            if (ring->child(i)->role() == QAccessible::PushButton) {
                buttons << ring->child(i);
            }
        }
        QCOMPARE(buttons.size(), 5);
        QCOMPARE(ring->focusChild(), buttons.at(1));
        buttons.at(2)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(fixture.workspace.opened, QStringList{fixture.path(u"C"_s)});
    }
};

QTEST_MAIN(LauncherPanelTest)
#include "LauncherPanelTest.moc"
