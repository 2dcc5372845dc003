// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/CatalogWalk.h>
#include <TavikLauncherPlatform/Linux/Applications/LinuxFileManager.h>
#include <TavikLauncherPlatform/QtMainQueue.h>
#include <TavikLauncherPlatform/QtWorkQueue.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <optional>

using namespace Tavik;

namespace {

/// A folder of `count` desktop entries of the usual size.
void fill(const QString& folder, qint64 count)
{
    QDir().mkpath(folder);
    for (qint64 number = 0; number < count; ++number) {
        QByteArray entry
            = "[Desktop Entry]\nType=Application\nTryExec=sh\nExec=sh %U\nIcon=viewer\n";
        entry += "Name=Application " + QByteArray::number((number * 7919) % count) + '\n';
        for (const char* language : {"de", "fr", "es", "it", "pl", "sv", "ja", "zh_CN"}) {
            entry += QByteArray("Comment[") + language + "]=What this program is good for\n";
        }
        entry += "Categories=Utility;Viewer;\nMimeType=text/plain;image/png;\n";
        QFile file(folder + QStringLiteral("/org.example.app%1.desktop").arg(number));
        if (!file.open(QIODevice::WriteOnly) || file.write(entry) != entry.size()) {
            qFatal("The scratch folder cannot be written.");
        }
    }
}

enum class Entries {
    unread,
    read, ///< Nothing has changed since the last walk.
};

/// The whole walk, from a warm disk cache, as it runs in the background.
template <Entries entries> void walk(benchmark::State& state)
{
    const QTemporaryDir scratch;
    const QString folder = scratch.path() + QStringLiteral("/applications");
    fill(folder, state.range(0));
    QtMainQueue mainQueue;
    QtWorkQueue workQueue;
    std::optional<LinuxFileManager> files;
    files.emplace(mainQueue, workQueue, QStringList{folder});
    if (entries == Entries::read) {
        benchmark::DoNotOptimize(files->desktopEntries());
    }
    for (auto _ : state) {
        if (entries == Entries::unread) {
            state.PauseTiming();
            files.emplace(mainQueue, workQueue, QStringList{folder});
            state.ResumeTiming();
        }
        const QList<IndexedApp> apps = CatalogWalk::loadApplications(*files, {folder});
        if (apps.size() != state.range(0)) {
            state.SkipWithError("Some applications were not found.");
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK_TEMPLATE(walk, Entries::unread)
    ->Arg(300)
    ->Arg(3000)
    ->Arg(30000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(walk, Entries::read)
    ->Arg(300)
    ->Arg(3000)
    ->Arg(30000)
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
