// SPDX-License-Identifier: MIT
#include <TavikLauncher/Ring/LauncherCommands.h>
#include <TavikLauncher/Ring/LauncherKeys.h>
#include <TavikLauncher/Ring/PanelPlacement.h>
#include <TavikLauncher/Ring/PresentationAnimation.h>
#include <TavikLauncher/Ring/RingGeometry.h>
#include <TavikLauncher/Ring/Spring.h>

#include <QStringList>
#include <QTest>

#include <Support/Table.h>
#include <cmath>
#include <numbers>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Tavik::PanelPlacement;
using namespace Qt::StringLiterals;

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

constexpr QSizeF panel(352, 352);

/// A main screen with a panel of 40 points at its top, and a screen to its right that lies higher.
QList<Screen> twoScreens()
{
    return {{QRectF(0, 0, 1920, 1080), QRectF(0, 0, 1920, 1040)},
            {QRectF(1920, 200, 1280, 1024), QRectF(1920, 200, 1280, 1024)}};
}

LauncherCommands recordingCommands(QStringList& calls)
{
    const auto note = [&calls](const QString& name) {
        return [&calls, name] {
            calls << name;
        };
    };
    return {.moveSelectionUp = note(u"up"_s),
            .moveSelectionDown = note(u"down"_s),
            .close = note(u"close"_s),
            .moveSelectionLeft = note(u"left"_s),
            .moveSelectionRight = note(u"right"_s),
            .activate = note(u"activate"_s),
            .quickLaunchAtIndex = [&calls](int n) { calls << u"quick %1"_s.arg(n); },
            .insertText = [&calls](const QString& text) { calls << u"insert "_s + text; },
            .deleteBackward = note(u"delete"_s)};
}

} // namespace

class RingRulesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void measuresFollowTheSettings_data()
    {
        const Table<double, double, double, double, double> row;
        row("defaults stop at the smallest hole", 80.0, 50.0, 84.0, 50.0, 68.0);
        row("thin band", 60.0, 50.0, 100.0, 42.0, 50.0);
        row("thick band keeps the hole", 220.0, 92.0, 84.0, 92.0, 110.0);
        row("smallest icon", 40.0, 64.0, 120.0, 28.0, 30.0);
    }
    void measuresFollowTheSettings()
    {
        const auto [thickness, iconSize, innerRadius, effectiveIconSize, haloSize]
            = fetch<double, double, double, double, double>();
        const RingGeometry geometry = ring(4, thickness, iconSize);
        QCOMPARE(geometry.innerRadius, innerRadius);
        QCOMPARE(geometry.effectiveIconSize, effectiveIconSize);
        QCOMPARE(geometry.haloSize, haloSize);
        QCOMPARE(geometry.outerRadius, 158.0);
        QCOMPARE(geometry.iconRadius, (geometry.innerRadius + 158.0) / 2);
    }

    void everyWedgeIsWhatItsSlotAnswersTo()
    {
        for (const int count : {1, 2, 3, 6, 24}) {
            const RingGeometry geometry = ring(count);
            // At the top.
            QCOMPARE(geometry.slotCenter(0), geometry.center - QPointF(0, geometry.iconRadius));
            for (int slot = 0; slot < count; ++slot) {
                QCOMPARE(geometry.slotAt(geometry.slotCenter(slot)), std::optional(slot));
                const QPainterPath wedge = geometry.wedgeShape(geometry.slotAngle(slot));
                QVERIFY(!wedge.contains(geometry.center + QPointF(3, 5)));
                for (int degrees = 0; degrees < 360; ++degrees) {
                    const QPointF point = onBand(geometry, degrees + 0.45);
                    QCOMPARE(wedge.contains(point), geometry.slotAt(point) == slot);
                }
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
        // The boundary between two slots belongs to the later one.
        QCOMPARE(ring(4).slotAt(geometry.center + QPointF(90, -90)), std::optional(1));
    }

    void shorterWayAroundTheRing_data()
    {
        const Table<double, double, double> row;
        row("last to first goes forward", -90.0, 210.0, 270.0);
        row("first to last goes back", 210.0, -90.0, -150.0);
        row("half a turn keeps its direction", 90.0, -90.0, 90.0);
        row("half a turn back keeps its direction", -90.0, 90.0, -90.0);
        row("after many turns", 0.0, 1085.0, 1080.0);
    }
    void shorterWayAroundTheRing()
    {
        const auto [target, current, reached] = fetch<double, double, double>();
        QCOMPARE(nearestEquivalentAngle(target, current), reached);
    }

    void centersAtThePointInsideTheVisibleFrame_data()
    {
        const Table<QPointF, QPointF> row;
        row("in the middle", {960, 540}, {784, 364});
        row("lower left corner", {0, 1}, {0, 0});
        row("upper left, below the bar", {0, 1080}, {0, 1040 - 352});
        row("right edge stays on its screen", {1919, 540}, {1920 - 352, 364});
        row("first column of the next screen", {1920, 700}, {1920, 524});
        row("far corner", {3199, 1224}, {3200 - 352, 1224 - 352});
        row("nowhere, nearest screen", {2500, -500}, {2500 - 176, 200});
    }
    void centersAtThePointInsideTheVisibleFrame()
    {
        const auto [pointer, origin] = fetch<QPointF, QPointF>();
        QCOMPARE(originCenteredAt(pointer, panel, twoScreens()), origin);
    }

    void oddScreensHaveTheirPlacesToo()
    {
        const QList<Screen> small{{QRectF(0, 0, 300, 200), QRectF(0, 0, 300, 200)}};
        QCOMPARE(originCenteredAt({150, 100}, panel, small), QPointF(300 - 352, 200 - 352));
        QCOMPARE(originCenteredAt({-50, 10}, panel, {}), QPointF(-226, -166));
        const QList<Screen> equallyNear{{QRectF(0, 0, 100, 100), {}},
                                        {QRectF(200, 0, 100, 100), {}}};
        QCOMPARE(screenFor({150, 50}, equallyNear), &equallyNear.at(0));
    }

    void keepsClearOfAWindow_data()
    {
        const Table<QList<QRectF>, QPointF> row;
        const double gap = 32;
        row("no window: above the middle", {}, {784, 592});
        row("a window without a place", {QRectF()}, {784, 592});
        row("right of it", {{300, 200, 960, 700}}, {1260 + gap, 374});
        row("no room right: left of it", {{900, 200, 960, 700}}, {900 - gap - 352, 374});
        row("as wide as the screen: above it", {{0, 0, 1920, 500}}, {784, 500 + gap});
        row("high up: below it", {{0, 540, 1920, 500}}, {784, 540 - gap - 352});
        row("two", {{500, 200, 600, 600}, {1150, 100, 700, 800}}, {500 - gap - 352, 324});
    }
    void keepsClearOfAWindow()
    {
        const auto [windows, origin] = fetch<QList<QRectF>, QPointF>();
        QCOMPARE(originOnScreen(QRectF(0, 0, 1920, 1040), panel, windows), origin);
    }

    void onALowScreenThePanelStaysInside()
    {
        const QSizeF largest(605, 605);
        QCOMPARE(originOnScreen(QRectF(0, 40, 1366, 700), largest, {}), QPointF(380.5, 135));
    }

    void withNoFreePlaceTakesTheOneWithTheMostFreeArea()
    {
        // Everything is covered but a strip of 100 points at the left edge.
        const QRectF screen(0, 0, 1000, 700);
        const QRectF window(132, 32, 836, 636);
        QCOMPARE(avoidingWindows({500, 100}, panel, screen, {window}), QPointF(0, 174));
    }

    void springOvershootsAsItsEquationSaysWhateverTheSteps()
    {
        const double fraction = std::sqrt(1 - 0.82 * 0.82);
        const double overshoot = 90 * std::exp(-std::numbers::pi * 0.82 / fraction);
        const double peakTime = 0.24 / 2 / fraction;
        for (const int steps : {1, 7, 100}) {
            Spring spring{.response = 0.24, .dampingFraction = 0.82, .value = 0, .target = 90};
            for (int step = 0; step < steps; ++step) {
                spring.advance(peakTime / steps, 0);
            }
            QVERIFY(std::abs(spring.value - (90 + overshoot)) < 1e-6);
            QVERIFY(std::abs(spring.velocity) < 1e-6);
            spring.target = -90; // On from where it is.
            spring.advance(1.0 / 120, 0.05);
            QVERIFY(spring.value < 90 && !spring.isAtRest());
            spring.advance(0.6, 0.05);
            QVERIFY(spring.isAtRest());
            QCOMPARE(spring.value, -90.0);
        }
    }

    void openingGrowsFromADotOvershootsAndSettles()
    {
        using namespace PresentationAnimation;
        QCOMPARE(startScale(320), 5.0 / 320);
        QCOMPARE(startScale(50), 0.08);
        QCOMPARE(startScale(1), 0.08);
        for (const auto& [progress, scale] : {std::pair(0.0, 0.02),
                                              {0.24, (0.02 + 1.1) / 2},
                                              {0.48, 1.1},
                                              {0.58, 1.0},
                                              {0.68, 0.9},
                                              {0.76, 0.9 + 0.1 * 0.15625},
                                              {1.0, 1.0},
                                              {-0.1, 1.0},
                                              {1.1, 1.0}}) {
            QVERIFY(std::abs(bounceScale(progress, 0.02) - scale) < 1e-9);
        }
        QCOMPARE(opacity(0), 0.2);
        QCOMPARE(opacity(0.5), 0.9);
        QCOMPARE(opacity(0.9), 1.0);
    }

    void keysReachTheirCommand_data()
    {
        const Table<int, QString, bool, bool, QString, bool> row;
        row("Return", 36, u"\r"_s, false, false, u"activate"_s, true);
        row("held Return launches once", 36, u"\r"_s, false, true, {}, true);
        row("Delete", 51, u"\b"_s, false, false, u"delete"_s, true);
        row("held Delete goes on", 51, u"\b"_s, false, true, u"delete"_s, true);
        row("Forward Delete", 117, {}, false, false, u"delete"_s, true);
        row("Escape", 53, u"\x1b"_s, false, false, u"close"_s, true);
        row("Left", 123, {}, false, false, u"left"_s, true);
        row("Right repeats", 124, {}, false, true, u"right"_s, true);
        row("Down", 125, {}, false, false, u"down"_s, true);
        row("Up", 126, {}, false, false, u"up"_s, true);
        row("Command+3", -1, u"3"_s, true, false, u"quick 3"_s, true);
        row("held Command+3 launches once", -1, u"3"_s, true, true, {}, true);
        row("Command+0 types", -1, u"0"_s, true, false, u"insert 0"_s, true);
        row("digit types", -1, u"3"_s, false, false, u"insert 3"_s, true);
        row("a raised digit types, too", -1, u"²"_s, true, false, u"insert ²"_s, true);
        row("and a circled one", -1, u"①"_s, true, false, u"insert ①"_s, true);
        row("Command+letter types", -1, u"q"_s, true, false, u"insert q"_s, true);
        row("accented letter", -1, u"é"_s, false, false, u"insert é"_s, true);
        row("a combining mark", -1, u"e\u0301"_s, false, false, u"insert e\u0301"_s, true);
        row("beyond the basic plane", -1, u"𝒜"_s, false, false, u"insert 𝒜"_s, true);
        row("Tab passes", -1, u"\t"_s, false, false, {}, false);
        row("C1 control passes", -1, QString(QChar(0x85)), false, false, {}, false);
        row("two characters pass", -1, u"ab"_s, false, false, {}, false);
        row("no characters pass", -1, {}, true, false, {}, false);
    }
    void keysReachTheirCommand()
    {
        const auto [keyCode, characters, hasCommand, repeats, call, used]
            = fetch<int, QString, bool, bool, QString, bool>();
        QStringList calls;
        LauncherKey key{.charactersIgnoringModifiers = characters,
                        .hasCommand = hasCommand,
                        .isAutoRepeat = repeats};
        if (keyCode >= 0) {
            key.keyCode = static_cast<quint16>(keyCode);
        }
        QCOMPARE(dispatchLauncherKey(key, recordingCommands(calls)), used);
        QCOMPARE(dispatchLauncherKey(key, LauncherCommands()), used);
        QCOMPARE(calls.join(u','), call);
    }
};

QTEST_APPLESS_MAIN(RingRulesTest)
#include "RingRulesTest.moc"
