// SPDX-License-Identifier: MIT
#include <TavikLauncherCore/TextIndex.h>
#include <TavikLauncherPlatform/Linux/Applications/DesktopEntryCache.h>

#include <QFile>
#include <QMutexLocker>

#include <sys/stat.h>

namespace Tavik {

SharedDesktopEntry DesktopEntryCache::read(const QString& path, const QString& id)
{
    // Before the reading: what is written in between has another stamp.
    const Stamp stamp = stampOf(path);
    if (SharedDesktopEntry entry = known(path, id, stamp)) {
        return entry;
    }
    const QMutexLocker reading(&m_reading.at(qHash(path) % m_reading.size()));
    if (SharedDesktopEntry entry = known(path, id, stamp)) {
        return entry;
    }
    SharedDesktopEntry entry = std::make_shared<DesktopEntry>(
        path.endsWith(QLatin1String(".desktop")) ? DesktopEntryFile::read(path, id)
                                                 : m_images.entry(path));
    const QMutexLocker lock(&m_mutex);
    ++m_reads;
    m_known.insert(path, {.stamp = stamp, .entry = entry});
    return entry;
}

SharedDesktopEntry
DesktopEntryCache::known(const QString& path, const QString& id, Stamp stamp) const
{
    const QMutexLocker lock(&m_mutex);
    const auto found = m_known.constFind(path);
    const bool isCurrent
        = found != m_known.cend() && found->stamp == stamp && found->entry->id == id;
    return isCurrent ? found->entry : nullptr;
}

void DesktopEntryCache::keepOnly(const QList<SharedDesktopEntry>& entries)
{
    TextIndex paths;
    paths.reserve(entries.size());
    for (qsizetype position = 0; position < entries.size(); ++position) {
        paths.add(entries.at(position)->path, position);
    }
    paths.sort();
    const QMutexLocker lock(&m_mutex);
    m_known.removeIf([&](auto known) {
        return !paths.first(known.key(), [&](qsizetype position) {
            return entries.at(position)->path == known.key();
        });
    });
}

quint64 DesktopEntryCache::reads() const
{
    const QMutexLocker lock(&m_mutex);
    return m_reads;
}

DesktopEntryCache::Stamp DesktopEntryCache::stampOf(const QString& path)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0) {
        return 0;
    }
    return qHashMulti(0,
                      quint64{status.st_dev},
                      quint64{status.st_ino},
                      qint64{status.st_size},
                      qint64{status.st_mtim.tv_sec},
                      qint64{status.st_mtim.tv_nsec},
                      qint64{status.st_ctim.tv_sec},
                      qint64{status.st_ctim.tv_nsec});
}

} // namespace Tavik
