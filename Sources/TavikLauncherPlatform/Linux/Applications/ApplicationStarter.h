// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Applications/ApplicationLaunch.h>
#include <TavikLauncherPlatform/MainQueue.h>
#include <TavikLauncherPlatform/Workspace.h>

#include <QDBusConnection>
#include <QHash>
#include <QList>
#include <QObject>
#include <QStringList>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <utility>

namespace Tavik {

class ProcessExit;
class WindowSource;
class WorkQueue;

/// Starts applications: each once until its window has come, it has exited or ten seconds have
/// passed. A service is asked over the session bus and started as a program where it does not
/// answer. What was started runs in a systemd scope of its own where there is systemd, and is
/// remembered for as long as it runs. Main thread only.
class ApplicationStarter final : public QObject
{
    Q_OBJECT

public:
    struct Dependencies
    {
        MainQueue& mainQueue;
        WorkQueue& workQueue;
        WindowSource& windows;
        /// What is to be started at a path, read anew; runs off the main thread.
        std::function<LaunchTarget(const QString& path)> read;
    };

    explicit ApplicationStarter(const Dependencies& dependencies);
    ~ApplicationStarter() override;

    /// Nothing happens for what is starting already, which counts as done. `known` is the entry as
    /// it is known in memory, to be announced by.
    void
    start(const QString& path, const DesktopEntry* known, Workspace::OpenCompletion completion);
    /// Has an application that runs under its ID's name on the bus show itself; starts it where it
    /// does not answer.
    void raise(const DesktopEntry& entry, Workspace::OpenCompletion completion);
    /// A window of the application, or one with that start-up ID, has come.
    void windowCame(const QString& path, const QByteArray& startupId);
    /// Forgets what no longer runs.
    void forgetEnded();

    /// The paths of what is starting.
    [[nodiscard]] QStringList starting() const;
    /// The path of what we started as that process, or for that start-up ID; empty for nothing.
    [[nodiscard]] QString pathOf(qint64 processId, const QByteArray& startupId = {}) const;

Q_SIGNALS:
    void startingChanged();
    /// More is known of whose a process is.
    void processKnown();

private:
    struct Start
    {
        LaunchTokens tokens;
        Task patience;
        std::unique_ptr<ProcessExit> exit;
    };
    void run(const LaunchTarget& target,
             const LaunchTokens& tokens,
             const Workspace::OpenCompletion& completion);
    void activate(const LaunchTarget& target,
                  const LaunchTokens& tokens,
                  const Workspace::OpenCompletion& completion);
    void finish(const LaunchTarget& target,
                const LaunchResult& result,
                const Workspace::OpenCompletion& completion);
    void placeInScope(const LaunchTarget& target, qint64 processId);
    void tellUser(const LaunchTarget& target, const QString& error);
    void end(const QString& path);

    Dependencies m_dependencies;
    std::optional<QDBusConnection> m_bus;
    std::map<QString, Start> m_starting; ///< By path.
    std::map<QByteArray, Task> m_raised; ///< What ends announcements, by start-up ID.
    QHash<qint64, QString> m_processes; ///< What we started, by process.
    QList<std::pair<QByteArray, QString>> m_startupIds; ///< The latest ones with their paths.
};

} // namespace Tavik
