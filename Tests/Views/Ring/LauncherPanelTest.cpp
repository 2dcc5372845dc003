// SPDX-License-Identifier: MIT
#include "PanelFixture.h"
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Views/Ring/RingAccessibility.h>
#include <TavikLauncher/Views/Ring/RingPainter.h>

#include <QAccessible>
#include <QFocusEvent>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include <Support/Table.h>
#include <array>

using namespace Tavik;
using namespace Qt::StringLiterals;
using namespace Tavik::Test;

namespace {

QImage picture(PanelFixture& fixture)
{
    return fixture.panel->grab().toImage();
}

constexpr QPoint center(176, 176);

} // namespace

class LauncherPanelTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { RingAccessibility::install(); }

    void keysGoThroughTheFieldToTheRing_data()
    {
        const Table<int, Qt::KeyboardModifiers, QString, QString> row;
        const Qt::KeyboardModifiers chord = Qt::ControlModifier | Qt::AltModifier;
        const Qt::KeyboardModifiers none;
        row("Control+a", Qt::Key_A, Qt::ControlModifier, u"\x01"_s, u"types a"_s);
        row("held chord", Qt::Key_S, chord, {}, u"types s"_s);
        row("held chord and Shift", Qt::Key_S, chord | Qt::ShiftModifier, {}, u"types S"_s);
        row("Control+0", Qt::Key_0, Qt::ControlModifier, {}, u"types 0"_s);
        row("Alt+3", Qt::Key_3, Qt::AltModifier, {}, u"types 3"_s);
        row("Cyrillic", 0x0416, Qt::ControlModifier, {}, u"types ж"_s);
        row("Shift and a letter", Qt::Key_A, Qt::ShiftModifier, u"A"_s, u"types A"_s);
        row("function key", Qt::Key_F5, Qt::ControlModifier, {}, u"selects 0"_s);
        row("Control+3", Qt::Key_3, Qt::ControlModifier, {}, u"launches C"_s);
        row("Super+3", Qt::Key_3, Qt::MetaModifier, {}, u"launches C"_s);
        row("held chord and 3", Qt::Key_3, chord, {}, u"launches C"_s);
        const auto keypad = Qt::ControlModifier | Qt::KeypadModifier;
        row("Control+3 of the keypad", Qt::Key_3, keypad, {}, u"launches C"_s);
        row("Enter of the keypad", Qt::Key_Enter, Qt::KeypadModifier, u"\r"_s, u"launches A"_s);
        row("Escape", Qt::Key_Escape, none, u"\x1b"_s, u"closes"_s);
        row("held chord and Right", Qt::Key_Right, chord, {}, u"selects 1"_s);
        row("Up", Qt::Key_Up, none, {}, u"selects 4"_s);
    }
    void keysGoThroughTheFieldToTheRing()
    {
        const auto [key, modifiers, text, effect]
            = fetch<int, Qt::KeyboardModifiers, QString, QString>();
        ShownPanel fixture;
        const RingInteraction& ring = fixture.ring().interaction();
        QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
        QCoreApplication::sendEvent(&fixture.ring().filterField(), &repeated);
        QCOMPARE(fixture.closes, 0);

        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QCoreApplication::sendEvent(&fixture.ring().filterField(), &event);
        QString seen = u"selects %1"_s.arg(ring.selectedIndex());
        if (!fixture.workspace.opened.isEmpty()) {
            seen = u"launches "_s + ring.ringApps().at(ring.selectedIndex()).name();
        } else if (fixture.closes > 0) {
            seen = u"closes"_s;
        } else if (!ring.query().isEmpty()) {
            seen = u"types "_s + fixture.ring().filterField().text();
        }
        QCOMPARE(seen, effect);
    }

    void theKeyboardIsGivenBackBeforeThePanelGoes()
    {
        PanelFixture fixture;
        int resigned = 0;
        fixture.panel->onResignKey = [&] {
            ++resigned;
            fixture.panel->orderOut();
        };
        fixture.showRing();
        QCOMPARE(fixture.windowServer.calls.last(), u"take focus"_s);
        fixture.windowServer.onPanelLeft();
        QCOMPARE(resigned, 1);
        QCOMPARE(fixture.windowServer.calls.last(), u"return focus"_s);
        fixture.panel->orderOut();
        QCOMPARE(fixture.windowServer.calls.count(u"return focus"_s), 1);
    }

    void previewNeitherTakesTheKeyboardNorLosesIt()
    {
        PanelFixture fixture;
        const auto acceptsKeyboard = [&] {
            const QWindow* window = fixture.panel->windowHandle();
            return !window->flags().testFlag(Qt::WindowDoesNotAcceptFocus);
        };
        fixture.panel->orderFrontRegardless();
        QVERIFY(!acceptsKeyboard());
        fixture.panel->orderOut();
        QCOMPARE(fixture.windowServer.calls.join(u' '), u"prepare"_s);
        fixture.panel->orderFrontRegardless();

        // A summon while the preview is shown.
        fixture.panel->makeKeyAndOrderFront();
        QVERIFY(acceptsKeyboard());
        fixture.panel->orderOut();
        QCOMPARE(fixture.windowServer.calls.last(), u"return focus"_s);
    }

    void coloursFollowTheTheme_data()
    {
        const Table<QString, double, double, double> row; // The lower ends of band and highlight.
        row("opaque", u"#0000FF"_s, 1.0, 0.7, 0.28);
        row("in between", u"#00FF00"_s, 0.5, 0.35, 0.14);
        row("faint keeps a minimum", u"#FF0000"_s, 0.1, 0.12, 0.08);
        row("invalid", u"#nonsense"_s, 1.0, 0.7, 0.28);
    }
    void coloursFollowTheTheme()
    {
        const auto [hex, opacity, band, highlight] = fetch<QString, double, double, double>();
        PanelFixture fixture;
        fixture.settings.ringColorHex.set(hex);
        fixture.settings.ringOpacity.set(opacity);
        fixture.settings.highlightColorHex.set(hex);
        fixture.settings.highlightOpacity.set(opacity);
        const RingStyle style = RingStyle::make(fixture.settings);
        const QColor color = QColor::isValidColor(hex) ? QColor(hex) : QColor(Qt::black);
        const QColor accent = QColor::isValidColor(hex) ? color : style.accent;
        QCOMPARE(style.bandTop, withOpacity(color, opacity));
        QCOMPARE(style.bandBottom, withOpacity(color, band));
        QCOMPARE(style.highlightTop, withOpacity(accent, opacity));
        QCOMPARE(style.highlightBottom, withOpacity(accent, highlight));
    }

    void bandIsAGradientAroundAHole()
    {
        PanelFixture fixture;
        fixture.settings.ringColorHex.set(u"#0000FF"_s);
        fixture.settings.ringOpacity.set(1);
        const RingScene scene = fixture.ring().scene();
        const QImage band = RingPainter::bandImage(scene);
        const QPoint reach(0, qRound(scene.geometry.outerRadius - 3));
        QVERIFY(band.pixelColor(center - reach).blue() > 250);
        QVERIFY(band.pixelColor(center + reach).blue() < 230);
        QCOMPARE(band.pixelColor(center).alpha(), 0);
        QCOMPARE(band.pixelColor(0, 0).alpha(), 0);
    }

    void emptyRingHasNoWedge()
    {
        ShownPanel fixture;
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

    void nextSummonIsDrawnAheadAndItsIconsDecoded()
    {
        ShownPanel fixture;
        fixture.commands.insertText(u"c"_s);
        const int before = fixture.workQueue.released;
        fixture.panel->orderOut();
        fixture.settle();
        QCOMPARE(fixture.workQueue.waiting(), 0U);
        QVERIFY(fixture.workQueue.released > before); // What was shown takes no memory any more.
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
        ShownPanel fixture;
        QCOMPARE(fixture.ring().scene().center.fieldOpacity, 1.0);
        fixture.commands.moveSelectionRight();
        fixture.mainQueue.advance(1);
        QCOMPARE(fixture.mainQueue.pendingTasks(), 1); // At rest only the fading waits.
        fixture.mainQueue.advance(4);
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
        ShownPanel fixture;
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

    void aClickSelectsNothingThatTheRingHasNotReachedYet()
    {
        ShownPanel fixture;
        fixture.presentation.setAppearance(0.5, 0.5);
        QTest::mouseClick(&fixture.ring(), Qt::LeftButton, {}, fixture.slotPoint(1));
        QVERIFY(fixture.workspace.opened.isEmpty());
        QCOMPARE(fixture.closes, 0);
        QTest::mousePress(&fixture.ring(), Qt::LeftButton, {}, (fixture.slotPoint(1) + center) / 2);
        fixture.presentation.setAppearance(1, 1);
        QTest::mouseRelease(&fixture.ring(), Qt::LeftButton, {}, fixture.slotPoint(1));
        QCOMPARE(fixture.workspace.opened, QStringList{fixture.path(u"B"_s)});
    }

    void theEmptyRingLeadsToWhereItIsFilled()
    {
        PanelFixture fixture;
        fixture.workspace.running.clear();
        fixture.showRing();
        fixture.ring().interaction().refreshRing();
        const RingCenter texts = fixture.ring().scene().center;
        QVERIFY(texts.isInvitation && texts.launchHint.contains(u"Permanent Apps"_s));
        QTest::mouseClick(&fixture.ring(), Qt::LeftButton, {}, center);
        QCOMPARE(fixture.fills, 1);
        QCOMPARE(fixture.closes, 1);
        fixture.commands.insertText(u"q"_s);
        QVERIFY(!fixture.ring().scene().center.isInvitation);
    }

    /// In the picture of a whole desktop, so that nothing is drawn over them by a neighbour.
    void everyRunningApplicationHasItsMarkInItsWedge_data()
    {
        const Table<double, double, double, int> row; // Diameter, thickness, icon size, selected.
        row("as installed", 320, 80, 50, -1);
        row("one of them selected", 320, 80, 50, 3);
        row("the smallest ring", 250, 60, 36, 0);
        row("the largest icons", 550, 110, 92, 7);
    }
    void everyRunningApplicationHasItsMarkInItsWedge()
    {
        const auto [diameter, thickness, iconSize, selected] = fetch<double, double, double, int>();
        PanelFixture fixture;
        QStringList apps;
        for (int i = 0; i < 15; ++i) {
            const QString name = u"App%1"_s.arg(i);
            fixture.install(fixture.path(name), name);
            fixture.fileManager.bundles[fixture.path(name)].iconSource = u"red"_s;
            apps << name;
        }
        fixture.walk();
        fixture.workspace.running.clear();
        fixture.settings.ringDiameter.set(diameter);
        fixture.settings.ringThickness.set(thickness);
        fixture.settings.iconSize.set(iconSize);
        fixture.settings.runningDotColorHex.set(u"#00FF00"_s);
        fixture.launch(apps.join(u' '));
        fixture.showRing();
        for (int step = 0; step <= selected; ++step) {
            fixture.commands.moveSelectionRight();
        }
        fixture.settle();
        const RingScene scene = fixture.ring().scene();
        const QImage image = RingPainter::ringImage(scene, RingPainter::bandImage(scene));
        const double aside = (RingGeometry::panelSide(diameter) - diameter) / 2;
        QSet<int> marked;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == QColor(Qt::green)) {
                    const auto slot = scene.geometry.slotAt(QPointF(x - aside, y - aside));
                    QVERIFY2(slot, "a mark outside the band");
                    marked.insert(*slot);
                }
            }
        }
        QCOMPARE(marked.size(), 15);
    }

    void theSelectionHasAWedgeAndAHalo()
    {
        PanelFixture fixture;
        fixture.settings.ringThickness.set(110);
        fixture.settings.highlightColorHex.set(u"#00FF00"_s);
        fixture.settings.highlightOpacity.set(1);
        fixture.settings.showsRunningDot.set(false);
        fixture.launch(u"B"_s);
        fixture.showRing();
        fixture.commands.moveSelectionRight();
        fixture.settle();
        const RingScene scene = fixture.ring().scene();
        const double aside = (RingGeometry::panelSide(scene.diameter) - scene.diameter) / 2;
        const QImage image = picture(fixture);
        // Along the wedge's edge nothing but the wedge is to be seen, above as below.
        const double edge
            = (scene.geometry.slotAngle(1) + scene.geometry.sectorDegrees() / 2 - 2) * M_PI / 180;
        const QPointF direction(std::cos(edge), std::sin(edge));
        const QPointF outer = scene.geometry.center + direction * (scene.geometry.outerRadius - 4);
        const QColor wedge = image.pixelColor((outer + QPointF(aside, aside)).toPoint());
        QVERIFY(wedge.green() > wedge.red() + 60);
        // Beside the icon, on the halo's rim, the accent lies over the wedge.
        const RingIcon& icon = scene.icons.at(1);
        QCOMPARE(icon.emphasis, 1.0);
        const QPointF out = (icon.center - scene.geometry.center)
            / QLineF(icon.center, scene.geometry.center).length();
        const QPointF halo
            = icon.center + QPointF(-out.y(), out.x()) * (scene.geometry.drawnHaloSize() / 2 - 1);
        const QColor rim = image.pixelColor((halo + QPointF(aside, aside)).toPoint());
        QVERIFY2(rim.blue() > 40, qPrintable(rim.name()));
    }

    void iconsStayInThePanel()
    {
        // As it comes, however many there are; thick and small; thin.
        for (const auto& [diameter, thickness, icon, side] : {std::array{320.0, 80.0, 50.0, 50.0},
                                                              {250.0, 220.0, 92.0, 62.96},
                                                              {250.0, 60.0, 92.0, 42.0}}) {
            const RingGeometry ring = RingGeometry::make({.area = QSizeF(diameter, diameter),
                                                          .ringThickness = thickness,
                                                          .iconSize = icon,
                                                          .slotCount = 24});
            QVERIFY2(std::abs(ring.drawnIconSize() - side) < 0.01,
                     qPrintable(QString::number(ring.drawnIconSize())));
            const double reach = ring.drawnIconSize() * RingGeometry::selectedScale / 2;
            QVERIFY(ring.iconRadius + reach <= RingGeometry::panelSide(diameter) / 2 + 0.001);
        }
    }

    void whatLiesBehindIsNeverThePanelItself()
    {
        PanelFixture fixture;
        QImage desktop(352, 352, QImage::Format_RGB32);
        desktop.fill(Qt::darkGreen);
        QPainter(&desktop).fillRect(QRect(center - QPoint(10, 4), QSize(20, 8)), Qt::blue);
        fixture.windowServer.compositing = false;
        fixture.windowServer.desktop = desktop;
        fixture.showRing();
        const auto behind = [&] {
            return fixture.ring().scene().behind.convertToFormat(desktop.format());
        };
        QCOMPARE(behind().pixelColor(center), QColor(Qt::darkGreen)); // As what is beside it.
        fixture.mainQueue.advance(6); // The field has faded, and shows what it lay upon.
        QVERIFY(behind() == desktop);
        for (const char* letter : {"", "b", "bq"}) {
            fixture.commands.insertText(QString::fromLatin1(letter));
            fixture.settle();
            QVERIFY(behind() == desktop);
        }
    }

    void theOvershootIsNotCutOffToASquare()
    {
        ShownPanel fixture;
        fixture.presentation.setAppearance(1.1, 1);
        const QImage image = picture(fixture);
        for (int at = 0; at < image.width(); at += 4) {
            for (const QPoint& point :
                 {QPoint(at, 0), QPoint(0, at), QPoint(at, image.height() - 1)}) {
                QVERIFY(image.pixelColor(point).alpha() < 12);
            }
        }
        // Between two slots the band itself has grown beyond where it rests.
        const RingGeometry& rested = fixture.ring().scene().geometry;
        const double between = (rested.slotAngle(0) + rested.sectorDegrees() / 2) * M_PI / 180;
        const QPointF grown = QPointF(center)
            + rested.outerRadius * 1.06 * QPointF(std::cos(between), std::sin(between));
        QVERIFY(image.pixelColor(grown.toPoint()).alpha() > 150);
    }

    void wheelTurnsTheSelectionStepByStep()
    {
        ShownPanel fixture;
        for (const int angle : {-60, -60, -240, 120}) {
            QWheelEvent event(
                center, center, {}, {0, angle}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(&fixture.ring(), &event);
        }
        QCOMPARE(fixture.ring().interaction().selectedIndex(), 2);
    }

    void assistiveTechnologyPressesTheButtons()
    {
        ShownPanel fixture;
        QAccessibleInterface* ring = QAccessible::queryAccessibleInterface(&fixture.ring());
        QAccessibleInterface* third = ring->child(ring->childCount() - 3);
        QCOMPARE(ring->indexOfChild(third), ring->childCount() - 3);
        third->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(fixture.workspace.opened, QStringList{fixture.path(u"C"_s)});
    }
};

QTEST_MAIN(LauncherPanelTest)
#include "LauncherPanelTest.moc"
