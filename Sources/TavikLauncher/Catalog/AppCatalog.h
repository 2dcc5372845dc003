// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Catalog/CatalogIndex.h>
#include <TavikLauncherCore/IndexedApp.h>

#include <QList>
#include <QObject>
#include <QStringList>

#include <chrono>
#include <memory>
#include <optional>

namespace Tavik {

class FileManager;
class FolderWatch;
class MainQueue;
class WorkQueue;

/// Every installed application, sorted by name. Fills itself from the cache file of the previous
/// run as soon as it is created, and properly by walking the application folders in the background.
/// One instance lives for the whole run. Main thread only.
class AppCatalog final : public QObject
{
    Q_OBJECT

public:
    /// The services that a walk needs; they outlive the catalog and its background work.
    struct Dependencies
    {
        FileManager& fileManager;
        WorkQueue& workQueue;
        MainQueue& mainQueue;
    };

    /// Walks `searchPaths` in their order; none means the system's application folders.
    explicit AppCatalog(const Dependencies& dependencies,
                        QStringList searchPaths = {},
                        QObject* parent = nullptr);
    ~AppCatalog() override;

    [[nodiscard]] const QList<IndexedApp>& apps() const { return m_index.apps(); }
    /// Those that match `query`, best first, at most max(`limit`, 1); see `AppSearch::results`.
    [[nodiscard]] QList<IndexedApp> results(const QString& query, qsizetype limit) const;
    /// True while a walk is running.
    [[nodiscard]] bool isIndexing() const { return m_isIndexing; }
    /// The first record with that path; valid until `appsChanged`. Null when there is none.
    [[nodiscard]] const IndexedApp* recordForPath(const QString& path) const
    {
        return m_index.withPath(path);
    }
    /// The record of an application that need not be in the catalog; absent when no file exists at
    /// `path`.
    [[nodiscard]] static std::optional<IndexedApp> indexedApp(const FileManager& fileManager,
                                                              const QString& path);

    /// Starts a walk, unless one is running. It begins when the cache file has been read.
    void reindex();
    /// The same, and each name is put in its place anew.
    void reindexFromScratch();
    /// Starts a walk, unless one is running or the last one finished less than `maxAge` ago.
    void reindexIfStale(std::chrono::duration<double> maxAge);
    /// From now on follows what is installed, changed and removed.
    void watchFolders();

Q_SIGNALS:
    void appsChanged();
    void isIndexingChanged();
    /// Applications were installed, replaced or removed, so their icons may be others too.
    void foldersChanged();

private:
    void loadCache();
    void takeCache(const CachedApplications& cached);
    void walk();
    void finishWalk(const CatalogIndex& index);
    void handleFolderChange(const QStringList& paths);
    void followChanges();
    void publish(const CatalogIndex& index);

    Dependencies m_dependencies;
    QStringList m_searchPaths;
    CatalogIndex m_index;
    bool m_isCacheRead = false;
    bool m_isIndexing = false;
    bool m_sortsAnew = false; ///< The next walk does.
    bool m_mustWalkAgain = false;
    int m_walks = 0; ///< How many have finished.
    bool m_isFollowing = false;
    QStringList m_changedPaths; ///< Still to be looked at.
    std::optional<double> m_lastIndexCompletion; ///< In seconds of system uptime.
    std::unique_ptr<FolderWatch> m_folderWatch;
};

} // namespace Tavik
