// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Applications/FolderNotifications.h>
#include <TavikLauncherPlatform/Linux/Applications/FolderSurvey.h>
#include <TavikLauncherPlatform/MainQueue.h>

#include <QObject>
#include <QSet>
#include <QStringList>

#include <optional>

namespace Tavik {

class WorkQueue;

/// Notices what comes and goes in folders and below them, through the kernel's notifications, and
/// when another folder takes a folder's place: by its coming to exist, by a rename, or by a link on
/// the way that leads elsewhere, and what is written to. Never polls: without notifications it
/// stays silent.
class FolderWatcher final : public QObject
{
    Q_OBJECT

public:
    /// Both queues outlive the watcher. Looks at the folders before it returns, later in the
    /// background.
    FolderWatcher(MainQueue& mainQueue, WorkQueue& workQueue, QStringList folders);

Q_SIGNALS:
    /// Changes have settled for a second, or have gone on for five. `paths` are what has changed;
    /// none means that it may be anything.
    void changed(const QStringList& paths);

private:
    void handleChange(const QString& folder, const QString& name);
    void settle();
    void take(const FolderSurvey& survey);

    MainQueue& m_mainQueue;
    WorkQueue& m_workQueue;
    QStringList m_folders;
    FolderNotifications m_notifications;
    FolderSurvey m_survey; ///< The last look.
    QSet<QString> m_changed; ///< Paths; the empty one stands for anything.
    bool m_isSurveying = false;
    bool m_mustSurveyAgain = false;
    std::optional<double> m_unsettledSince;
    Task m_settling;
};

} // namespace Tavik
