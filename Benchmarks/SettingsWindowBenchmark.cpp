// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Slider.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsSection.h>

#include <QElapsedTimer>
#include <QImage>
#include <QScrollBar>

#include <Views/SettingsWindow/SettingsWindowFixture.h>
#include <benchmark/benchmark.h>
#include <cstdio>

namespace {

using namespace Tavik;
using namespace Tavik::Test;

QImage frame(const QWidget& view)
{
    return {view.size(), QImage::Format_RGB32};
}

/// From the wish to see a section until it is drawn: its page is made anew every time.
void openSection(benchmark::State& state)
{
    SettingsWindowFixture fixture;
    QImage image = frame(fixture.view);
    const SettingsSection& section
        = allSettingsSections.at(static_cast<std::size_t>(state.range(0)));
    state.SetLabel(section.title);
    for (auto _ : state) {
        fixture.settings.pendingSettingsSectionID.set(section.id.toString());
        fixture.view.show();
        fixture.view.render(&image);
        state.PauseTiming();
        fixture.view.close();
        fixture.settle();
        state.ResumeTiming();
    }
}

/// One step of a slider that is dragged, with everything that it repaints in this window.
void dragSlider(benchmark::State& state)
{
    SettingsWindowFixture fixture;
    fixture.open(SettingsSection::appearance);
    auto& slider = fixture.control<Slider>(u"ringDiameter"_s);
    QWidget* row = slider.parentWidget()->parentWidget();
    QImage image = frame(*row);
    int value = slider.minimum();
    for (auto _ : state) {
        value = value < slider.maximum() ? value + 1 : slider.minimum();
        slider.setValue(value);
        row->render(&image);
    }
}

/// One step of scrolling, with the whole window drawn anew.
void scrollPage(benchmark::State& state)
{
    SettingsWindowFixture fixture;
    QScrollBar* bar = fixture.open(SettingsSection::theme).verticalScrollBar();
    QImage image = frame(fixture.view);
    for (auto _ : state) {
        bar->setValue(bar->value() < bar->maximum() ? bar->value() + 1 : 0);
        fixture.view.render(&image);
    }
}

BENCHMARK(openSection)->DenseRange(0, 8)->Unit(benchmark::kMillisecond);
BENCHMARK(dragSlider)->Unit(benchmark::kMillisecond);
BENCHMARK(scrollPage)->Unit(benchmark::kMillisecond);

/// Fonts and the toolkit's own first times are part of it, so it cannot be repeated.
void reportFirstOpening()
{
    QElapsedTimer time;
    time.start();
    SettingsWindowFixture fixture;
    fixture.open(SettingsSection::general);
    QImage image = frame(fixture.view);
    fixture.view.render(&image);
    std::printf("first opening: %.1f ms\n", static_cast<double>(time.nsecsElapsed()) / 1e6);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    reportFirstOpening();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
