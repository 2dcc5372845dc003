// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/FileManager.h>
#include <TavikLauncherPlatform/MainQueue.h>

#include <QFileSystemWatcher>
#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

namespace Tavik {

/// Notices what comes and goes in folders and below them, through the kernel's notifications.
/// Where a folder does not exist yet, its nearest existing parent is watched instead. Never polls:
/// without notifications it stays silent. A file rewritten in place is not noticed.
class FolderWatcher final : public QObject, public FolderWatch
{
    Q_OBJECT

public:
    /// Calls `changed` when changes have settled for a second, or have gone on for five.
    FolderWatcher(MainQueue& mainQueue, QStringList folders, std::function<void()> changed);

private:
    void handleChange(const QString& directory);
    void settle();
    void updateWatches();
    [[nodiscard]] QStringList anchors() const;
    [[nodiscard]] QStringList existingFolders() const;
    [[nodiscard]] bool isInside(const QString& directory) const;

    MainQueue& m_mainQueue;
    QStringList m_folders;
    std::function<void()> m_changed;
    std::unique_ptr<QFileSystemWatcher> m_watcher; ///< Null when the kernel has no room for it.
    QStringList m_anchors; ///< By folder: itself, or the nearest parent that exists.
    QStringList m_existing; ///< The folders that existed at the last look.
    bool m_sawChange = false;
    std::optional<double> m_unsettledSince;
    Task m_settling;
};

} // namespace Tavik
