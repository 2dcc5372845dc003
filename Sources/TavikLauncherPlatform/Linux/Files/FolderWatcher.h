// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/MainQueue.h>

#include <QFileSystemWatcher>
#include <QHash>
#include <QList>
#include <QObject>
#include <QStringList>

#include <memory>
#include <optional>
#include <utility>

namespace Tavik {

class WorkQueue;

/// Notices what comes and goes in folders and below them, through the kernel's notifications, and
/// when another folder takes a folder's place: by its coming to exist, by a rename, or by a link on
/// the way that leads elsewhere. Never polls: without notifications it stays silent. A file
/// rewritten in place is not noticed.
class FolderWatcher final : public QObject
{
    Q_OBJECT

public:
    /// Both queues outlive the watcher. Looks at the folders before it returns, later in the
    /// background.
    FolderWatcher(MainQueue& mainQueue, WorkQueue& workQueue, QStringList folders);

Q_SIGNALS:
    /// Changes have settled for a second, or have gone on for five.
    void changed();

private:
    using Identity = std::pair<quint64, quint64>; ///< Device and inode; zeros for no folder.
    struct Watched
    {
        Identity identity;
        bool isInside = false; ///< One of the folders or below, not on the way to them.
    };
    using Watches = QHash<QString, Watched>; ///< By path; each folder once.
    /// Where the folders are.
    struct Places
    {
        QList<Identity> folders;
        QStringList turningPoints; ///< Where a change can make them other folders.

        bool operator==(const Places&) const = default;
    };

    struct Survey
    {
        Places places;
        Watches watches; ///< That these places need.
    };

    void handleChange(const QString& directory);
    void settle();
    void take(const Survey& survey);
    static Identity identityOf(const QString& folder);
    static Places placesOf(const QStringList& folders);
    static Survey surveyOf(const QStringList& folders);

    MainQueue& m_mainQueue;
    WorkQueue& m_workQueue;
    QStringList m_folders;
    std::unique_ptr<QFileSystemWatcher> m_watcher; ///< Null when the kernel has no room for it.
    Places m_places; ///< At the last look.
    Watches m_watches;
    bool m_sawChange = false;
    bool m_isSurveying = false;
    bool m_mustSurveyAgain = false;
    std::optional<double> m_unsettledSince;
    Task m_settling;
};

} // namespace Tavik
