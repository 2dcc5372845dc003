// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/AppCatalog.h>
#include <TavikLauncher/Catalog/CatalogCache.h>
#include <TavikLauncher/Catalog/CatalogWalk.h>
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

const IndexedApp* AppCatalog::recordForPath(const QString& path) const
{
    const auto position = m_positions.constFind(path);
    return position == m_positions.cend() ? nullptr : &m_apps.at(*position);
}

std::optional<IndexedApp> AppCatalog::indexedApp(const FileManager& fileManager,
                                                 const QString& path)
{
    if (!fileManager.fileExists(path)) {
        return std::nullopt;
    }
    return CatalogWalk::record(path, fileManager.bundle(path));
}

void AppCatalog::reindex()
{
    if (m_isIndexing) {
        return;
    }
    m_isIndexing = true;
    m_dependencies.workQueue.run(
        WorkPriority::userInitiated,
        [&fileManager = m_dependencies.fileManager, searchPaths = m_searchPaths] {
            return CatalogWalk::loadApplications(fileManager, searchPaths);
        },
        [catalog = QPointer(this)](const QList<IndexedApp>& apps) {
            if (catalog) {
                catalog->finishWalk(apps);
            }
        });
    Q_EMIT isIndexingChanged();
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
        m_searchPaths, [this](const QStringList&) { handleFolderChange(); });
}

void AppCatalog::loadCache()
{
    CatalogCache::loadCachedApplicationsAsync(
        m_dependencies.fileManager,
        m_dependencies.workQueue,
        [catalog = QPointer(this)](const QList<IndexedApp>& cached) {
            // A walk that finished first knows better, also when it found nothing.
            const bool isWanted = catalog && !catalog->m_lastIndexCompletion;
            if (isWanted && catalog->m_apps.isEmpty() && !cached.isEmpty()) {
                catalog->publish(cached);
                Q_EMIT catalog->appsChanged();
            }
        });
}

void AppCatalog::finishWalk(const QList<IndexedApp>& apps)
{
    publish(apps);
    m_isIndexing = false;
    m_lastIndexCompletion = m_dependencies.mainQueue.systemUptime();
    CatalogCache::saveCachedApplications(
        m_dependencies.fileManager, m_dependencies.workQueue, apps);
    Q_EMIT appsChanged();
    Q_EMIT isIndexingChanged();

    if (std::exchange(m_foldersChangedDuringWalk, false)) {
        reindex();
    }
}

void AppCatalog::handleFolderChange()
{
    // A folder that the running walk has left behind already may be the one that changed.
    m_foldersChangedDuringWalk = m_isIndexing;
    reindex();
    Q_EMIT foldersChanged();
}

void AppCatalog::publish(const QList<IndexedApp>& apps)
{
    m_apps = apps;
    m_positions.clear();
    m_positions.reserve(m_apps.size());
    for (qsizetype position = 0; position < m_apps.size(); ++position) {
        const QString& path = m_apps.at(position).path();
        if (!m_positions.contains(path)) {
            m_positions.insert(path, position);
        }
    }
}

} // namespace Tavik
