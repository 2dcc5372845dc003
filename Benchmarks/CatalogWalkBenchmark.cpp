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

/// The whole walk, from a warm disk cache, as it runs in the background.
void walk(benchmark::State& state)
{
    const QTemporaryDir scratch;
    const QString folder = scratch.path() + QStringLiteral("/applications");
    fill(folder, state.range(0));
    QtMainQueue mainQueue;
    QtWorkQueue workQueue;
    const LinuxFileManager files(mainQueue, workQueue, {folder});
    for (auto _ : state) {
        const QList<IndexedApp> apps = CatalogWalk::loadApplications(files, {folder});
        if (apps.size() != state.range(0)) {
            state.SkipWithError("Some applications were not found.");
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(walk)->Arg(300)->Arg(3000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
