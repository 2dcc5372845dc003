// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/LaunchHints.h>
#include <TavikLauncher/Views/CenterPainter.h>

#include <QLineF>
#include <QTest>

#include <Support/MemoryUserDefaults.h>
#include <cmath>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

RingScene scene(double diameter, double thickness)
{
    RingScene scene;
    scene.diameter = diameter;
    scene.geometry = RingGeometry::make({.area = QSizeF(diameter, diameter),
                                         .ringThickness = thickness,
                                         .iconSize = 50,
                                         .slotCount = 15});
    scene.center.hint = u"Type to filter..."_s;
    return scene;
}

/// How far the label's rounded corners reach from the ring's centre.
double reach(const RingScene& scene, const CenterPainter::Pill& pill)
{
    const QRectF& rect = pill.rect;
    const double cornerRadius = pill.cornerRadius;
    const double x = rect.width() / 2 - cornerRadius;
    const double y = std::max(std::abs(rect.top() - scene.geometry.center.y()),
                              std::abs(rect.bottom() - scene.geometry.center.y()))
        - cornerRadius;
    return std::hypot(x, std::max(y, 0.0)) + cornerRadius;
}

} // namespace

class CenterPainterTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void labelsStayInsideTheHole_data()
    {
        QTest::addColumn<double>("diameter");
        QTest::addColumn<double>("thickness");
        QTest::newRow("default") << 320.0 << 80.0;
        QTest::newRow("smallest") << 250.0 << 60.0;
        QTest::newRow("largest") << 550.0 << 60.0;
    }
    void labelsStayInsideTheHole()
    {
        QFETCH(double, diameter);
        QFETCH(double, thickness);
        RingScene ring = scene(diameter, thickness);
        ring.center.indicator = u"Search mode"_s;
        ring.center.query = u"a very long text that somebody typed by mistake"_s;
        ring.center.selectedName = u"An Application With A Name Much Wider Than The Ring"_s;
        const QList<CenterPainter::Pill> pills = CenterPainter::pills(ring);
        QCOMPARE(pills.size(), 3);
        for (const CenterPainter::Pill& pill : pills) {
            QVERIFY(reach(ring, pill) <= ring.geometry.innerRadius);
        }
    }

    void everyHintFitsTheHole()
    {
        RingScene ring = scene(320, 80);
        MemoryUserDefaults defaults;
        for (int summon = 0; summon < 11; ++summon) {
            const QString hint
                = LaunchHints::nextHint(defaults, {.interval = 1}).value_or(QString());
            QVERIFY(!hint.isEmpty());
            ring.center.launchHint = hint;
            const QList<CenterPainter::Pill> pills = CenterPainter::pills(ring);
            QCOMPARE(pills.size(), 1);
            QVERIFY2(reach(ring, pills.front()) <= ring.geometry.innerRadius, qPrintable(hint));
        }
    }

    void labelsAreStackedAboutTheCenter()
    {
        RingScene ring = scene(320, 80);
        QCOMPARE(CenterPainter::pills(ring).size(), 1);
        QCOMPARE(CenterPainter::fieldRect(ring).center(), ring.geometry.center);

        ring.center.selectedName = u"Editor"_s;
        QList<CenterPainter::Pill> pills = CenterPainter::pills(ring);
        QCOMPARE(pills.size(), 2);
        QCOMPARE((pills.front().rect.top() + pills.back().rect.bottom()) / 2,
                 ring.geometry.center.y());
        QVERIFY(pills.front().rect.bottom() < CenterPainter::fieldRect(ring).top());

        ring.center.query = u"ed"_s;
        QVERIFY(CenterPainter::pills(ring).back().rect.top()
                > CenterPainter::fieldRect(ring).bottom());
        ring.center.selectedName.clear();
        ring.center.message = u"No matches"_s;
        QCOMPARE(CenterPainter::pills(ring).size(), 2);
    }

    void fadedFieldIsNotPartOfTheShape()
    {
        RingScene ring = scene(320, 80);
        ring.center.fieldOpacity = 0;
        QVERIFY(CenterPainter::pills(ring).isEmpty());
    }
};

QTEST_MAIN(CenterPainterTest)
#include "CenterPainterTest.moc"
