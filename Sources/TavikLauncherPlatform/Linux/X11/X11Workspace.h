// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/FileManager.h>
#include <TavikLauncherPlatform/Linux/Applications/DesktopEntries.h>
#include <TavikLauncherPlatform/Linux/Applications/RunningApplicationList.h>
#include <TavikLauncherPlatform/Linux/Session/SleepMonitor.h>
#include <TavikLauncherPlatform/Linux/X11/X11WindowTracker.h>
#include <TavikLauncherPlatform/Workspace.h>

#include <QObject>

#include <memory>

namespace Tavik {

class WorkQueue;
struct LaunchResult;

/// The workspace on X11: an application is the windows of one desktop entry or `.app` folder. The
/// desktop entries are read off the main thread, so for a moment after the start running
/// applications have no bundle path; when they get one, they count as launched, but the one that
/// has the focus then does not count as activated.
class X11Workspace final : public QObject, public Workspace
{
public:
    X11Workspace(MainQueue& mainQueue, WorkQueue& workQueue, FileManager& fileManager);

    [[nodiscard]] QList<RunningApplication> runningApplications() const override;
    [[nodiscard]] std::optional<RunningApplication> frontmostApplication() const override;
    [[nodiscard]] std::optional<QString>
    pathForApplication(const QString& bundleIdentifier) const override;
    void openApplication(const QString& path,
                         OpenConfiguration configuration,
                         OpenCompletion completion) override;
    [[nodiscard]] NotificationCenter& notificationCenter() override { return m_center; }

    /// For the screens' sake.
    [[nodiscard]] X11WindowTracker& windows() { return m_windows; }

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
    void takeEntries(const DesktopEntries& entries);
    void updateApplications();
    void updateFrontmost();
    [[nodiscard]] QString frontmostIdentity() const;
    [[nodiscard]] ApplicationWindow describe(xcb_window_t window);
    [[nodiscard]] Identity identify(xcb_window_t window, const X11WindowFacts& facts);
    [[nodiscard]] Identity identityOf(const DesktopEntry& entry) const;
    [[nodiscard]] Identity identityAt(const QString& path);
    [[nodiscard]] const ProcessClues& cluesOf(xcb_window_t window, qint64 processId);
    void rememberLaunch(const QString& path, const LaunchResult& result);

    MainQueue& m_mainQueue;
    WorkQueue& m_workQueue;
    FileManager& m_fileManager;
    NotificationCenter m_center;
    X11WindowTracker m_windows;
    SleepMonitor m_sleep;
    DesktopEntries m_entries;
    std::unique_ptr<FolderWatch> m_watch;
    Task m_unknownWindowTask;
    bool m_hasEntries = false;
    bool m_isReading = false;
    bool m_mustReadAgain = false;
    double m_lastRead = 0;
    RunningApplicationList m_applications;
    QHash<xcb_window_t, Process> m_processes; ///< By window, asked for once.
    QSet<xcb_window_t> m_seen; ///< Windows that were looked up among the entries.
    QHash<qint64, QString> m_launched; ///< What we started, by process.
    QHash<QString, Identity> m_folders; ///< `.app` folders met among the running programs.
    QString m_frontmost; ///< What the last activation was about.
    quint64 m_launches = 0;
};

} // namespace Tavik
