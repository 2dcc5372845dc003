// SPDX-License-Identifier: MIT
#include <TavikLauncher/Ring/RingGeometry.h>

#include <QTest>

#include <cmath>
#include <numbers>

using namespace Tavik;

namespace {

RingGeometry ring(int slotCount, double thickness = 80, double iconSize = 50)
{
    return RingGeometry::make({.area = QSizeF(320, 320),
                               .ringThickness = thickness,
                               .iconSize = iconSize,
                               .slotCount = slotCount});
}

/// A point of the band, `degrees` clockwise from the top.
QPointF onBand(const RingGeometry& geometry, double degrees)
{
    const double angle = (degrees - 90) * std::numbers::pi / 180;
    return geometry.center + QPointF(std::cos(angle), std::sin(angle)) * geometry.iconRadius;
}

} // namespace

class RingGeometryTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void measuresFollowTheSettings_data()
    {
        QTest::addColumn<double>("thickness");
        QTest::addColumn<double>("iconSize");
        QTest::addColumn<double>("innerRadius");
        QTest::addColumn<double>("effectiveIconSize");
        QTest::addColumn<double>("haloSize");
        QTest::newRow("defaults stop at the smallest hole") << 80.0 << 50.0 << 84.0 << 50.0 << 68.0;
        QTest::newRow("thin band") << 60.0 << 50.0 << 100.0 << 42.0 << 50.0;
        QTest::newRow("thick band keeps the hole") << 220.0 << 92.0 << 84.0 << 92.0 << 110.0;
        QTest::newRow("smallest icon") << 40.0 << 64.0 << 120.0 << 28.0 << 30.0;
    }
    void measuresFollowTheSettings()
    {
        QFETCH(double, thickness);
        QFETCH(double, iconSize);
        const RingGeometry geometry = ring(4, thickness, iconSize);
        QTEST(geometry.innerRadius, "innerRadius");
        QTEST(geometry.effectiveIconSize, "effectiveIconSize");
        QTEST(geometry.haloSize, "haloSize");
        QCOMPARE(geometry.outerRadius, 158.0);
        QCOMPARE(geometry.iconRadius, (geometry.innerRadius + 158.0) / 2);
    }

    void slotAtFindsTheWedgeUnderThePoint_data()
    {
        QTest::addColumn<int>("slotCount");
        QTest::addColumn<double>("degreesFromTop");
        QTest::addColumn<int>("slot");
        QTest::newRow("top") << 4 << 0.0 << 0;
        QTest::newRow("right") << 4 << 90.0 << 1;
        QTest::newRow("bottom") << 4 << 180.0 << 2;
        QTest::newRow("left") << 4 << 270.0 << 3;
        QTest::newRow("just before a boundary") << 4 << 44.99 << 0;
        QTest::newRow("just after a boundary") << 4 << 45.01 << 1;
        QTest::newRow("last slot reaches up to the top one") << 4 << 314.9 << 3;
        QTest::newRow("left of the top still belongs to slot 0") << 4 << 315.1 << 0;
        QTest::newRow("one slot owns the whole band") << 1 << 200.0 << 0;
        QTest::newRow("many slots") << 24 << 352.4 << 23;
    }
    void slotAtFindsTheWedgeUnderThePoint()
    {
        QFETCH(int, slotCount);
        QFETCH(double, degreesFromTop);
        QFETCH(int, slot);
        const RingGeometry geometry = ring(slotCount);
        QCOMPARE(geometry.slotAt(onBand(geometry, degreesFromTop)), std::optional(slot));
    }

    void boundaryBelongsToTheLaterSlot()
    {
        const RingGeometry geometry = ring(4);
        QCOMPARE(geometry.slotAt(geometry.center + QPointF(90, -90)), std::optional(1));
    }

    void everySlotContainsItsOwnCenter()
    {
        for (int count = 1; count <= 24; ++count) {
            const RingGeometry geometry = ring(count);
            for (int slot = 0; slot < count; ++slot) {
                QCOMPARE(geometry.slotAt(geometry.slotCenter(slot)), std::optional(slot));
                QVERIFY(geometry.wedgeShape(geometry.slotAngle(slot))
                            .contains(geometry.slotCenter(slot)));
            }
        }
    }

    void holeAndOutsideAreDeadButTheRadiiThemselvesAreNot()
    {
        const RingGeometry geometry = ring(3);
        const auto above = [&](double distance) {
            return geometry.center - QPointF(0, distance);
        };
        QVERIFY(!geometry.slotAt(above(83.9)));
        QCOMPARE(geometry.slotAt(above(84)), std::optional(0));
        QCOMPARE(geometry.slotAt(above(158)), std::optional(0));
        QVERIFY(!geometry.slotAt(above(158.1)));
        QVERIFY(!ring(0).slotAt(above(120)));
    }

    void wedgeCoversItsSectorOnly()
    {
        const RingGeometry geometry = ring(6);
        const QPainterPath wedge = geometry.wedgeShape(geometry.slotAngle(2));
        for (int degrees = 0; degrees < 360; ++degrees) {
            const QPointF point = onBand(geometry, degrees + 0.5);
            QCOMPARE(wedge.contains(point), geometry.slotAt(point) == 2);
        }
        QVERIFY(!wedge.contains(geometry.center));
    }

    void shorterWayAroundTheRing_data()
    {
        QTest::addColumn<double>("target");
        QTest::addColumn<double>("current");
        QTest::addColumn<double>("reached");
        QTest::newRow("last to first goes forward") << -90.0 << 210.0 << 270.0;
        QTest::newRow("first to last goes back") << 210.0 << -90.0 << -150.0;
        QTest::newRow("half a turn keeps its direction") << 90.0 << -90.0 << 90.0;
        QTest::newRow("half a turn back keeps its direction") << -90.0 << 90.0 << -90.0;
        QTest::newRow("after many turns") << 0.0 << 1085.0 << 1080.0;
    }
    void shorterWayAroundTheRing()
    {
        QFETCH(double, target);
        QFETCH(double, current);
        QTEST(nearestEquivalentAngle(target, current), "reached");
    }
};

QTEST_APPLESS_MAIN(RingGeometryTest)
#include "RingGeometryTest.moc"
