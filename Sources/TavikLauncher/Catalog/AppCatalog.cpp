// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/AppCatalog.h>
#include <TavikLauncher/Catalog/CatalogCache.h>
#include <TavikLauncher/Catalog/CatalogRecord.h>
#include <TavikLauncherCore/AppSearch.h>
#include <TavikLauncherPlatform/FileManager.h>
#include <TavikLauncherPlatform/MainQueue.h>
#include <TavikLauncherPlatform/WorkQueue.h>

#include <QPointer>

#include <utility>

namespace Tavik {

AppCatalog::AppCatalog(const Dependencies& dependencies, QStringList searchPaths, QObject* parent)
    : QObject(parent)
    , m_dependencies(dependencies)
    , m_searchPaths(std::move(searchPaths))
{
    if (m_searchPaths.isEmpty()) {
        m_searchPaths = m_dependencies.fileManager.applicationFolders();
    }
    loadCache();
}

AppCatalog::~AppCatalog() = default;

std::optional<IndexedApp> AppCatalog::indexedApp(const FileManager& fileManager,
                                                 const QString& path)
{
    if (!fileManager.fileExists(path)) {
        return std::nullopt;
    }
    return CatalogRecord::record(path, fileManager.bundle(path));
}

QList<IndexedApp> AppCatalog::results(const QString& query, qsizetype limit) const
{
    return AppSearch::results(query,
                              apps(),
                              limit,
                              m_index.isSorted() ? AppSearch::Ties::asGiven
                                                 : AppSearch::Ties::byName);
}

void AppCatalog::reindex()
{
    if (m_isIndexing) {
        return;
    }
    m_isIndexing = true;
    if (m_isCacheRead) {
        walk();
    }
    Q_EMIT isIndexingChanged();
}

void AppCatalog::reindexFromScratch()
{
    m_sortsAnew = true;
    reindex();
}

void AppCatalog::walk()
{
    const bool keepsOrder = !std::exchange(m_sortsAnew, false) && m_index.isSorted();
    m_dependencies.workQueue.run(
        WorkPriority::userInitiated,
        [&fileManager = m_dependencies.fileManager,
         searchPaths = m_searchPaths,
         sorted = keepsOrder ? apps() : QList<IndexedApp>()] {
            return CatalogIndex::loadApplications(fileManager, searchPaths, sorted);
        },
        [catalog = QPointer(this)](const CatalogIndex& index) {
            if (catalog) {
                catalog->finishWalk(index);
            }
        });
}

void AppCatalog::reindexIfStale(std::chrono::duration<double> maxAge)
{
    const double now = m_dependencies.mainQueue.systemUptime();
    if (m_lastIndexCompletion && now - *m_lastIndexCompletion < maxAge.count()) {
        return;
    }
    reindex();
}

void AppCatalog::watchFolders()
{
    m_folderWatch = m_dependencies.fileManager.watch(
        m_searchPaths, [this](const QStringList& paths) { handleFolderChange(paths); });
}

void AppCatalog::loadCache()
{
    CatalogCache::loadCachedApplicationsAsync(
        m_dependencies.fileManager,
        m_dependencies.workQueue,
        [catalog = QPointer(this)](const CachedApplications& cached) {
            if (catalog) {
                catalog->takeCache(cached);
            }
        });
}

void AppCatalog::takeCache(const CachedApplications& cached)
{
    m_isCacheRead = true;
    m_index = CatalogIndex(cached);
    if (m_isIndexing) {
        walk();
    }
    if (!cached.apps.isEmpty()) {
        Q_EMIT appsChanged();
    }
}

void AppCatalog::finishWalk(const CatalogIndex& index)
{
    ++m_walks;
    m_isIndexing = false;
    m_lastIndexCompletion = m_dependencies.mainQueue.systemUptime();
    publish(index);
    Q_EMIT isIndexingChanged();

    if (std::exchange(m_mustWalkAgain, false)) {
        m_changedPaths.clear();
        reindex();
    } else {
        followChanges();
    }
}

void AppCatalog::handleFolderChange(const QStringList& paths)
{
    if (paths.isEmpty() || (!m_lastIndexCompletion && !m_isIndexing)) {
        // A folder that the running walk has left behind already may be the one that changed.
        m_mustWalkAgain = m_isIndexing;
        reindex();
    } else {
        m_changedPaths += paths;
        followChanges();
    }
    Q_EMIT foldersChanged();
}

/// Looks at what has changed, unless a walk or another look has yet to end: then after that.
void AppCatalog::followChanges()
{
    if (m_isIndexing || m_isFollowing || m_changedPaths.isEmpty()) {
        return;
    }
    struct Update
    {
        CatalogIndex index;
        bool isOther = false;
    };
    m_isFollowing = true;
    m_dependencies.workQueue.run(
        WorkPriority::userInitiated,
        [&fileManager = m_dependencies.fileManager,
         index = m_index,
         paths = std::exchange(m_changedPaths, {})] {
            Update update{.index = index};
            update.isOther = update.index.update(fileManager, paths);
            return update;
        },
        [catalog = QPointer(this), walks = m_walks](const Update& update) {
            if (!catalog) {
                return;
            }
            catalog->m_isFollowing = false;
            // A walk that has finished meanwhile knows better.
            if (update.isOther && catalog->m_walks == walks) {
                catalog->publish(update.index);
            }
            catalog->followChanges();
        });
}

void AppCatalog::publish(const CatalogIndex& index)
{
    m_index = index;
    CatalogCache::saveCachedApplications(
        m_dependencies.fileManager, m_dependencies.workQueue, apps());
    Q_EMIT appsChanged();
}

} // namespace Tavik
