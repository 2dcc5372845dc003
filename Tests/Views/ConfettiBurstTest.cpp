// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/ConfettiBurst.h>

#include <QTest>

#include <cmath>
#include <numbers>
#include <set>

using namespace Tavik;

namespace {

constexpr QPointF left(100, 500);
constexpr QPointF right(380, 500);

bool isClose(double value, double expected)
{
    return std::abs(value - expected) < 1e-6;
}

ConfettiBurst burst(quint32 seed = 7)
{
    return {left, right, seed};
}

} // namespace

class ConfettiBurstTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyColorIsBornForAShortWhile()
    {
        const ConfettiBurst confetti = burst();
        const std::size_t colors = ConfettiBurst::palette().size();
        QCOMPARE(confetti.pieces(-0.01).size(), std::size_t{0});
        QCOMPARE(confetti.pieces(0).size(), colors);
        // 90 a second, so the fifth of each colour comes at 0.0444 s.
        QCOMPARE(confetti.pieces(0.04).size(), 4 * colors);
        QCOMPARE(confetti.pieces(0.045).size(), 5 * colors);
        QCOMPARE(confetti.pieces(0.15).size(), 14 * colors);
        QCOMPARE(confetti.pieces(1).size(), 14 * colors);

        std::set<QRgb> seen;
        for (const ConfettiBurst::Piece& piece : confetti.pieces(0)) {
            seen.insert(piece.color.rgb());
            QVERIFY(piece.center.x() >= left.x() && piece.center.x() <= right.x());
            QCOMPARE(piece.center.y(), left.y());
            QCOMPARE(piece.opacity, 1.0);
            QVERIFY(piece.scale >= 0.7 - 0.45 && piece.scale <= 0.7 + 0.45);
        }
        QCOMPARE(seen.size(), colors);
    }

    void piecesObeyTheLawsOfMotion()
    {
        const ConfettiBurst confetti = burst();
        constexpr double tick = 0.0001;
        const auto before = confetti.pieces(1 - tick);
        const auto now = confetti.pieces(1);
        const auto after = confetti.pieces(1 + tick);
        // The same flight is at the same place of the list while nothing is born or dies.
        for (std::size_t i = 0; i < now.size(); ++i) {
            const QPointF change = after.at(i).center - before.at(i).center;
            const QPointF bend = after.at(i).center + before.at(i).center - 2 * now.at(i).center;
            QVERIFY(std::abs(bend.y() / (tick * tick) + 340) < 5);
            QVERIFY(std::abs(bend.x() / (tick * tick)) < 5);
            // Launched 0.85 to 1 s ago within a cone of 99 degrees about straight up.
            const double sideways = change.x() / (2 * tick);
            const double upwards = change.y() / (2 * tick) + 340 * 0.925;
            const double speed = std::hypot(sideways, upwards);
            QVERIFY(speed > 380 - 170 - 30 && speed < 380 + 170 + 30);
            QVERIFY(upwards > 0);
            QVERIFY(std::abs(std::atan2(sideways, upwards)) < 0.275 * std::numbers::pi + 0.1);
            QVERIFY(isClose((after.at(i).opacity - before.at(i).opacity) / (2 * tick), -0.28));
            QVERIFY(isClose((after.at(i).scale - before.at(i).scale) / (2 * tick), -0.1));
            const double spin = (after.at(i).angle - before.at(i).angle) / (2 * tick);
            QVERIFY(spin >= 3 - 7 && spin <= 3 + 7);
        }
    }

    void allIsGoneBeforeTheWindowCloses()
    {
        for (quint32 seed = 0; seed < 50; ++seed) {
            const ConfettiBurst confetti = burst(seed);
            QVERIFY(confetti.duration() > 3 && confetti.duration() < 4.6);
            QVERIFY(confetti.pieces(confetti.duration()).empty());
            const QRectF bounds = confetti.bounds();
            for (double time = 0; time < confetti.duration(); time += 0.25) {
                for (const ConfettiBurst::Piece& piece : confetti.pieces(time)) {
                    QVERIFY(piece.opacity > 0 && piece.scale > 0);
                    QVERIFY(bounds.contains(piece.center));
                }
            }
        }
    }

    void theSeedDecides()
    {
        QCOMPARE(burst(1).pieces(0.5).front().center, burst(1).pieces(0.5).front().center);
        QVERIFY(burst(1).pieces(0.5).front().center != burst(2).pieces(0.5).front().center);
    }

    void placementFollowsTheWindow_data()
    {
        QTest::addColumn<QRectF>("window");
        QTest::addColumn<QPointF>("upperLeft");
        QTest::addColumn<double>("width");
        // The visible frame is 1000 by 800 and begins at y 40; y grows upwards.
        QTest::newRow("in the middle") << QRectF(300, 300, 400, 300) << QPointF(360, 540) << 280.0;
        QTest::newRow("reaching over the top")
            << QRectF(300, 700, 400, 300) << QPointF(360, 840) << 280.0;
        QTest::newRow("below the screen")
            << QRectF(300, -600, 400, 300) << QPointF(360, 48) << 280.0;
        QTest::newRow("no window") << QRectF() << QPointF(325, 560) << 350.0;
    }
    void placementFollowsTheWindow()
    {
        QFETCH(QRectF, window);
        const QRectF place = ConfettiBurst::placement(window, QRectF(0, 40, 1000, 800));
        QTEST(QPointF(place.x(), place.y() + place.height()), "upperLeft");
        QTEST(place.width(), "width");
    }
};

QTEST_APPLESS_MAIN(ConfettiBurstTest)
#include "ConfettiBurstTest.moc"
