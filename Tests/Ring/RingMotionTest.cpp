// SPDX-License-Identifier: MIT
#include <TavikLauncher/Ring/PresentationAnimation.h>
#include <TavikLauncher/Ring/Spring.h>

#include <QTest>

#include <cmath>
#include <numbers>

using namespace Tavik;

namespace {

Spring highlightSpring()
{
    return {.response = 0.24, .dampingFraction = 0.82, .value = 0, .target = 90};
}

/// The oscillator's equation solved in very small steps, as an independent reference.
double integrated(Spring spring, double seconds)
{
    const double stiffness = std::pow(2 * std::numbers::pi / spring.response, 2);
    const double friction = 4 * std::numbers::pi * spring.dampingFraction / spring.response;
    constexpr double step = 1e-6;
    for (double t = 0; t < seconds; t += step) {
        const double force
            = -stiffness * (spring.value - spring.target) - friction * spring.velocity;
        spring.velocity += force * step;
        spring.value += spring.velocity * step;
    }
    return spring.value;
}

} // namespace

class RingMotionTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void springObeysTheOscillatorEquation()
    {
        for (const double seconds : {0.02, 0.08, 0.15, 0.3}) {
            Spring spring = highlightSpring();
            spring.advance(seconds, 0);
            QVERIFY2(std::abs(spring.value - integrated(highlightSpring(), seconds)) < 0.01,
                     qPrintable(QString::number(seconds)));
        }
    }

    void courseDoesNotDependOnTheStep()
    {
        Spring inOneStep = highlightSpring();
        Spring inManySteps = highlightSpring();
        inOneStep.advance(0.1, 0);
        for (int i = 0; i < 100; ++i) {
            inManySteps.advance(0.001, 0);
        }
        QVERIFY(std::abs(inOneStep.value - inManySteps.value) < 1e-9);
        QVERIFY(std::abs(inOneStep.velocity - inManySteps.velocity) < 1e-6);
    }

    void overshootsAndComesToRest()
    {
        Spring spring = highlightSpring();
        double highest = 0;
        double seconds = 0;
        while (!spring.isAtRest() && seconds < 2) {
            spring.advance(1.0 / 120, 0.05);
            highest = std::max(highest, spring.value);
            seconds += 1.0 / 120;
        }
        QCOMPARE(spring.value, 90.0);
        QVERIFY(highest > 90.1 && highest < 93);
        QVERIFY(seconds < 0.6);
    }

    void newTargetKeepsTheVelocity()
    {
        Spring spring = highlightSpring();
        spring.advance(0.05, 0);
        const double velocity = spring.velocity;
        spring.target = -90;
        spring.advance(1e-6, 0);
        QVERIFY(velocity > 0);
        QVERIFY(std::abs(spring.velocity - velocity) < velocity * 0.01);
    }

    void openingCurvePassesItsKeyFrames_data()
    {
        QTest::addColumn<double>("progress");
        QTest::addColumn<double>("scale");
        QTest::newRow("dot") << 0.0 << 0.02;
        QTest::newRow("half way out") << 0.24 << (0.02 + 1.1) / 2;
        QTest::newRow("overshoot") << 0.48 << 1.1;
        QTest::newRow("half way back") << 0.58 << 1.0;
        QTest::newRow("dip") << 0.68 << 0.9;
        QTest::newRow("quarter of the last segment") << 0.76 << 0.9 + 0.1 * 0.15625;
        QTest::newRow("rest") << 1.0 << 1.0;
        QTest::newRow("before") << -0.1 << 1.0;
        QTest::newRow("after") << 1.1 << 1.0;
    }
    void openingCurvePassesItsKeyFrames()
    {
        QFETCH(double, progress);
        QFETCH(double, scale);
        QVERIFY(std::abs(PresentationAnimation::bounceScale(progress, 0.02) - scale) < 1e-9);
    }

    void openingStartsAsADotAndFadesIn()
    {
        QCOMPARE(PresentationAnimation::startScale(320), 5.0 / 320);
        QCOMPARE(PresentationAnimation::startScale(50), 0.08);
        QCOMPARE(PresentationAnimation::startScale(1), 0.08);
        QCOMPARE(PresentationAnimation::opacity(0), 0.2);
        QCOMPARE(PresentationAnimation::opacity(0.5), 0.9);
        QCOMPARE(PresentationAnimation::opacity(0.9), 1.0);
    }
};

QTEST_APPLESS_MAIN(RingMotionTest)
#include "RingMotionTest.moc"
