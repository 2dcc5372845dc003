// SPDX-License-Identifier: MIT
#include "PanelFixture.h"
#include <TavikLauncher/Views/RingAccessibility.h>
#include <TavikLauncher/Views/RingPainter.h>

#include <QAccessible>
#include <QPainter>
#include <QTest>

using namespace Tavik;
using namespace Qt::StringLiterals;
using namespace Tavik::Test;

namespace {

/// What the ring looks like now; also written to a file when a folder for pictures is given.
QImage picture(PanelFixture& fixture, const QString& name)
{
    const QImage image = fixture.panel->grab().toImage();
    const QString folder = qEnvironmentVariable("TAVIK_PICTURES");
    if (!folder.isEmpty()) {
        QImage onDesktop(image.size(), QImage::Format_RGB32);
        onDesktop.fill(QColor(0x60, 0x80, 0xA0));
        QPainter(&onDesktop).drawImage(0, 0, image);
        onDesktop.save(folder + u'/' + name + u".png"_s);
    }
    return image;
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
    pixel.fill(Qt::transparent);
    QPainter painter(&pixel);
    painter.fillRect(0, 0, 1, 1, under);
    painter.fillRect(0, 0, 1, 1, over);
    painter.end();
    return pixel.pixelColor(0, 0);
}

constexpr QPoint center(176, 176);

} // namespace

class RadialLauncherViewTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { RingAccessibility::install(); }

    void bandIsAGradientOfTheRingColor_data()
    {
        QTest::addColumn<QString>("hex");
        QTest::addColumn<double>("opacity");
        QTest::addColumn<QColor>("top");
        QTest::addColumn<QColor>("bottom");
        const auto tone = [](QColor color, double opacity) {
            return withOpacity(color, opacity);
        };
        QTest::newRow("classic") << u"#000000"_s << 0.82 << tone(Qt::black, 0.82)
                                 << tone(Qt::black, 0.574);
        QTest::newRow("faint keeps a minimum")
            << u"#FF0000"_s << 0.1 << tone(Qt::red, 0.1) << tone(Qt::red, 0.12);
        QTest::newRow("opaque") << u"#0000FF"_s << 1.0 << tone(Qt::blue, 1.0)
                                << tone(Qt::blue, 0.7);
        QTest::newRow("invalid is black")
            << u"#nonsense"_s << 1.0 << tone(Qt::black, 1.0) << tone(Qt::black, 0.7);
    }
    void bandIsAGradientOfTheRingColor()
    {
        QFETCH(QString, hex);
        QFETCH(double, opacity);
        QFETCH(QColor, top);
        QFETCH(QColor, bottom);
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
        const QImage before = picture(fixture, u"summoned"_s);
        const QPoint slot0(center.x() + 36, 40); // Beside the icon.
        QVERIFY(before.pixelColor(slot0).blue() > before.pixelColor(slot0).red() + 40);

        fixture.commands.moveSelectionRight();
        fixture.mainQueue.advance(1);
        const QImage after = picture(fixture, u"selected"_s);
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
        picture(fixture, u"no-matches"_s);
        fixture.catalog.reindex();
        QCOMPARE(fixture.ring().scene().center.message, QString());
        QVERIFY(fixture.ring().scene().center.spinnerStep >= 0);
    }

    void applicationsThatDoNotRunAreDimmedUnlessFiltering()
    {
        PanelFixture fixture;
        fixture.workspace.running.removeLast();
        fixture.settings.permanentAppPaths.set({fixture.path(u"E"_s)});
        fixture.settings.pinnedPermanentAppPaths.set({fixture.path(u"E"_s)});
        fixture.showRing();
        const QImage ring = picture(fixture, u"dimmed"_s);
        const QColor dimmed = ring.pixelColor(fixture.slotPoint(0));
        const QColor running = ring.pixelColor(fixture.slotPoint(1));
        QCOMPARE(running, QColor(Qt::red));
        QVERIFY(dimmed.red() < 230);

        fixture.commands.insertText(u"e"_s);
        fixture.settle();
        QCOMPARE(picture(fixture, u"filtered"_s).pixelColor(fixture.slotPoint(0)), QColor(Qt::red));
    }

    void ringInFlightIsScaledAndFaded()
    {
        PanelFixture fixture;
        fixture.showRing();
        fixture.presentation.setAppearance(0.5, 0.5);
        const QImage flying = picture(fixture, u"in-flight"_s);
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

    void withoutACompositorTheRingIsOpaqueAndShaped()
    {
        PanelFixture fixture;
        fixture.windowServer.compositing = false;
        fixture.showRing();
        fixture.ring().updateShape();
        const QRegion shape = fixture.panel->mask();
        QVERIFY(!shape.contains(QPoint(4, 4)));
        QVERIFY(shape.contains(fixture.slotPoint(1)));
        const QImage ring = picture(fixture, u"no-compositor"_s);
        QCOMPARE(ring.pixelColor(fixture.slotPoint(1) + QPoint(32, 0)).alpha(), 255);
        fixture.windowServer.compositing = true;
        fixture.ring().updateShape();
        QVERIFY(fixture.panel->mask().isEmpty());
    }

    void assistiveTechnologyReadsTheRing()
    {
        PanelFixture fixture;
        fixture.workspace.running.removeLast();
        fixture.settings.permanentAppPaths.set({fixture.path(u"E"_s)});
        fixture.settings.pinnedPermanentAppPaths.set({fixture.path(u"E"_s)});
        fixture.showRing();
        fixture.commands.moveSelectionRight();
        QAccessibleInterface* panel = QAccessible::queryAccessibleInterface(fixture.panel.get());
        QCOMPARE(panel->text(QAccessible::Name), u"Tavik Launcher"_s);
        QAccessibleInterface* ring = QAccessible::queryAccessibleInterface(&fixture.ring());
        QList<QAccessibleInterface*> buttons;
        QStringList texts;
        for (int i = 0; i < ring->childCount(); ++i) {
            QAccessibleInterface* child = ring->child(i);
            QCOMPARE(ring->indexOfChild(child), i);
            if (child->role() == QAccessible::PushButton) {
                buttons << child;
            } else if (child->role() == QAccessible::StaticText && !child->state().invisible) {
                texts << child->text(QAccessible::Name);
            }
        }
        QCOMPARE(ring->child(0)->role(), QAccessible::EditableText);
        QCOMPARE(texts, QStringList{u"A"_s});
        QCOMPARE(buttons.size(), 5);
        QCOMPARE(buttons.at(0)->text(QAccessible::Name), u"E"_s);
        QCOMPARE(buttons.at(0)->text(QAccessible::Description), QString());
        QCOMPARE(buttons.at(1)->text(QAccessible::Description), u"running"_s);
        QVERIFY(buttons.at(1)->state().selected && !buttons.at(0)->state().selected);
        QCOMPARE(ring->focusChild(), buttons.at(1));

        buttons.at(2)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(fixture.workspace.opened, QStringList{fixture.path(u"B"_s)});
    }
};

QTEST_MAIN(RadialLauncherViewTest)
#include "RadialLauncherViewTest.moc"
