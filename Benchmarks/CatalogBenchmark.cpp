// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/CatalogCache.h>
#include <TavikLauncher/Catalog/CatalogIndex.h>
#include <TavikLauncherPlatform/Linux/Applications/LinuxFileManager.h>
#include <TavikLauncherPlatform/QtMainQueue.h>
#include <TavikLauncherPlatform/QtWorkQueue.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <optional>

#include <unistd.h>

using namespace Tavik;

namespace {

/// Writes a desktop entry of the usual size.
void write(const QString& path, const QByteArray& name)
{
    QByteArray entry = "[Desktop Entry]\nType=Application\nTryExec=sh\nExec=sh %U\nIcon=viewer\n";
    entry += "Name=Application " + name + '\n';
    for (const char* language : {"de", "fr", "es", "it", "pl", "sv", "ja", "zh_CN"}) {
        entry += QByteArray("Comment[") + language + "]=What this program is good for\n";
    }
    entry += "Categories=Utility;Viewer;\nMimeType=text/plain;image/png;\n";
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(entry) != entry.size()) {
        qFatal("The scratch folder cannot be written.");
    }
}

QString entryPath(const QString& folder, qint64 number)
{
    return folder + QStringLiteral("/org.example.app%1.desktop").arg(number);
}

/// A folder of `count` of them.
void fill(const QString& folder, qint64 count)
{
    QDir().mkpath(folder);
    for (qint64 number = 0; number < count; ++number) {
        write(entryPath(folder, number), QByteArray::number((number * 7919) % count));
    }
}

/// What the disk cache of the system holds of the files.
enum class Disk {
    cold, ///< Their contents were dropped; the folder's names and inodes may be there.
    warm,
};

void dropContents(const QString& folder)
{
    const QStringList names = QDir(folder).entryList(QDir::Files);
    for (const QString& name : names) {
        const int file = ::open(QFile::encodeName(folder + u'/' + name).constData(), O_RDONLY);
        // Only what is on the disk already can be dropped.
        if (file < 0 || ::fdatasync(file) != 0
            || ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED) != 0) {
            qFatal("The disk cache cannot be emptied.");
        }
        ::close(file);
    }
}

/// A folder of applications, and a file manager that has read nothing yet.
class Fixture
{
public:
    explicit Fixture(qint64 count)
    {
        qputenv("XDG_DATA_HOME", QFile::encodeName(m_scratch.path()));
        fill(folder(), count);
        start();
        CatalogCache::saveCachedApplications(*m_files, m_workQueue, walk().apps());
        m_workQueue.finish();
    }

    [[nodiscard]] QString folder() const
    {
        return m_scratch.path() + QStringLiteral("/applications");
    }
    [[nodiscard]] LinuxFileManager& files() { return *m_files; }
    [[nodiscard]] CatalogIndex walk()
    {
        return CatalogIndex::loadApplications(*m_files, {folder()});
    }
    /// As a new run of the program finds it.
    void start(Disk disk = Disk::warm)
    {
        m_files.emplace(m_mainQueue, m_workQueue, QStringList{folder()});
        if (disk == Disk::cold) {
            dropContents(folder());
            dropContents(m_scratch.path() + QStringLiteral("/TavikLauncher"));
        }
    }

private:
    QTemporaryDir m_scratch;
    QtMainQueue m_mainQueue;
    QtWorkQueue m_workQueue;
    std::optional<LinuxFileManager> m_files;
};

void expect(benchmark::State& state, qsizetype found)
{
    if (found != state.range(0)) {
        state.SkipWithError("Some applications were not found.");
    }
}

/// What a first ring waits for that finds a cache file.
template <Disk disk> void cache(benchmark::State& state)
{
    Fixture fixture(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        fixture.start(disk);
        state.ResumeTiming();
        expect(state, CatalogCache::loadCachedApplications(fixture.files()).apps.size());
    }
}

/// What it waits for without one.
template <Disk disk> void walk(benchmark::State& state)
{
    Fixture fixture(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        fixture.start(disk);
        state.ResumeTiming();
        expect(state, fixture.walk().apps().size());
    }
}

/// The walk of a program that has read all before.
void walkAgain(benchmark::State& state)
{
    Fixture fixture(state.range(0));
    for (auto _ : state) {
        expect(state, fixture.walk().apps().size());
    }
}

/// One entry has been written to: what the catalog and the workspace do, and the cache file.
void oneChange(benchmark::State& state)
{
    Fixture fixture(state.range(0));
    const QString path = entryPath(fixture.folder(), 7);
    int changes = 0;
    CatalogIndex index = fixture.walk();
    DesktopEntries entries = fixture.files().desktopEntries();
    for (auto _ : state) {
        state.PauseTiming();
        write(path, "changed " + QByteArray::number(++changes));
        QtWorkQueue writes;
        state.ResumeTiming();
        if (!index.update(fixture.files(), {path})) {
            state.SkipWithError("The change was not seen.");
        }
        entries = fixture.files().desktopEntries(entries, {path});
        CatalogCache::saveCachedApplications(fixture.files(), writes, index.apps());
        writes.finish();
        expect(state, index.apps().size());
    }
}

void sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(300)->Arg(3000)->Arg(30000)->Unit(benchmark::kMillisecond);
}

BENCHMARK_TEMPLATE(cache, Disk::cold)->Apply(sizes);
BENCHMARK_TEMPLATE(walk, Disk::cold)->Apply(sizes);
BENCHMARK_TEMPLATE(cache, Disk::warm)->Apply(sizes);
BENCHMARK_TEMPLATE(walk, Disk::warm)->Apply(sizes);
BENCHMARK(walkAgain)->Apply(sizes);
BENCHMARK(oneChange)->Apply(sizes)->MeasureProcessCPUTime();

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
