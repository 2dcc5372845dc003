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
    /// Changes have settled for a second, or have gone on for five. `paths` are what has changed,
    /// a folder's with all that is below it; none means that it may be anything.
    void changed(const QStringList& paths);

private:
    void handleChange(const QString& folder, const QString& name, bool isFolder);
    void handleSettled();
    void survey();
    void take(const FolderSurvey& survey);
    void report(const QSet<QString>& changed);

    MainQueue& m_mainQueue;
    WorkQueue& m_workQueue;
    QStringList m_folders;
    FolderNotifications m_notifications;
    FolderSurvey m_survey; ///< The last look.
    QSet<QString> m_changed; ///< Paths; the empty one stands for anything.
    bool m_mustSurvey = false; ///< Folders may have come or gone.
    bool m_isSurveying = false;
    std::optional<double> m_unsettledSince;
    Task m_settling;
};

} // namespace Tavik
