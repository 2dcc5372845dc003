// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherCore/IndexedApp.h>

#include <QList>
#include <QSet>
#include <QString>

namespace Tavik {

class AppCatalog;
class LauncherSettings;
class OutsideApps;
class RecentAppsStore;
class Workspace;

/// Which applications fill the ring, and in what order: pinned, then running, then (if the user
/// wishes) recent ones, or the best matches of a typed text. Holds nothing of the ring's state.
/// Main thread only.
class RingComposition
{
public:
    struct Sources
    {
        AppCatalog& catalog;
        LauncherSettings& settings;
        RecentAppsStore& recents;
        Workspace& workspace;
        OutsideApps& outside;
    };
    /// The regular applications that run, as the drawing marks them.
    struct RunningSets
    {
        QSet<QString> paths;
        QSet<QString> bundleIdentifiers;

        [[nodiscard]] bool contains(const IndexedApp& app) const;
        bool operator==(const RunningSets&) const = default;
    };

    /// `ownIdentifier` is this program's own bundle, which is left out unless it is pinned.
    RingComposition(const Sources& sources, QString ownIdentifier);

    /// Pinned, running and recent applications without duplicates, uncapped.
    [[nodiscard]] QList<IndexedApp> defaultRingCandidates() const;
    /// The first max(1, maximum visible applications) entries of `apps`.
    [[nodiscard]] QList<IndexedApp> defaultRingApps(const QList<IndexedApp>& apps) const;
    /// What the ring is cut from: search results for the debounced text (or else the text as
    /// typed), or the default candidates when there is nothing to search.
    [[nodiscard]] QList<IndexedApp> baseList(const QString& query,
                                             const QString& debouncedQuery) const;
    [[nodiscard]] RunningSets runningApplications() const;

private:
    enum class Own {
        kept,
        leftOut,
    };
    struct Collector;

    [[nodiscard]] qsizetype capacity() const;
    [[nodiscard]] const IndexedApp* record(const QString& path) const;
    void append(Collector& collector, const QString& path, Own own) const;

    Sources m_sources;
    QString m_ownIdentifier;
};

} // namespace Tavik
