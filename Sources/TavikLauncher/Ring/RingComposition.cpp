// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/AppCatalog.h>
#include <TavikLauncher/Catalog/RecentAppsStore.h>
#include <TavikLauncher/Ring/OutsideApps.h>
#include <TavikLauncher/Ring/RingComposition.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncherCore/AppSearch.h>
#include <TavikLauncherPlatform/Workspace.h>

#include <algorithm>
#include <utility>

namespace Tavik {

using ActivationPolicy = RunningApplication::ActivationPolicy;

struct RingComposition::Collector
{
    QSet<QString> seen;
    QList<IndexedApp> apps;
};

bool RingComposition::RunningSets::contains(const IndexedApp& app) const
{
    return paths.contains(app.path())
        || (app.bundleIdentifier() && bundleIdentifiers.contains(*app.bundleIdentifier()));
}

RingComposition::RingComposition(const Sources& sources, QString ownIdentifier)
    : m_sources(sources)
    , m_ownIdentifier(std::move(ownIdentifier))
{ }

QList<IndexedApp> RingComposition::defaultRingCandidates() const
{
    Collector collector;
    for (const QString& path : m_sources.settings.effectivePinnedAppPaths()) {
        append(collector, path, Own::kept);
    }
    for (const RunningApplication& running : m_sources.workspace.runningApplications()) {
        if (running.activationPolicy == ActivationPolicy::regular && running.bundlePath) {
            append(collector, *running.bundlePath, Own::leftOut);
        }
    }
    if (m_sources.settings.fillsRingWithRecentApps()) {
        for (const QString& path : m_sources.recents.recentPaths()) {
            append(collector, path, Own::leftOut);
        }
    }
    return collector.apps;
}

QList<IndexedApp> RingComposition::defaultRingApps(const QList<IndexedApp>& apps) const
{
    return apps.first(std::min(apps.size(), capacity()));
}

QList<IndexedApp> RingComposition::baseList(const QString& query,
                                            const QString& debouncedQuery) const
{
    const QString text = (debouncedQuery.isEmpty() ? query : debouncedQuery).trimmed();
    if (text.isEmpty()) {
        return defaultRingApps(defaultRingCandidates());
    }
    if (m_sources.settings.searchesAllApps()) {
        return m_sources.catalog.results(text, capacity());
    }
    return AppSearch::results(text, defaultRingCandidates(), capacity());
}

RingComposition::RunningSets RingComposition::runningApplications() const
{
    RunningSets sets;
    for (const RunningApplication& running : m_sources.workspace.runningApplications()) {
        if (running.activationPolicy != ActivationPolicy::regular) {
            continue;
        }
        if (running.bundlePath) {
            sets.paths.insert(*running.bundlePath);
        }
        if (running.bundleIdentifier) {
            sets.bundleIdentifiers.insert(*running.bundleIdentifier);
        }
    }
    return sets;
}

qsizetype RingComposition::capacity() const
{
    return std::max<qsizetype>(1, static_cast<qsizetype>(m_sources.settings.maxVisibleApps()));
}

const IndexedApp* RingComposition::record(const QString& path) const
{
    if (const IndexedApp* catalogued = m_sources.catalog.recordForPath(path)) {
        return catalogued;
    }
    return m_sources.outside.record(path);
}

void RingComposition::append(Collector& collector, const QString& path, Own own) const
{
    if (collector.seen.contains(path)) {
        return;
    }
    collector.seen.insert(path);
    const IndexedApp* app = record(path);
    if (!app) {
        return;
    }
    const bool isOwn = app->bundleIdentifier() == m_ownIdentifier
        || path == m_sources.workspace.pathForApplication(m_ownIdentifier);
    if (own == Own::leftOut && isOwn) {
        return;
    }
    collector.apps.append(*app);
}

} // namespace Tavik
