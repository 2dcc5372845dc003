// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherCore/IndexedApp.h>

#include <QList>
#include <QString>

#include <functional>
#include <optional>

namespace Tavik {

class FileManager;
class WorkQueue;

/// What the file knows.
struct CachedApplications
{
    QList<IndexedApp> apps; ///< Those that still exist, in the file's order.
    bool areSorted = false; ///< By name, for the language of this session.
};

/// The file that keeps the last completed index, so that a new run knows the applications before
/// it has walked the disk. It holds no icons. Failures are one line in the log each.
namespace CatalogCache {

/// A larger file is not read.
inline constexpr qint64 maxReadableSize = 5'242'880;

/// Where the file is; creates the folders above it. Absent when they cannot be had.
[[nodiscard]] std::optional<QString> cacheURL(const FileManager& fileManager);

/// Writes `apps`, sorted by name, in the background, whole or not at all. Of two saves the later
/// one stays. The first entry tells for which language they are sorted.
void saveCachedApplications(const FileManager& fileManager,
                            WorkQueue& workQueue,
                            const QList<IndexedApp>& apps);

/// Reads the file in the background and hands what it knows to `done` on the main thread.
void loadCachedApplicationsAsync(const FileManager& fileManager,
                                 WorkQueue& workQueue,
                                 std::function<void(const CachedApplications&)> done);

/// Reads the file. No applications on any failure.
[[nodiscard]] CachedApplications loadCachedApplications(const FileManager& fileManager);

} // namespace CatalogCache

} // namespace Tavik
