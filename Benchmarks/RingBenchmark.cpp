// SPDX-License-Identifier: MIT
#include "../Tests/Ring/RingFixture.h"
#include <TavikLauncher/Views/Ring/IconSpriteDecoder.h>
#include <TavikLauncher/Views/Ring/RingImageCache.h>
#include <TavikLauncher/Views/Ring/RingPainter.h>

#include <QGuiApplication>
#include <QPainter>

#include <Support/FakeDesktop.h>
#include <benchmark/benchmark.h>

using namespace Tavik;
using namespace Qt::StringLiterals;

namespace {

constexpr double diameter = 550; // The largest ring: its panel is 605 points wide.
constexpr int slotCount = 24;

RingScene largestRing(double ratio)
{
    Test::ColorIconDecoder icons;
    const IconSpriteDecoder sprites(icons);
    RingScene scene;
    scene.diameter = diameter;
    scene.devicePixelRatio = ratio;
    scene.showsWedge = true;
    scene.geometry = RingGeometry::make({.area = QSizeF(diameter, diameter),
                                         .ringThickness = 80,
                                         .iconSize = 50,
                                         .slotCount = slotCount});
    scene.style = {.bandTop = QColor(0, 0, 0, 209),
                   .bandBottom = QColor(0, 0, 0, 146),
                   .highlightTop = QColor(10, 132, 255, 184),
                   .highlightBottom = QColor(10, 132, 255, 51),
                   .accent = QColor(10, 132, 255),
                   .dot = QColor(10, 132, 255),
                   .pillOpacity = 0.94};
    for (int slot = 0; slot < slotCount; ++slot) {
        scene.icons.append({.center = scene.geometry.slotCenter(slot),
                            .icon = sprites.decode({u"red"_s}, qRound(50 * ratio), ratio),
                            .emphasizedIcon = sprites.decode({u"red"_s}, qRound(54 * ratio), ratio),
                            .emphasis = slot == 3 ? 0.5 : 0.0,
                            .isRunning = slot % 3 == 0});
    }
    scene.center.hint = u"Type to filter..."_s;
    scene.center.selectedName = u"Visual Editor"_s;
    return scene;
}

QImage canvas(double ratio)
{
    const int side = qRound(RingGeometry::panelSide(diameter) * ratio);
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    return image;
}

/// A whole frame of the ring at rest while its highlight moves.
void wholeFrame(benchmark::State& state)
{
    const auto ratio = static_cast<double>(state.range(0));
    RingScene scene = largestRing(ratio);
    RingImageCache images;
    QImage image = canvas(ratio);
    for (auto _ : state) {
        scene.wedgeDegrees += 1;
        image.fill(Qt::transparent);
        QPainter painter(&image);
        RingPainter::paint(painter, scene, images.band(scene), QRect(0, 0, 605, 605));
    }
}

/// A step of the highlight on its way to the next slot: what it covers, at the top of the ring.
void highlightStep(benchmark::State& state)
{
    const auto ratio = static_cast<double>(state.range(0));
    RingScene before = largestRing(ratio);
    before.selectedSlot = 1;
    RingScene now = before;
    now.wedgeDegrees += 7;
    now.icons[0].emphasis = 0.5;
    now.icons[1].emphasis = 0.5;
    RingImageCache images;
    const QImage& band = images.band(now);
    QImage image = canvas(ratio);
    for (auto _ : state) {
        std::swap(before, now);
        const QRegion dirty = RingPainter::dirtyRegion(before, now);
        QPainter painter(&image);
        painter.setClipRegion(dirty);
        RingPainter::paint(painter, now, band, dirty);
    }
}

/// A step of the opening animation.
void openingStep(benchmark::State& state)
{
    const auto ratio = static_cast<double>(state.range(0));
    const RingScene scene = largestRing(ratio);
    RingImageCache images;
    const QImage& ring = images.wholeRing(scene);
    QImage image = canvas(ratio);
    double scale = 0.5;
    for (auto _ : state) {
        scale = scale < 1.1 ? scale + 0.01 : 0.5;
        image.fill(Qt::transparent);
        QPainter painter(&image);
        RingPainter::paintInFlight(painter, scene, ring, {.scale = scale, .opacity = 0.9});
    }
}

/// What is drawn ahead while the panel is hidden.
void drawAhead(benchmark::State& state)
{
    const auto ratio = static_cast<double>(state.range(0));
    const RingScene scene = largestRing(ratio);
    for (auto _ : state) {
        benchmark::DoNotOptimize(RingPainter::ringImage(scene, RingPainter::bandImage(scene)));
    }
}

struct LargeCatalog : Test::RingFixture
{
    explicit LargeCatalog(int count)
    {
        for (int i = 0; i < count; ++i) {
            install(path(u"app%1"_s.arg(i)), u"Application Number %1"_s.arg(i));
        }
        walk();
        QStringList pinned;
        for (int i = 0; i < 8; ++i) {
            pinned << path(u"app%1"_s.arg(i * 30));
            workspace.launch(path(u"app%1"_s.arg(i * 20 + 7)));
        }
        for (int i = 0; i < 12; ++i) {
            recents.recordLaunch(path(u"app%1"_s.arg(i * 11)));
        }
        settings.permanentAppPaths.set(pinned);
        settings.pinnedPermanentAppPaths.set(pinned);
        settings.searchesAllApps.set(true);
    }
    OutsideApps outside{fileManager, workQueue};
    RingComposition composition{{catalog, settings, recents, workspace, outside}, ownIdentifier};
};

void composition(benchmark::State& state)
{
    const LargeCatalog catalog(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(catalog.composition.baseList({}, {}));
    }
}

void compositionOfASearch(benchmark::State& state)
{
    const LargeCatalog catalog(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(catalog.composition.baseList(u"app num"_s, u"app num"_s));
    }
}

void sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(300)->Arg(3000)->Arg(30000);
}

BENCHMARK(wholeFrame)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);
BENCHMARK(highlightStep)->Arg(1)->Arg(2)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);
BENCHMARK(openingStep)->Arg(1)->Arg(2)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);
BENCHMARK(drawAhead)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);
BENCHMARK(composition)->Apply(sizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(compositionOfASearch)->Apply(sizes)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
