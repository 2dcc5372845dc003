// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Applications/ApplicationStarter.h>
#include <TavikLauncherPlatform/Linux/Applications/DesktopEntries.h>
#include <TavikLauncherPlatform/Linux/Applications/RunningApplicationList.h>
#include <TavikLauncherPlatform/Linux/Applications/WindowSource.h>
#include <TavikLauncherPlatform/Linux/Applications/WindowlessApplications.h>
#include <TavikLauncherPlatform/Linux/Session/SleepMonitor.h>
#include <TavikLauncherPlatform/Workspace.h>

#include <QObject>
#include <QSet>

#include <memory>

namespace Tavik {

class FolderWatch;
class LinuxFileManager;
class WorkQueue;

/// The workspace of a Linux desktop: an application is the windows of one desktop entry or `.app`
/// folder, whatever window system tells of them; where that does not tell of all, also an entry
/// with a name on the session bus or a systemd unit. The desktop entries are read off the main
/// thread, so for a moment after the start running applications have no bundle path; when they get
/// one, they count as launched, but the one that has the focus then does not count as activated.
class ApplicationWorkspace final : public QObject, public Workspace
{
public:
    /// The three outlive the workspace.
    ApplicationWorkspace(MainQueue& mainQueue,
                         WorkQueue& workQueue,
                         LinuxFileManager& fileManager,
                         std::unique_ptr<WindowSource> windows);
    ~ApplicationWorkspace() override;

    [[nodiscard]] Means runningMeans() const override { return m_windows->runningMeans(); }
    [[nodiscard]] Means raisingMeans() const override { return m_windows->raisingMeans(); }
    [[nodiscard]] QList<RunningApplication> runningApplications() const override;
    [[nodiscard]] std::optional<RunningApplication> frontmostApplication() const override;
    [[nodiscard]] QStringList startingApplications() const override;
    [[nodiscard]] std::optional<QString>
    pathForApplication(const QString& bundleIdentifier) const override;
    void openApplication(const QString& path,
                         OpenConfiguration configuration,
                         OpenCompletion completion) override;
    [[nodiscard]] NotificationCenter& notificationCenter() override { return m_center; }

private:
    struct Process
    {
        qint64 id = 0;
        ProcessClues clues;
    };
    struct Identity
    {
        std::optional<QString> path;
        std::optional<QString> identifier;
    };
    void readEntries();
    void followChanges(const QStringList& paths);
    void read();
    void takeEntries(const DesktopEntries& entries);
    void updateApplications();
    void followWindowless();
    void updateFrontmost();
    [[nodiscard]] QString frontmostIdentity() const;
    [[nodiscard]] ApplicationWindow describe(WindowId window, const WindowSource::Facts& facts);
    [[nodiscard]] Identity identify(WindowId window, const WindowSource::Facts& facts);
    [[nodiscard]] LaunchClues launchClues(WindowId window, const WindowSource::Facts& facts);
    [[nodiscard]] Identity identityAt(const QString& path);
    [[nodiscard]] const ProcessClues& cluesOf(WindowId window, qint64 processId);

    MainQueue& m_mainQueue;
    WorkQueue& m_workQueue;
    LinuxFileManager& m_fileManager;
    NotificationCenter m_center;
    std::unique_ptr<WindowSource> m_windows;
    ApplicationStarter m_starter;
    std::unique_ptr<WindowlessApplications> m_windowless; ///< Where not all windows are told of.
    SleepMonitor m_sleep;
    DesktopEntries m_entries;
    std::unique_ptr<FolderWatch> m_watch;
    Task m_unknownWindowTask;
    bool m_hasWindows = false; ///< Those from before the start are known.
    bool m_hasEntries = false;
    bool m_isReading = false;
    bool m_mustReadAll = false;
    QStringList m_changedPaths; ///< Still to be read.
    double m_lastRead = 0;
    const QString m_ownControlGroup;
    RunningApplicationList m_applications;
    QHash<WindowId, Process> m_processes; ///< By window, asked for once.
    QHash<WindowId, QString> m_started; ///< What we started, by its windows.
    QSet<WindowId> m_seen; ///< Windows that were looked up among the entries.
    QHash<QString, Identity> m_folders; ///< `.app` folders met among the running programs.
    QString m_frontmost; ///< What the last activation was about.
};

} // namespace Tavik
