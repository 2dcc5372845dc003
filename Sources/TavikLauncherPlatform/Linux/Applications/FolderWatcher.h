// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Applications/FolderSurvey.h>
#include <TavikLauncherPlatform/MainQueue.h>

#include <QFileSystemWatcher>
#include <QObject>
#include <QStringList>

#include <memory>
#include <optional>

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
    void handleChange(const QString& directory);
    void settle();
    void take(const FolderSurvey& survey);

    MainQueue& m_mainQueue;
    WorkQueue& m_workQueue;
    QStringList m_folders;
    std::unique_ptr<QFileSystemWatcher> m_watcher; ///< Null when the kernel has no room for it.
    FolderSurvey m_survey; ///< The last look.
    bool m_sawChange = false;
    bool m_isSurveying = false;
    bool m_mustSurveyAgain = false;
    std::optional<double> m_unsettledSince;
    Task m_settling;
};

} // namespace Tavik
