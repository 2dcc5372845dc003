// SPDX-License-Identifier: MIT
#include "../Ring/RingFixture.h"
#include <TavikLauncher/Ring/PresentationAnimation.h>
#include <TavikLauncher/Shell/LauncherPanelController.h>

#include <QTest>

#include <Support/FakeDesktop.h>
#include <Support/FakePanelSurface.h>
#include <cmath>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

constexpr double side = 352;
const LauncherPanelController::ShowOptions userSummon{
    .centeredAt = QPointF(960, 540), .activatesApp = true, .makesKey = true};
const LauncherPanelController::ShowOptions menuSummon{.activatesApp = true, .makesKey = true};
const LauncherPanelController::ShowOptions preview{.prefersAvoidedFrameScreen = true};

struct Controlled : RingFixture
{
    Controlled()
    {
        commands.prepareForShow = [this](bool isUserSummon) {
            prepared << isUserSummon;
        };
    }
    explicit Controlled(double ringDiameterCap)
        : Controlled()
    {
        layout = SettingsPreviewLayout::Result{};
        layout->ringCenter = QPointF(1500, 600);
        layout->ringDiameterCap = ringDiameterCap;
    }
    /// Lets the opening animation and the compositing check end.
    void finishOpening() { mainQueue.advance(0.6); }

    QList<bool> prepared;
    QList<QRectF> avoided;
    std::optional<SettingsPreviewLayout::Result> layout;
    FakeScreens screens;
    FakeAppearance appearance;
    FakePanelSurface* panel = nullptr;
    LauncherPanelController controller{{
        .catalog = catalog,
        .settings = settings,
        .screens = screens,
        .appearance = appearance,
        .mainQueue = mainQueue,
        .commands = commands,
        .presentation = presentation,
        .makeSurface =
            [this](const std::function<void()>&) {
                auto surface = std::make_unique<FakePanelSurface>();
                panel = surface.get();
                return surface;
            },
        .avoidedFrames = [this] { return avoided; },
        .settingsPreviewLayout = [this] { return layout; },
    }};
};

} // namespace

class LauncherPanelControllerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void summonPreparesPlacesActivatesAndOpensAlongItsCurve()
    {
        Controlled fixture;
        fixture.controller.show(userSummon);
        const QRectF place(960 - side / 2, 540 - side / 2, side, side);
        QCOMPARE(fixture.prepared, QList<bool>{true});
        QCOMPARE(fixture.panel->calls, (QStringList{u"activate"_s, u"front"_s, u"key"_s}));
        QCOMPARE(fixture.panel->rect, place);
        QCOMPARE(fixture.presentation.scale(), 5.0 / 320);
        QCOMPARE(fixture.presentation.opacity(), 0.2);
        QVERIFY(!fixture.presentation.acceptsHover());
        fixture.mainQueue.advance(0.204);
        // Steps come every 1/120 s, so the last one may lie that much back.
        QVERIFY(std::abs(fixture.presentation.scale() - 1.1) < 0.02);
        fixture.mainQueue.advance(0.085);
        QVERIFY(std::abs(fixture.presentation.scale() - 0.9) < 0.02);
        QVERIFY(!fixture.presentation.acceptsHover());
        // Whatever the window manager makes of it until the last step, the panel ends where it
        // belongs.
        for (int look = 0; look < 100 && !fixture.presentation.acceptsHover(); ++look) {
            fixture.panel->rect = QRectF(0, 0, 2 * side, 2 * side);
            fixture.mainQueue.advance(PresentationAnimation::step / 2);
        }
        QCOMPARE(fixture.panel->rect, place);
        fixture.finishOpening();
        QCOMPARE(fixture.presentation.scale(), 1.0);
        QCOMPARE(fixture.presentation.opacity(), 1.0);
        QVERIFY(fixture.presentation.acceptsHover());
        QCOMPARE(fixture.mainQueue.pendingTasks(), 0);
    }

    void lessMotionMeansAShortFadeInPlace()
    {
        Controlled fixture;
        fixture.appearance.reduced = true;
        fixture.controller.show(userSummon);
        QCOMPARE(fixture.presentation.scale(), 1.0);
        fixture.mainQueue.advance(PresentationAnimation::reducedDuration + 0.02);
        QCOMPARE(fixture.presentation.opacity(), 1.0);
        QVERIFY(fixture.presentation.acceptsHover());
    }

    void secondTriggerInFlightIsIgnoredAndLaterOnlyMoves()
    {
        Controlled fixture;
        fixture.controller.show(userSummon);
        fixture.controller.show({.centeredAt = QPointF(300, 300), .activatesApp = true});
        QCOMPARE(fixture.panel->rect.x(), 960 - side / 2);
        fixture.finishOpening();

        fixture.controller.setPinnedForSearch(true);
        fixture.controller.show({.centeredAt = QPointF(300, 300), .activatesApp = true});
        QCOMPARE(fixture.panel->rect.x(), 300 - side / 2);
        QCOMPARE(fixture.prepared.size(), 1);
        QCOMPARE(fixture.presentation.scale(), 1.0);
        QVERIFY(fixture.controller.isPinnedForSearch());
    }

    void pointerThatIsFoundLateTakesTheRingAlongAndOpensItAnew()
    {
        Controlled fixture;
        fixture.controller.show(userSummon);
        fixture.mainQueue.advance(0.2);
        fixture.screens.pointer = {300, 300};
        fixture.panel->onPointerFound();
        QCOMPARE(fixture.panel->rect.center(), QPointF(300, 300));
        QCOMPARE(fixture.presentation.opacity(), 0.2);
        QCOMPARE(fixture.prepared.size(), 1);
        fixture.finishOpening();
        QCOMPARE(fixture.panel->rect.center(), QPointF(300, 300));

        fixture.controller.hide();
        fixture.controller.show(menuSummon);
        const QRectF onScreen = fixture.panel->rect;
        fixture.panel->onPointerFound();
        QCOMPARE(fixture.panel->rect, onScreen);
    }

    void hidingResetsEverythingForTheNextShow()
    {
        Controlled fixture;
        fixture.controller.show(userSummon);
        fixture.commands.pinForSearch();
        QVERIFY(fixture.controller.isPinnedForSearch());
        fixture.mainQueue.advance(0.1);
        fixture.commands.close();
        QVERIFY(!fixture.controller.isVisible() && !fixture.controller.isPinnedForSearch());
        QCOMPARE(fixture.presentation.scale(), 1.0);
        QVERIFY(fixture.presentation.acceptsHover());
        QCOMPARE(fixture.mainQueue.pendingTasks(), 0);

        fixture.controller.show(userSummon);
        QCOMPARE(fixture.prepared.size(), 2);
        fixture.panel->onResignKey();
        QVERIFY(!fixture.controller.isVisible());
    }

    void everyShowAsksForAFreshCatalogAtMostEveryFiveMinutes()
    {
        Controlled fixture;
        fixture.mainQueue.advance(299);
        fixture.controller.show(userSummon);
        QVERIFY(!fixture.catalog.isIndexing());
        fixture.controller.hide();
        fixture.mainQueue.advance(1);
        fixture.controller.show(userSummon);
        QVERIFY(fixture.catalog.isIndexing());
    }

    void withoutAPointStandsOnTheMainScreenClearOfTheSettings()
    {
        Controlled fixture;
        fixture.controller.show(menuSummon);
        QCOMPARE(fixture.panel->rect.topLeft(), QPointF(784, 592));
        fixture.controller.hide();
        fixture.avoided = {QRectF(300, 200, 960, 700)};
        fixture.controller.show(menuSummon);
        QCOMPARE(fixture.panel->rect.x(), 1260.0 + 32);

        Controlled unplaced;
        unplaced.screens.screens.clear();
        unplaced.controller.show(menuSummon);
        QCOMPARE(unplaced.panel->rect, QRectF(0, 0, side, side));
    }

    void previewIsNoSummonAndShrinksToItsCap()
    {
        Controlled fixture(550);
        fixture.controller.show(preview);
        QCOMPARE(fixture.prepared, QList<bool>{false});
        QCOMPARE(fixture.panel->calls, QStringList{u"front"_s});
        QCOMPARE(fixture.panel->rect.center(), QPointF(1500, 600));
        QVERIFY(!fixture.presentation.diameterOverride());
        fixture.controller.hide();
        fixture.layout->ringDiameterCap = 200;
        fixture.controller.show(preview);
        QCOMPARE(fixture.presentation.diameterOverride(), std::optional(200.0));
        QVERIFY(std::abs(fixture.panel->rect.width() - 220) < 1e-9);
        fixture.controller.hide();
        QVERIFY(!fixture.presentation.diameterOverride());
        fixture.controller.show(userSummon);
        QVERIFY(std::abs(fixture.panel->rect.width() - side) < 1e-9);
    }

    void previewWithoutALayoutGoesToTheScreenOfTheAvoidedWindow()
    {
        Controlled fixture;
        fixture.screens.screens << Screen{QRectF(1920, 0, 1920, 1080), QRectF(1920, 0, 1920, 1080)};
        fixture.avoided = {QRectF(), QRectF(2000, 200, 800, 600)};
        fixture.controller.show(preview);
        QVERIFY(fixture.panel->rect.x() >= 2000 + 800 + 32);
    }

    void previewFollowsTheSettingsWindow()
    {
        Controlled fixture(550);
        fixture.avoided = {QRectF(100, 100, 960, 700)};
        const auto follow = [&](const QPointF& center, double cap) {
            fixture.layout->ringCenter = center;
            fixture.layout->ringDiameterCap = cap;
            fixture.controller.followSettingsWindow();
        };
        fixture.controller.show(preview);
        fixture.mainQueue.advance(0.1);
        follow({1400, 500}, 550);
        fixture.finishOpening();
        QCOMPARE(fixture.panel->rect.center(), QPointF(1400, 500));
        QCOMPARE(fixture.mainQueue.pendingTasks(), 0);
        QVERIFY2(fixture.prepared.size() == 1, "it moves; it is not shown anew");
        follow({1500, 500}, 0);
        QVERIFY(!fixture.controller.isVisible());
        follow({1500, 500}, 200);
        QVERIFY(std::abs(fixture.panel->rect.width() - 220) < 1e-9);
        fixture.finishOpening();
        // Neither a ring that the user summons nor a hidden one follows.
        fixture.controller.show(userSummon);
        fixture.controller.followSettingsWindow();
        QCOMPARE(fixture.panel->rect.center(), *userSummon.centeredAt);
        fixture.controller.hide();
        follow({1400, 500}, 550);
        QVERIFY(!fixture.controller.isVisible());
    }

    void windowThatIsNotCompositedIsHiddenAfterTwelveTries()
    {
        for (const bool comesLate : {true, false}) {
            Controlled fixture;
            fixture.controller.show(userSummon);
            fixture.panel->composited = false;
            fixture.panel->calls.clear();
            fixture.mainQueue.advance(1.15);
            QCOMPARE(fixture.panel->calls.count(u"key"_s), 11);
            QVERIFY(fixture.controller.isVisible());
            fixture.panel->composited = comesLate;
            QTest::ignoreMessage(
                comesLate ? QtInfoMsg : QtWarningMsg,
                comesLate ? "Tavik Launcher panel: composited after 11 retries"
                          : "Tavik Launcher panel: NOT composited after 1.2s of retries — hiding "
                            "to release keyboard focus");
            fixture.mainQueue.advance(0.1);
            QCOMPARE(fixture.controller.isVisible(), comesLate);
            QCOMPARE(fixture.mainQueue.pendingTasks(), 0);
        }
    }

    void previewThatIsNeverCompositedIsLeftAlone()
    {
        Controlled fixture;
        fixture.controller.show(preview);
        fixture.panel->composited = false;
        fixture.mainQueue.advance(5);
        QCOMPARE(fixture.panel->calls.count(u"front"_s), 1 + 20);
        QVERIFY(!fixture.panel->calls.contains(u"activate"_s));
        QVERIFY(fixture.controller.isVisible());
    }
};

QTEST_GUILESS_MAIN(LauncherPanelControllerTest)
#include "LauncherPanelControllerTest.moc"
