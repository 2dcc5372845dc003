// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/Windows/ConfettiBurst.h>
#include <TavikLauncher/Views/Windows/ConfettiWindow.h>

#include <QApplication>
#include <QTest>

#include <Support/FakeDesktop.h>
#include <Support/FakeWindowServer.h>
#include <Support/Table.h>
#include <Support/VirtualMainQueue.h>
#include <set>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

constexpr QPointF left(100, 500);
constexpr QPointF right(380, 500);

ConfettiBurst burst(quint32 seed = 7)
{
    return {left, right, seed};
}

/// Bursts over a window, and the overlays that are to be seen of them.
struct Celebration
{
    void burst() { ConfettiWindow::burst({mainQueue, windowServer, appearance}, &window); }
    [[nodiscard]] static QWidgetList overlays()
    {
        QWidgetList found = QApplication::topLevelWidgets();
        found.removeIf([](const QWidget* each) {
            return each->objectName() != u"confetti"_s || !each->isVisible();
        });
        return found;
    }
    [[nodiscard]] int pendingTasks() const
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return mainQueue.pendingTasks();
    }

    VirtualMainQueue mainQueue;
    FakeWindowServer windowServer;
    FakeAppearance appearance;
    QWidget window;
};

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

class ConfettiTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyColorIsBornForAShortWhile()
    {
        const ConfettiBurst confetti = burst();
        const std::size_t colors = ConfettiBurst::palette().size();
        // 90 a second, so the fifth of each colour comes at 0.0444 s.
        for (const auto& [time, ofEach] : std::initializer_list<std::pair<double, std::size_t>>{
                 {-0.01, 0}, {0, 1}, {0.04, 4}, {0.045, 5}, {0.15, 14}, {1, 14}}) {
            QCOMPARE(confetti.pieces(time).size(), ofEach * colors);
        }

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

    void piecesRiseFallAndAreGoneBeforeTheWindowCloses()
    {
        const auto height = [](double time) {
            const auto pieces = burst().pieces(time);
            double sum = 0;
            for (const ConfettiBurst::Piece& piece : pieces) {
                sum += piece.center.y();
            }
            return sum / static_cast<double>(pieces.size());
        };
        QVERIFY(height(0.5) > height(0) + 50);
        QVERIFY(height(2.5) < height(1) - 200);
        for (quint32 seed = 0; seed < 50; ++seed) {
            const ConfettiBurst confetti = burst(seed);
            QVERIFY(confetti.duration() > 3 && confetti.duration() < 4.6);
            QVERIFY(confetti.pieces(confetti.duration()).empty());
            for (double time = 0; time < confetti.duration(); time += 0.25) {
                for (const ConfettiBurst::Piece& piece : confetti.pieces(time)) {
                    QVERIFY(piece.opacity > 0 && piece.scale > 0);
                    QVERIFY(confetti.bounds().contains(piece.center));
                }
            }
        }
    }

    void placementFollowsTheWindow_data()
    {
        const Table<QRectF, QPointF, double> row;
        // The visible frame is 1000 by 800 and begins at y 40; y grows upwards.
        row("in the middle", {300, 300, 400, 300}, {360, 540}, 280.0);
        row("reaching over the top", {300, 700, 400, 300}, {360, 840}, 280.0);
        row("below the screen", {300, -600, 400, 300}, {360, 48}, 280.0);
        row("no window", {}, {325, 560}, 350.0);
    }
    void placementFollowsTheWindow()
    {
        const auto [window, upperLeft, width] = fetch<QRectF, QPointF, double>();
        const QRectF place = ConfettiBurst::placement(window, QRectF(0, 40, 1000, 800));
        QCOMPARE(QPointF(place.x(), place.y() + place.height()), upperLeft);
        QCOMPARE(place.width(), width);
    }

    void confettiRainsAndGoes()
    {
        Celebration celebration;
        celebration.window.setGeometry(200, 300, 400, 300);
        celebration.window.show();
        celebration.appearance.reduced = true;
        celebration.burst();
        QCOMPARE(celebration.overlays().size(), 0);
        celebration.appearance.reduced = false;
        celebration.burst();
        celebration.mainQueue.advance(0.5);
        QCOMPARE(celebration.overlays().size(), 1);
        QWidget* overlay = celebration.overlays().front();
        QVERIFY(overlay->windowFlags() & Qt::WindowTransparentForInput);
        QVERIFY(opaquePixels(*overlay) > 1000);
        celebration.burst();
        celebration.mainQueue.advance(4.09);
        QCOMPARE(celebration.overlays().size(), 2);
        celebration.mainQueue.advance(0.02);
        QCOMPARE(celebration.overlays().size(), 1);
        celebration.mainQueue.advance(0.5);
        QCOMPARE(celebration.overlays().size(), 0);
        QCOMPARE(celebration.pendingTasks(), 0);
    }

    void confettiIsAllThereIsOfItsWindowWithoutACompositor()
    {
        Celebration celebration;
        celebration.windowServer.compositing = false;
        celebration.burst();
        for (int frame = 0; frame < 40; ++frame) {
            celebration.mainQueue.advance(0.1);
            QWidget& overlay = *celebration.overlays().front();
            const QRegion mask = overlay.mask();
            int area = 0;
            for (const QRect& rect : mask) {
                area += rect.width() * rect.height();
            }
            QVERIFY(area > 0 && area < 98 * 14 * 14);
            if (frame < 20) {
                // Every pixel of the window is a piece: nothing half transparent shows black.
                QCOMPARE(opaquePixels(overlay), area);
            }
        }
        celebration.mainQueue.advance(1);
        QCOMPARE(celebration.pendingTasks(), 0);
    }
};

QTEST_MAIN(ConfettiTest)
#include "ConfettiTest.moc"
